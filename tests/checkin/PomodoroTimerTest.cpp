// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <checkin/PomodoroTimer.h>

#include <QtTest/QTest>

#include <limits>

namespace flitmark {

using namespace std::chrono_literals;

class PomodoroTimerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void interval_data();
    void interval();
    void tick_data();
    void tick();
    void checkin_data();
    void checkin();
    void checkin_endsSnooze();
};

void PomodoroTimerTest::interval_data()
{
    QTest::addColumn<qint64>("configured");
    QTest::addColumn<qint64>("minutes");

    QTest::newRow("ordinary") << qint64{25} << qint64{25};
    QTest::newRow("none") << qint64{0} << qint64{1};
    QTest::newRow("negative") << std::numeric_limits<qint64>::min() << qint64{1};
    QTest::newRow("longest") << qint64{34560} << qint64{34560};
    QTest::newRow("too long") << qint64{34561} << qint64{34560};
    QTest::newRow("seconds would overflow") << std::numeric_limits<qint64>::max() << qint64{34560};
}

void PomodoroTimerTest::interval()
{
    QFETCH(qint64, configured);
    QTEST(static_cast<qint64>(pomodoroInterval(configured).count()), "minutes");
}

void PomodoroTimerTest::tick_data()
{
    QTest::addColumn<qint64>("elapsed");
    QTest::addColumn<double>("ratio");

    QTest::newRow("a second") << qint64{1000} << 1199.0 / 1200;
    QTest::newRow("half") << qint64{600000} << 0.5;
    QTest::newRow("all") << qint64{1200000} << 0.0;
    QTest::newRow("slept two hours") << qint64{7200000} << 0.0;
    QTest::newRow("clock set back") << qint64{-3600000} << 1.0;
}

void PomodoroTimerTest::tick()
{
    QFETCH(qint64, elapsed);
    const QDateTime start(QDate(2026, 1, 22), QTime(9, 0));
    PomodoroTimer timer(start.addSecs(-50));
    timer.start(start);
    timer.tick(start.addMSecs(elapsed), 20min);
    QTEST(timer.timeRemainingRatio(), "ratio");

    const double before = timer.timeRemainingRatio();
    timer.pause();
    timer.tick(start.addMSecs(elapsed + 60000), 20min);
    QCOMPARE(timer.timeRemainingRatio(), before);
}

void PomodoroTimerTest::checkin_data()
{
    QTest::addColumn<int>("secondsLater");
    QTest::addColumn<bool>("isInside");
    QTest::addColumn<PomodoroTimer::Checkin>("expected");

    QTest::newRow("snoozed") << 1199 << true << PomodoroTimer::Checkin::Snoozed;
    QTest::newRow("snooze just over") << 1200 << true << PomodoroTimer::Checkin::Due;
    QTest::newRow("outside, still snoozed") << 600 << false << PomodoroTimer::Checkin::OutsideWindow;
    QTest::newRow("outside, snooze over") << 1300 << false << PomodoroTimer::Checkin::OutsideWindow;
}

void PomodoroTimerTest::checkin()
{
    QFETCH(int, secondsLater);
    QFETCH(bool, isInside);
    const QDateTime now(QDate(2026, 1, 22), QTime(9, 0));
    PomodoroTimer timer(now);
    QCOMPARE(timer.snooze(now, 20min), QDateTime(QDate(2026, 1, 22), QTime(9, 20)));
    QTEST(timer.checkin(now.addSecs(secondsLater),
                        isInside ? PomodoroTimer::Window::Inside : PomodoroTimer::Window::Outside),
          "expected");
}

void PomodoroTimerTest::checkin_endsSnooze()
{
    const QDateTime now(QDate(2026, 1, 22), QTime(9, 0));
    PomodoroTimer timer(now);
    timer.snooze(now, 20min);
    timer.checkin(now.addSecs(1200), PomodoroTimer::Window::Outside);
    QVERIFY(timer.snoozedUntil());
    timer.checkin(now.addSecs(1200), PomodoroTimer::Window::Inside);
    QVERIFY(!timer.snoozedUntil());
}

} // namespace flitmark

QTEST_APPLESS_MAIN(flitmark::PomodoroTimerTest)
#include "PomodoroTimerTest.moc"

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <support/TestServices.h>

#include <QSignalSpy>

#include <limits>

namespace flitmark {

using namespace std::chrono_literals;
using Kind = CheckinResponse::Kind;

namespace {

QString line(const char* text)
{
    return QStringLiteral("CheckinWindowController: ") + QString::fromUtf8(text);
}

} // namespace

class CheckinWindowControllerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_services = std::make_unique<TestServices>(); }
    void cleanup() { m_services.reset(); }

    void countdown_fallsEverySecondAndStaysAtNothing();
    void intervalRead_data();
    void intervalRead();
    void pause_freezesAndSuppresses();
    void restart_publishesAtOnce();
    void cadence_isNotMoved();
    void stop_leavesAllAsItIs();
    void start_fromPausedAndAgain();
    void intervalChange_movesTheCountdownOnly();
    void outsideWindow_startsOverSilently();
    void openPopup_isRaised();
    void answers_data();
    void answers();
    void snooze_suppressesTheNextIntervalOnly();
    void sleep_emptiesTheRingAndEarnsNoTomato();
    void observerOfCompletion_mayStartAnew();
    void goneController_isNotCalled();
    void wakeUps();
    void realTimer_mayEndItself();

    void review_isShownInItsMinute();
    void review_checkIsAlignedAgain();
    void review_afterSleep_isShownOnce();
    void review_restartInTheMinute_showsNoSecond();
    void review_actions();
    void review_snooze_suppressesForAQuarterOfAnHour();

private:
    CheckinWindowController& controller() { return m_services->controller; }
    ManualRunLoop& loop() { return m_services->loop; }
    QStringList printed() { return m_services->output->lines(); }
    void setReviewTimes(const QStringList& times)
    {
        m_services->config.update([&times](AppConfig& config) { config.dailyReviewTimes = times; });
    }

    std::unique_ptr<TestServices> m_services;
};

void CheckinWindowControllerTest::countdown_fallsEverySecondAndStaysAtNothing()
{
    QSignalSpy updates(&m_services->notifications, &NotificationCenter::pomodoroTimerUpdated);
    QSignalSpy ratios(&controller(), &CheckinWindowController::timeRemainingRatioChanged);
    m_services->setInterval(20);
    loop().advance(5min);
    controller().startPomodoroTimer();
    QCOMPARE(printed(), QStringList(line("Started Pomodoro timer (20 min intervals)")));
    QCOMPARE(updates.size(), 0);
    loop().advance(1s);
    QCOMPARE(updates.takeFirst().constFirst().toDouble(), 1199.0 / 1200);
    loop().advance(598s);
    QCOMPARE(controller().timeRemainingRatio(), 601.0 / 1200);
    QCOMPARE(ratios.size(), 599);
    QCOMPARE(ratios.last().constFirst().toDouble(), 601.0 / 1200);

    // A countdown that began earlier has nothing left before the interval ends.
    loop().setWallClock(loop().now().addSecs(590));
    loop().advance(15s);
    QCOMPARE(controller().timeRemainingRatio(), 0.0);
    const auto changes = ratios.size();
    updates.clear();
    loop().advance(20s);
    QCOMPARE(ratios.size(), changes);
    QCOMPARE(updates.size(), 20);
}

void CheckinWindowControllerTest::intervalRead_data()
{
    QTest::addColumn<qint64>("minutes");
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<double>("ratioAfterHalfAMinute");

    QTest::newRow("none") << qint64{0} << QByteArray("Started Pomodoro timer (1 min intervals)") << 0.5;
    QTest::newRow("negative") << qint64{-20} << QByteArray("Started Pomodoro timer (1 min intervals)") << 0.5;
    QTest::newRow("absurd") << std::numeric_limits<qint64>::max()
                            << QByteArray("Started Pomodoro timer (34560 min intervals)") << 1 - 0.5 / 34560;
}

void CheckinWindowControllerTest::intervalRead()
{
    QFETCH(qint64, minutes);
    QFETCH(QByteArray, message);
    m_services->setInterval(minutes);
    controller().startPomodoroTimer();
    QCOMPARE(printed(), QStringList(line(message.constData())));
    loop().advance(30s);
    QTEST(controller().timeRemainingRatio(), "ratioAfterHalfAMinute");
}

void CheckinWindowControllerTest::pause_freezesAndSuppresses()
{
    QSignalSpy states(&controller(), &CheckinWindowController::stateChanged);
    QSignalSpy completed(&m_services->notifications, &NotificationCenter::pomodoroCompleted);
    controller().startPomodoroTimer();
    loop().advance(5min);
    controller().pauseTimer();
    controller().pauseTimer();
    QCOMPARE(states.size(), 2);
    const QDateTime startTime = controller().pomodoroStartTime();
    QSignalSpy updates(&m_services->notifications, &NotificationCenter::pomodoroTimerUpdated);
    loop().advance(20min);
    QCOMPARE(controller().timeRemainingRatio(), 0.75);
    QCOMPARE(updates.size(), 1200);
    QCOMPARE(updates.last().constFirst().toDouble(), 0.75);
    QCOMPARE(completed.size(), 0);
    QCOMPARE(controller().pomodoroStartTime(), startTime);
    QCOMPARE(m_services->popups.takeCalls(), QStringList());

    controller().resumeTimer();
    QVERIFY(!controller().isPaused());
    QCOMPARE(controller().timeRemainingRatio(), 0.75);
    loop().advance(1s);
    QCOMPARE(controller().timeRemainingRatio(), 1199.0 / 1200);
    QCOMPARE(printed().mid(1), QStringList({line("Timer paused"), line("Timer paused"), line("Timer resumed")}));
}

void CheckinWindowControllerTest::restart_publishesAtOnce()
{
    controller().startPomodoroTimer();
    loop().advance(5min);
    controller().pauseTimer();
    QSignalSpy updates(&m_services->notifications, &NotificationCenter::pomodoroTimerUpdated);
    QSignalSpy states(&controller(), &CheckinWindowController::stateChanged);
    controller().restartTimer();
    QCOMPARE(updates.size(), 1);
    QCOMPARE(updates.constFirst().constFirst().toDouble(), 1.0);
    QCOMPARE(controller().timeRemainingRatio(), 1.0);
    QVERIFY(!controller().isPaused());
    QCOMPARE(states.size(), 1);
    QCOMPARE(printed().last(), line("Timer restarted"));
}

void CheckinWindowControllerTest::cadence_isNotMoved()
{
    QList<QTime> completed;
    connect(&m_services->notifications, &NotificationCenter::pomodoroCompleted, &controller(),
            [&] { completed.append(loop().now().time()); });
    controller().startPomodoroTimer();
    loop().advance(7min);
    controller().pauseTimer();
    loop().advance(1min);
    controller().resumeTimer();
    loop().advance(6min);
    controller().restartTimer();
    loop().advance(8min);
    m_services->popups.answer(CheckinResponse{Kind::onTrack});
    QCOMPARE(controller().pomodoroStartTime().time(), QTime(9, 52));
    loop().advance(18min);
    QCOMPARE(completed, QList<QTime>({QTime(9, 50), QTime(10, 10)}));
    QCOMPARE(controller().pomodoroStartTime().time(), QTime(10, 10));
}

void CheckinWindowControllerTest::stop_leavesAllAsItIs()
{
    controller().startPomodoroTimer();
    loop().advance(5min);
    controller().pauseTimer();
    QSignalSpy updates(&m_services->notifications, &NotificationCenter::pomodoroTimerUpdated);
    QSignalSpy states(&controller(), &CheckinWindowController::stateChanged);
    controller().stopPomodoroTimer();
    controller().stopPomodoroTimer();
    QCOMPARE(states.size(), 1);
    QVERIFY(!controller().isRunning());
    loop().advance(1h);
    QCOMPARE(updates.size(), 0);
    QVERIFY(controller().isPaused());
    QCOMPARE(controller().timeRemainingRatio(), 0.75);
    QCOMPARE(controller().pomodoroStartTime().time(), QTime(9, 30));
    QCOMPARE(printed().size(), 2);
}

void CheckinWindowControllerTest::start_fromPausedAndAgain()
{
    controller().startPomodoroTimer();
    loop().advance(5min);
    controller().pauseTimer();
    controller().startPomodoroTimer();
    QVERIFY(!controller().isPaused());
    QCOMPARE(controller().timeRemainingRatio(), 0.75);
    loop().advance(15min);
    // The first start's interval would have ended now.
    QCOMPARE(m_services->popups.takeCalls(), QStringList());
    loop().advance(5min);
    QCOMPARE(m_services->popups.takeCalls(), QStringList(QStringLiteral("show check-in")));
}

void CheckinWindowControllerTest::intervalChange_movesTheCountdownOnly()
{
    controller().startPomodoroTimer();
    loop().advance(5min);
    m_services->setInterval(10);
    loop().advance(1s);
    QCOMPARE(controller().timeRemainingRatio(), 299.0 / 600);
    loop().advance(14min);
    QCOMPARE(m_services->popups.takeCalls(), QStringList());
    loop().advance(59s);
    QCOMPARE(m_services->popups.takeCalls(), QStringList(QStringLiteral("show check-in")));
}

void CheckinWindowControllerTest::outsideWindow_startsOverSilently()
{
    loop().advance(8h + 11min);
    QSignalSpy completed(&m_services->notifications, &NotificationCenter::pomodoroCompleted);
    controller().startPomodoroTimer();
    loop().advance(20min);
    QCOMPARE(loop().now().time(), QTime(18, 1));
    QCOMPARE(printed().last(), line("Outside check-in window"));
    QCOMPARE(completed.size(), 0);
    QCOMPARE(m_services->popups.takeCalls(), QStringList());
    QCOMPARE(controller().pomodoroStartTime().time(), QTime(18, 1));
}

void CheckinWindowControllerTest::openPopup_isRaised()
{
    QSignalSpy completed(&m_services->notifications, &NotificationCenter::pomodoroCompleted);
    controller().startPomodoroTimer();
    loop().advance(40min);
    QCOMPARE(completed.size(), 2);
    QCOMPARE(m_services->popups.takeCalls(),
             QStringList({QStringLiteral("show check-in"), QStringLiteral("raise check-in")}));
    QCOMPARE(m_services->sound.played(), QStringList(QStringLiteral("Tink")));
}

void CheckinWindowControllerTest::answers_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<QByteArray>("message");

    QTest::newRow("focus updated") << Kind::updatedFocus << QByteArray("Focus updated to: Write tests");
    QTest::newRow("completed") << Kind::completedAndNew << QByteArray("Completed task, new focus: Write tests");
    QTest::newRow("on track") << Kind::onTrack << QByteArray("User confirmed on track");
    // Berlin is an hour ahead of UTC in January.
    QTest::newRow("snoozed") << Kind::snoozed << QByteArray("Snoozed until 2026-01-22 08:55:00 +0000");
    QTest::newRow("dismissed") << Kind::dismissed << QByteArray("User dismissed check-in");
}

void CheckinWindowControllerTest::answers()
{
    QFETCH(Kind, kind);
    QFETCH(QByteArray, message);
    controller().showCheckin();
    loop().advance(5min);
    m_services->popups.answer(CheckinResponse{kind, QStringLiteral("Write tests")});
    QVERIFY(!m_services->popups.isCheckinVisible());
    QCOMPARE(printed(), QStringList(line(message.constData())));
    QCOMPARE(controller().pomodoroStartTime(), loop().now());
    QCOMPARE(controller().snoozedUntil().has_value(), kind == Kind::snoozed);
}

void CheckinWindowControllerTest::snooze_suppressesTheNextIntervalOnly()
{
    QSignalSpy completed(&m_services->notifications, &NotificationCenter::pomodoroCompleted);
    controller().startPomodoroTimer();
    loop().advance(20min + 5s);
    m_services->popups.answer(CheckinResponse{Kind::snoozed});
    loop().advance(20min);
    QCOMPARE(printed().last(), line("Still snoozed until 2026-01-22 09:10:05 +0000"));
    QCOMPARE(completed.size(), 1);
    loop().advance(20min);
    QCOMPARE(completed.size(), 2);
    QVERIFY(!controller().snoozedUntil());
    QCOMPARE(m_services->popups.takeCalls().size(), 2);
}

void CheckinWindowControllerTest::sleep_emptiesTheRingAndEarnsNoTomato()
{
    QSignalSpy completed(&m_services->notifications, &NotificationCenter::pomodoroCompleted);
    controller().startPomodoroTimer();
    loop().advance(10min);
    loop().setWallClock(loop().now().addSecs(7200));
    loop().advance(1s);
    QCOMPARE(controller().timeRemainingRatio(), 0.0);
    loop().advance(9min);
    QCOMPARE(completed.size(), 0);
    loop().advance(59s);
    QCOMPARE(completed.size(), 1);
    QCOMPARE(controller().pomodoroStartTime().time(), QTime(11, 50));
    loop().advance(1s);
    QCOMPARE(controller().timeRemainingRatio(), 1199.0 / 1200);
}

void CheckinWindowControllerTest::observerOfCompletion_mayStartAnew()
{
    int completed = 0;
    connect(&m_services->notifications, &NotificationCenter::pomodoroCompleted, &controller(), [&] {
        ++completed;
        controller().startPomodoroTimer();
    });
    controller().startPomodoroTimer();
    loop().advance(60min);
    QCOMPARE(completed, 3);
    QCOMPARE(loop().timerCount(), 2);
}

void CheckinWindowControllerTest::goneController_isNotCalled()
{
    {
        CheckinWindowController other({m_services->config, m_services->signalManager, m_services->daily, loop(),
                                       m_services->notifications, m_services->sound, m_services->popups});
        other.startPomodoroTimer();
        other.startDailyReviewTimer();
        other.checkAndShowCheckin();
        other.showDailyReview();
    }
    QCOMPARE(loop().timerCount(), 0);
    loop().advance(1h);
    QCOMPARE(m_services->popups.takeCalls(), QStringList(QStringLiteral("show review")));
    m_services->popups.answer(DailyReviewAction::openDailyTab);
    QVERIFY(m_services->popups.isDailyReviewVisible());
}

void CheckinWindowControllerTest::wakeUps()
{
    QCOMPARE(loop().timerCount(), 0);
    controller().startDailyReviewTimer();
    controller().startDailyReviewTimer();
    QCOMPARE(loop().timerCount(), 1);
    controller().startPomodoroTimer();
    QCOMPARE(loop().timerCount(), 3);
    controller().stopPomodoroTimer();
    QCOMPARE(loop().timerCount(), 1);
}

void CheckinWindowControllerTest::realTimer_mayEndItself()
{
    int firings = 0;
    std::unique_ptr<RunLoop::Timer> timer;
    timer = RunLoop::shared().every(1ms, [&] {
        timer = RunLoop::shared().every(1ms, [&] {
            timer.reset();
            ++firings;
        });
        ++firings;
    });
    QTRY_COMPARE(firings, 2);
    QVERIFY(!timer);
}

void CheckinWindowControllerTest::review_isShownInItsMinute()
{
    setReviewTimes({QStringLiteral("09:30"), QStringLiteral("12:30"), QStringLiteral("18:00")});
    loop().advance(50s);
    QList<QTime> shown;
    controller().startDailyReviewTimer();
    loop().runQueued();
    QCOMPARE(m_services->popups.takeCalls(), QStringList(QStringLiteral("show review")));
    QCOMPARE(m_services->sound.played(), QStringList(QStringLiteral("Tink")));
    for (int second = 0; second < 9 * 3600; ++second) {
        loop().advance(1s);
        if (!m_services->popups.takeCalls().isEmpty()) {
            shown.append(loop().now().time());
        }
    }
    QCOMPARE(shown, QList<QTime>({QTime(12, 30, 1), QTime(18, 0, 1)}));
}

void CheckinWindowControllerTest::review_checkIsAlignedAgain()
{
    setReviewTimes({QStringLiteral("10:00")});
    controller().startDailyReviewTimer();
    loop().advance(10min);
    // The clock is put right by half a minute: the next check is early by that, the one after it is not.
    loop().setWallClock(loop().now().addSecs(-30));
    loop().advance(20min + 31s);
    QCOMPARE(loop().now().time(), QTime(10, 0, 1));
    QVERIFY(m_services->popups.isDailyReviewVisible());
}

void CheckinWindowControllerTest::review_afterSleep_isShownOnce()
{
    setReviewTimes({QStringLiteral("10:00"), QStringLiteral("11:00")});
    controller().startDailyReviewTimer();
    loop().advance(10min);
    loop().setWallClock(QDateTime(QDate(2026, 1, 22), QTime(12, 15)));
    loop().advance(61s);
    QCOMPARE(m_services->popups.takeCalls(), QStringList(QStringLiteral("show review")));
    loop().advance(10min);
    QCOMPARE(m_services->popups.takeCalls(), QStringList());
}

void CheckinWindowControllerTest::review_restartInTheMinute_showsNoSecond()
{
    setReviewTimes({QStringLiteral("09:30")});
    for (int i = 0; i < 3; ++i) {
        controller().startDailyReviewTimer();
        loop().advance(5s);
    }
    QCOMPARE(m_services->popups.takeCalls(), QStringList(QStringLiteral("show review")));
    controller().showDailyReview();
    QCOMPARE(m_services->popups.takeCalls(), QStringList(QStringLiteral("raise review")));
}

void CheckinWindowControllerTest::review_actions()
{
    QSignalSpy dailyTab(&m_services->notifications, &NotificationCenter::showDailyTab);
    controller().showDailyReview();
    m_services->popups.answer(DailyReviewAction::openDailyTab);
    QCOMPARE(dailyTab.size(), 1);

    controller().showDailyReview();
    m_services->popups.answer(DailyReviewAction::openInObsidian);
    QVERIFY(m_services->daily.isLoading());
    QCOMPARE(m_services->workspace.opened,
             QList<QUrl>({QUrl(QStringLiteral("obsidian://open?vault=Vault&file=Daily/2026/2026-01-22"))}));

    controller().showDailyReview();
    m_services->popups.answer(DailyReviewAction::dismissed);
    QVERIFY(!m_services->popups.isDailyReviewVisible());
    QCOMPARE(dailyTab.size(), 1);
    QCOMPARE(m_services->workspace.opened.size(), 1);
}

void CheckinWindowControllerTest::review_snooze_suppressesForAQuarterOfAnHour()
{
    setReviewTimes({QStringLiteral("09:30"), QStringLiteral("09:40"), QStringLiteral("09:46")});
    controller().startDailyReviewTimer();
    loop().advance(20s);
    m_services->popups.answer(DailyReviewAction::snooze);
    loop().advance(15min);
    m_services->popups.takeCalls();
    QVERIFY(!m_services->popups.isDailyReviewVisible());
    loop().advance(1min);
    QVERIFY(m_services->popups.isDailyReviewVisible());
}

} // namespace flitmark

QTEST_GUILESS_MAIN(flitmark::CheckinWindowControllerTest)
#include "CheckinWindowControllerTest.moc"

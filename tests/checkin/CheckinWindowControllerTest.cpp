// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <support/TestServices.h>

using namespace flitmark;
using namespace std::chrono_literals;
using Kind = CheckinResponse::Kind;

class CheckinWindowControllerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_services = std::make_unique<TestServices>();
        m_completed.clear();
        connect(&m_services->notifications, &NotificationCenter::pomodoroCompleted, &controller(),
                [this] { m_completed.append(loop().now().time()); });
    }
    void cleanup() { m_services.reset(); }

    void interval()
    {
        using Limits = std::numeric_limits<qint64>;
        // A timer can't wait longer than 24 days.
        for (const auto& [minutes, used] :
             {std::pair(qint64{20}, 20), std::pair(Limits::min(), 1), std::pair(Limits::max(), 34560)}) {
            m_services->setInterval(minutes);
            controller().startPomodoroTimer();
            QCOMPARE(printedLast(), QStringLiteral("Started Pomodoro timer (%1 min intervals)").arg(used));
            loop().advance(30s);
            QCOMPARE(controller().timeRemainingRatio(), 1 - 0.5 / used);
        }
        // Another interval moves the countdown; the check-in comes when it was to come.
        m_services->setInterval(1);
        loop().advance(31s);
        QCOMPARE(controller().timeRemainingRatio(), 0.0);
        QVERIFY(m_completed.isEmpty());
    }

    void pauseAndRestart()
    {
        controller().startPomodoroTimer();
        loop().advance(5min);
        controller().pauseTimer();
        controller().pauseTimer();
        loop().advance(20min);
        QCOMPARE(controller().timeRemainingRatio(), 0.75);
        QCOMPARE(m_completed, QList<QTime>());
        controller().resumeTimer();
        loop().advance(1s);
        QCOMPARE(controller().timeRemainingRatio(), 1199.0 / 1200);
        controller().pauseTimer();
        controller().restartTimer();
        QVERIFY(!controller().isPaused());
        QCOMPARE(controller().timeRemainingRatio(), 1.0);
    }

    void cadence_movesWithAStartOnly()
    {
        controller().startPomodoroTimer();
        loop().advance(7min);
        controller().pauseTimer();
        controller().startPomodoroTimer();
        loop().advance(1min);
        controller().pauseTimer();
        loop().advance(1min);
        controller().resumeTimer();
        loop().advance(6min);
        controller().restartTimer();
        loop().advance(13min);
        m_services->popups.answer(CheckinResponse{Kind::onTrack});
        QCOMPARE(controller().pomodoroStartTime().time(), QTime(9, 58));
        loop().advance(42min);
        QCOMPARE(m_completed, QList<QTime>({QTime(9, 57), QTime(10, 17), QTime(10, 37)}));
        QCOMPARE(m_services->popups.calls.mid(1), QStringList({"show check-in", "raise check-in"}));
        QCOMPARE(m_services->sound.played, QStringList({"Tink", "Tink"}));
    }

    void snooze_suppressesTheNextIntervalOnly()
    {
        controller().startPomodoroTimer();
        loop().advance(20min + 5s);
        m_services->popups.answer(CheckinResponse{Kind::snoozed});
        loop().advance(20min);
        QCOMPARE(printedLast(), "Still snoozed until 2026-01-22 09:10:05 +0000");
        loop().advance(20min);
        QCOMPARE(m_completed, QList<QTime>({QTime(9, 50), QTime(10, 30)}));
        QVERIFY(!controller().snoozedUntil());
    }

    void changedClock_movesTheRingButNotTheCheckin()
    {
        for (const auto& [seconds, ratio] : {std::pair(7200, 0.0), {-3600, 1.0}}) {
            controller().startPomodoroTimer();
            loop().advance(10min);
            loop().setWallClock(loop().now().addSecs(seconds));
            loop().advance(1s);
            QCOMPARE(controller().timeRemainingRatio(), ratio);
            m_completed.clear();
            loop().advance(9min + 58s);
            QCOMPARE(m_completed.size(), 0);
            loop().advance(1s);
            QCOMPARE(m_completed.size(), 1);
        }
    }

    void review_isShownOnceInItsMinute()
    {
        setReviewTimes({"09:30", "12:30", "18:00"});
        loop().advance(50s);
        QList<QTime> shown;
        controller().startDailyReviewTimer();
        controller().startDailyReviewTimer();
        QCOMPARE(loop().timerCount(), 1);
        loop().runQueued();
        // The clock is put right by half a minute: the next check is early by that, the one after it is not.
        loop().setWallClock(loop().now().addSecs(-30));
        for (int second = 0; second < 9 * 3600; ++second) {
            shown += QList<QTime>(std::exchange(m_services->popups.calls, {}).size(), loop().now().time());
            m_services->popups.closeDailyReview();
            loop().advance(1s);
        }
        QCOMPARE(shown, QList<QTime>({QTime(9, 30, 20), QTime(12, 30, 1), QTime(18, 0, 1)}));
    }

    void midnight_bringsTheNextDaysNote()
    {
        controller().startDailyReviewTimer();
        loop().setWallClock(QDateTime(QDate(2026, 1, 22), QTime(23, 59, 30)));
        writeTestFile(m_services->vault + "/Daily/2026/2026-01-23.md", "");
        loop().advance(61s);
        QVERIFY(m_services->daily.todayNote().exists);
    }

    void review_actions()
    {
        // The note loaded last is yesterday's.
        loop().setWallClock(loop().now().addDays(1));
        for (const auto action : {DailyReviewAction::openDailyTab, DailyReviewAction::openInObsidian,
                                  DailyReviewAction::dismissed, DailyReviewAction::snooze}) {
            controller().showDailyReview();
            controller().showDailyReview();
            m_services->popups.answer(action);
            QVERIFY(!m_services->popups.isDailyReviewVisible());
        }
        QCOMPARE(m_services->popups.calls.count("raise review"), 4);
        loop().runQueued();
        QCOMPARE(m_services->workspace.opened.size(), 1);
        QVERIFY(m_services->workspace.opened.first().toString().endsWith("&file=Daily/2026/2026-01-23"));
        setReviewTimes({"09:40"});
        controller().startDailyReviewTimer();
        loop().advance(20min);
        QVERIFY(!m_services->popups.isDailyReviewVisible());
    }

private:
    CheckinWindowController& controller() { return m_services->controller; }
    ManualRunLoop& loop() { return m_services->loop; }
    QString printedLast()
    {
        const QStringList lines = m_services->output->lines();
        return lines.isEmpty() ? QString() : lines.last().section("CheckinWindowController: ", 1);
    }
    void setReviewTimes(const QStringList& times)
    {
        m_services->config.update([&times](AppConfig& config) { config.dailyReviewTimes = times; });
    }

    std::unique_ptr<TestServices> m_services;
    QList<QTime> m_completed;
};

QTEST_GUILESS_MAIN(CheckinWindowControllerTest)
#include "CheckinWindowControllerTest.moc"

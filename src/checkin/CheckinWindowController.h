// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <checkin/CheckinResponse.h>
#include <checkin/DailyReviewAction.h>
#include <checkin/DailyReviewSchedule.h>
#include <checkin/PomodoroTimer.h>
#include <platform/RunLoop.h>

#include <QObject>

#include <memory>

namespace flitmark {

class ConfigManager;
class DailyNoteManager;
class NotificationCenter;
class PopupPresenter;
class SignalManager;
class SystemSound;

/// Runs the Pomodoro timer and the check-ins at the end of its intervals, and reminds of the daily review.
///
/// The ends of intervals keep the beat that `startPomodoroTimer` set; resuming, restarting and answering move the
/// countdown alone. The length of a Pomodoro is read from the coach's configuration wherever it is needed; only the
/// beat stays as it was set. Main thread only.
class CheckinWindowController final : public QObject
{
    Q_OBJECT

public:
    /// What the controller works with; all of it must outlive it.
    struct Services
    {
        const ConfigManager& configManager;
        SignalManager& signalManager;
        DailyNoteManager& dailyNoteManager;
        RunLoop& runLoop;
        NotificationCenter& notificationCenter;
        SystemSound& sound;
        PopupPresenter& popups;
    };

    /// No timer runs yet.
    explicit CheckinWindowController(const Services& services);
    Q_DISABLE_COPY_MOVE(CheckinWindowController)

    /// Whether a Pomodoro runs or is paused: its timers exist.
    bool isRunning() const { return m_checkinTimer != nullptr; }
    /// Stays as it is when the Pomodoro is stopped.
    bool isPaused() const { return m_pomodoro.isPaused(); }
    /// What remains of the interval, 0.0 to 1.0, as of the last second in which a Pomodoro ran.
    double timeRemainingRatio() const { return m_pomodoro.timeRemainingRatio(); }
    /// The same in minutes, counted up to whole ones.
    std::chrono::minutes minutesRemaining() const;
    const QDateTime& pomodoroStartTime() const { return m_pomodoro.pomodoroStartTime(); }
    const std::optional<QDateTime>& snoozedUntil() const { return m_pomodoro.snoozedUntil(); }

    /// Starts a fresh Pomodoro, whatever ran before. What remains is published a second later.
    void startPomodoroTimer();
    /// Ends the Pomodoro; all values stay as they are.
    void stopPomodoroTimer();
    /// Stops countdown and check-ins until resumed, restarted or started anew.
    void pauseTimer();
    /// Counts down a full interval again.
    void resumeTimer();
    /// As `resumeTimer`, and publishes the full interval at once.
    void restartTimer();

    /// Computes and announces what remains.
    void updateTimeRemaining();
    /// Announces a finished Pomodoro and queues the popup, unless it is outside the check-in window or snoozed.
    void checkAndShowCheckin();
    /// Opens the check-in popup, or raises the one that is open, on the note as it is on disk.
    void showCheckin();
    /// Closes the popup and does what the answer asks for.
    void handleCheckinResponse(const CheckinResponse& response);

    /// Starts the minute checks anew, the first at once. They run shortly after each full minute, and load the note of
    /// a day that has begun.
    void startDailyReviewTimer();
    /// Queues the reminder if one is due now, or was while no check could run.
    void checkDailyReviewSchedule();
    /// Opens the reminder, or raises the one that is open.
    void showDailyReview();
    /// Closes the reminder and does what the answer asks for.
    void handleDailyReviewAction(DailyReviewAction action);

Q_SIGNALS:
    /// `isRunning()` or `isPaused()` changed.
    void stateChanged();
    void timeRemainingRatioChanged(double ratio);

private:
    template<typename Change>
    void changePomodoro(Change change);
    void finishInterval();
    void scheduleDailyReviewCheck();
    std::chrono::minutes interval() const;

    Services m_services;
    PomodoroTimer m_pomodoro;
    DailyReviewSchedule m_dailyReview;
    std::unique_ptr<RunLoop::Timer> m_checkinTimer;
    std::unique_ptr<RunLoop::Timer> m_countdownTimer;
    std::unique_ptr<RunLoop::Timer> m_dailyReviewTimer;
};

} // namespace flitmark

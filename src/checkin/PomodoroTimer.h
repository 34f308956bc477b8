// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDateTime>

#include <chrono>
#include <optional>

namespace flitmark {

/// The length of a Pomodoro configured as `minutes`, which anyone may have written by hand: never less than a minute,
/// and never more than the 24 days a timer can wait.
std::chrono::minutes pomodoroInterval(qint64 minutes);

/// The state of the Pomodoro being counted down, and of a snoozed check-in. Told the time, it keeps none itself.
///
/// Two clocks are at work. What remains is computed from the time of day, so after a sleep of two hours it is nothing.
/// The ends of intervals come from a timer that stands still while the computer sleeps: the check-in follows when the
/// rest of the interval has been spent awake. So sleep earns no tomato, and nobody is asked about work done in it; the
/// ring is empty meanwhile, for one interval at most.
class PomodoroTimer final
{
public:
    /// What is to happen at the end of an interval.
    enum class Checkin { Due, OutsideWindow, Snoozed };
    enum class Window { Inside, Outside };

    explicit PomodoroTimer(QDateTime now);

    /// The beginning of the Pomodoro now counted down.
    const QDateTime& pomodoroStartTime() const { return m_pomodoroStartTime; }
    bool isPaused() const { return m_isPaused; }
    /// What remains, 0.0 to 1.0, as of the last tick or restart.
    double timeRemainingRatio() const { return m_timeRemainingRatio; }
    /// No check-in before then.
    const std::optional<QDateTime>& snoozedUntil() const { return m_snoozedUntil; }

    /// Begins a full interval, not paused. The ratio stays until the next tick.
    void start(const QDateTime& now);
    void pause() { m_isPaused = true; }
    /// As `start`, and what remains is everything at once.
    void restart(const QDateTime& now);
    /// Begins the countdown anew and leaves the pause as it is.
    void startOver(const QDateTime& now) { m_pomodoroStartTime = now; }

    /// Computes what remains of an interval, unless paused.
    void tick(const QDateTime& now, std::chrono::milliseconds interval);
    /// Whether a check-in is due at `now`. A snooze that is over ends, unless the window comes first.
    Checkin checkin(const QDateTime& now, Window window);
    /// Suppresses check-ins for `duration`. Returns the end of the snooze.
    QDateTime snooze(const QDateTime& now, std::chrono::milliseconds duration);

private:
    QDateTime m_pomodoroStartTime;
    bool m_isPaused = false;
    double m_timeRemainingRatio = 1.0;
    std::optional<QDateTime> m_snoozedUntil;
};

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <checkin/PomodoroTimer.h>

#include <algorithm>
#include <utility>

namespace flitmark {

std::chrono::minutes pomodoroInterval(qint64 minutes)
{
    constexpr qint64 longest = std::chrono::minutes(std::chrono::days(24)).count();
    return std::chrono::minutes(std::clamp(minutes, qint64{1}, longest));
}

PomodoroTimer::PomodoroTimer(QDateTime now)
    : m_pomodoroStartTime(std::move(now))
{
}

void PomodoroTimer::start(const QDateTime& now)
{
    m_pomodoroStartTime = now;
    m_isPaused = false;
}

void PomodoroTimer::restart(const QDateTime& now)
{
    start(now);
    m_timeRemainingRatio = 1.0;
}

void PomodoroTimer::tick(const QDateTime& now, std::chrono::milliseconds interval)
{
    if (m_isPaused) {
        return;
    }
    const auto total = static_cast<double>(interval.count());
    const auto elapsed = static_cast<double>(m_pomodoroStartTime.msecsTo(now));
    // More than everything would remain after the clock was set back.
    m_timeRemainingRatio = std::clamp((total - elapsed) / total, 0.0, 1.0);
}

PomodoroTimer::Checkin PomodoroTimer::checkin(const QDateTime& now, Window window)
{
    if (window == Window::Outside) {
        return Checkin::OutsideWindow;
    }
    if (m_snoozedUntil && now < *m_snoozedUntil) {
        return Checkin::Snoozed;
    }
    m_snoozedUntil.reset();
    return Checkin::Due;
}

QDateTime PomodoroTimer::snooze(const QDateTime& now, std::chrono::milliseconds duration)
{
    m_snoozedUntil = now.addMSecs(duration.count());
    return *m_snoozedUntil;
}

} // namespace flitmark

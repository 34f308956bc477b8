// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <checkin/DailyReviewSchedule.h>
#include <config/AppConfig.h>
#include <core/Text.h>
#include <core/TimeOfDay.h>

#include <algorithm>
#include <utility>

namespace flitmark {

namespace {

constexpr qint64 snoozeSeconds = qint64(15) * 60;
constexpr int longestWayBack = 4 * 60;

int minuteAt(const QDateTime& time)
{
    return time.time().hour() * 60 + time.time().minute();
}

/// The first minute of `now`'s day that no check has covered yet, counted from midnight; the current one at the latest.
int firstOpenMinute(const std::optional<QDateTime>& lastRun, const QDateTime& now)
{
    const int current = minuteAt(now);
    // Without an earlier check nothing was missed, and a clock that was set back makes its minutes no second time.
    if (!lastRun || *lastRun > now) {
        return current;
    }
    const int first = lastRun->date() < now.date() ? 0 : minuteAt(*lastRun) + 1;
    return std::min(std::max(first, current - longestWayBack), current);
}

} // namespace

bool DailyReviewSchedule::check(const QDateTime& now, const AppConfig& config)
{
    const int firstMinute = firstOpenMinute(m_lastRun, now);
    m_lastRun = now;
    if (!config.dailyReviewEnabled || (m_snoozedUntil && now < *m_snoozedUntil)) {
        return false;
    }
    const QDateTime notBefore = std::exchange(m_snoozedUntil, std::nullopt).value_or(QDateTime());
    if (m_firedDay != now.date()) {
        m_firedDay = now.date();
        m_firedTimes.clear();
    }
    bool isDue = false;
    for (const QString& entry : config.dailyReviewTimes) {
        const QString time = trimSpaces(entry).toString();
        if (isOpen(time, now, firstMinute, notBefore)) {
            m_firedTimes.insert(time);
            isDue = true;
        }
    }
    return isDue;
}

/// Whether `time` names a minute from `firstMinute` to `now` that no reminder was due for yet.
bool DailyReviewSchedule::isOpen(const QString& time, const QDateTime& now, int firstMinute,
                                 const QDateTime& notBefore) const
{
    const std::optional<int> minute = minuteOfDay(time);
    if (!minute || *minute < firstMinute || *minute > minuteAt(now) || m_firedTimes.contains(time)) {
        return false;
    }
    const QDateTime begin(now.date(), QTime(*minute / 60, *minute % 60));
    return *minute == minuteAt(now) || !notBefore.isValid() || begin >= notBefore;
}

void DailyReviewSchedule::snooze(const QDateTime& now)
{
    m_snoozedUntil = now.addSecs(snoozeSeconds);
}

} // namespace flitmark

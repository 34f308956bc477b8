// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDate>
#include <QDateTime>
#include <QSet>
#include <QString>

#include <optional>

namespace flitmark {

struct AppConfig;

/// Decides when the user is to be reminded of the daily review. Told the time and the configuration once a minute, it
/// keeps what it has reminded of, in memory only.
///
/// A check that comes late, after a sleep or on a busy computer, also takes the minutes of the day in which none could
/// run, up to four hours back. A minute that passed while snoozed, or while reviews were off, has passed.
class DailyReviewSchedule final
{
public:
    /// Whether a reminder is due at `now`: once a day for each of the configured times.
    bool check(const QDateTime& now, const AppConfig& config);

    /// Suppresses reminders for a quarter of an hour.
    void snooze(const QDateTime& now);
    const std::optional<QDateTime>& snoozedUntil() const { return m_snoozedUntil; }

private:
    bool isOpen(const QString& time, const QDateTime& now, int firstMinute, const QDateTime& notBefore) const;

    /// When `check` last ran, whatever it found.
    std::optional<QDateTime> m_lastRun;
    std::optional<QDateTime> m_snoozedUntil;
    /// The day of `m_firedTimes`.
    QDate m_firedDay;
    /// The configured times, as written, that a reminder was due for.
    QSet<QString> m_firedTimes;
};

} // namespace flitmark

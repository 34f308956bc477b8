// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Text.h>
#include <core/TimeOfDay.h>

namespace flitmark {

namespace {

struct HoursAndMinutes
{
    qint64 hours;
    qint64 minutes;
};

std::optional<HoursAndMinutes> read(QStringView time)
{
    const QList<QStringView> pieces = time.split(u':', Qt::SkipEmptyParts);
    if (pieces.size() != 2) {
        return std::nullopt;
    }
    const std::optional<qint64> hours = parseInteger(pieces[0]);
    const std::optional<qint64> minutes = parseInteger(pieces[1]);
    return hours && minutes ? std::optional(HoursAndMinutes{*hours, *minutes}) : std::nullopt;
}

} // namespace

std::optional<qint64> minutesFromMidnight(QStringView time)
{
    const std::optional<HoursAndMinutes> parts = read(time);
    qint64 sum = 0;
    if (!parts || __builtin_mul_overflow(parts->hours, 60, &sum) || __builtin_add_overflow(sum, parts->minutes, &sum)) {
        return std::nullopt;
    }
    return sum;
}

std::optional<int> minuteOfDay(QStringView time)
{
    const std::optional<HoursAndMinutes> parts = read(time);
    if (!parts || parts->hours < 0 || parts->hours > 23 || parts->minutes < 0 || parts->minutes > 59) {
        return std::nullopt;
    }
    return static_cast<int>(parts->hours * 60 + parts->minutes);
}

} // namespace flitmark

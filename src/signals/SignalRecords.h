// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QJsonObject>
#include <QString>

#include <tl/expected.hpp>

namespace flitmark {

// The records exchanged with the coach. Decoding is strict: a key that is missing or of the wrong type is an error, a
// sentence that names the key; keys that are not ours are passed over.

/// What the user works on now, for the coach to read.
struct DailyFocusSignal
{
    QString focus;
    /// "active" in all that we write.
    QString status;
    /// When it was written: ISO 8601, in UTC.
    QString timestamp;
    qint64 pomodoroCount = 0;

    QJsonObject toJson() const;
    static tl::expected<DailyFocusSignal, QString> fromJson(const QJsonObject& object);
    bool operator==(const DailyFocusSignal&) const = default;
};

/// The coach's word that the user does something else than planned.
struct CoachAlert
{
    QString alertId;
    /// In the coach's own way of writing a time.
    QString triggeredAt;
    QString planned;
    QString actual;
    qint64 misalignmentCount = 0;
    /// "pending" while it waits for an answer; "acknowledged" after it.
    QString status;

    QJsonObject toJson() const;
    static tl::expected<CoachAlert, QString> fromJson(const QJsonObject& object);
    bool operator==(const CoachAlert&) const = default;
};

/// The user's answer to an alert.
struct UserResponse
{
    QString alertId;
    /// "intentional_pivot", "refocusing" or "snooze".
    QString response;
    /// Free text; may be empty.
    QString note;
    /// When it was written: ISO 8601, in UTC.
    QString timestamp;

    QJsonObject toJson() const;
    static tl::expected<UserResponse, QString> fromJson(const QJsonObject& object);
    bool operator==(const UserResponse&) const = default;
};

/// The bytes of an alert file with the status "acknowledged". Every other key keeps its value; what is no object
/// becomes one with the status alone.
tl::expected<QByteArray, QString> acknowledgedAlert(const QByteArray& bytes);

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Json.h>
#include <signals/SignalRecords.h>

namespace flitmark {

namespace {

template<typename Record>
tl::expected<Record, QString> checked(Record record, const QString& error)
{
    return error.isEmpty() ? tl::expected<Record, QString>(std::move(record)) : tl::unexpected(error);
}

} // namespace

QJsonObject DailyFocusSignal::toJson() const
{
    return {
        {QStringLiteral("focus"), focus},
        {QStringLiteral("status"), status},
        {QStringLiteral("timestamp"), timestamp},
        {QStringLiteral("pomodoro_count"), pomodoroCount},
    };
}

tl::expected<DailyFocusSignal, QString> DailyFocusSignal::fromJson(const QJsonObject& object)
{
    QString error;
    JsonFields fields(object, QString(), error);
    DailyFocusSignal signal;
    signal.focus = fields.required<QString>(QStringLiteral("focus"));
    signal.status = fields.required<QString>(QStringLiteral("status"));
    signal.timestamp = fields.required<QString>(QStringLiteral("timestamp"));
    signal.pomodoroCount = fields.required<qint64>(QStringLiteral("pomodoro_count"));
    return checked(std::move(signal), error);
}

QJsonObject CoachAlert::toJson() const
{
    return {
        {QStringLiteral("alert_id"), alertId},
        {QStringLiteral("triggered_at"), triggeredAt},
        {QStringLiteral("planned"), planned},
        {QStringLiteral("actual"), actual},
        {QStringLiteral("misalignment_count"), misalignmentCount},
        {QStringLiteral("status"), status},
    };
}

tl::expected<CoachAlert, QString> CoachAlert::fromJson(const QJsonObject& object)
{
    QString error;
    JsonFields fields(object, QString(), error);
    CoachAlert alert;
    alert.alertId = fields.required<QString>(QStringLiteral("alert_id"));
    alert.triggeredAt = fields.required<QString>(QStringLiteral("triggered_at"));
    alert.planned = fields.required<QString>(QStringLiteral("planned"));
    alert.actual = fields.required<QString>(QStringLiteral("actual"));
    alert.misalignmentCount = fields.required<qint64>(QStringLiteral("misalignment_count"));
    alert.status = fields.required<QString>(QStringLiteral("status"));
    return checked(std::move(alert), error);
}

QJsonObject UserResponse::toJson() const
{
    return {
        {QStringLiteral("alert_id"), alertId},
        {QStringLiteral("response"), response},
        {QStringLiteral("note"), note},
        {QStringLiteral("timestamp"), timestamp},
    };
}

tl::expected<UserResponse, QString> UserResponse::fromJson(const QJsonObject& object)
{
    QString error;
    JsonFields fields(object, QString(), error);
    UserResponse answer;
    answer.alertId = fields.required<QString>(QStringLiteral("alert_id"));
    answer.response = fields.required<QString>(QStringLiteral("response"));
    answer.note = fields.required<QString>(QStringLiteral("note"));
    answer.timestamp = fields.required<QString>(QStringLiteral("timestamp"));
    return checked(std::move(answer), error);
}

tl::expected<QByteArray, QString> acknowledgedAlert(const QByteArray& bytes)
{
    return parseJson(bytes).map([](const QJsonValue& value) {
        QJsonObject alert = value.toObject();
        alert.insert(QStringLiteral("status"), QStringLiteral("acknowledged"));
        return encodeJson(alert);
    });
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <config/VaultGuess.h>
#include <core/TimeOfDay.h>
#include <platform/Directories.h>
#include <platform/Json.h>
#include <signals/CoachConfig.h>

#include <optional>

namespace flitmark {

namespace {

DataSources readDataSources(JsonFields& parent, const QJsonObject& object, QString& error)
{
    JsonFields fields(object, parent.pathOf(QStringLiteral("data_sources")), error);
    DataSources sources;
    sources.piecesSummaries = fields.required<bool>(QStringLiteral("pieces_summaries"));
    sources.manualCheckins = fields.required<bool>(QStringLiteral("manual_checkins"));
    sources.fileActivity = fields.required<bool>(QStringLiteral("file_activity"));
    sources.gitCommits = fields.required<bool>(QStringLiteral("git_commits"));
    sources.calendarCurrent = fields.required<bool>(QStringLiteral("calendar_current"));
    return sources;
}

} // namespace

CoachConfig CoachConfig::makeDefault(const Directories& directories)
{
    CoachConfig config;
    config.vaultPath = inferDefaultVaultPath(directories.home);
    return config;
}

QJsonObject CoachConfig::toJson() const
{
    const QJsonObject sources = {
        {QStringLiteral("pieces_summaries"), dataSources.piecesSummaries},
        {QStringLiteral("manual_checkins"), dataSources.manualCheckins},
        {QStringLiteral("file_activity"), dataSources.fileActivity},
        {QStringLiteral("git_commits"), dataSources.gitCommits},
        {QStringLiteral("calendar_current"), dataSources.calendarCurrent},
    };
    return {
        {QStringLiteral("data_sources"), sources},
        {QStringLiteral("detection_mode"), detectionMode},
        {QStringLiteral("vault_path"), vaultPath},
        {QStringLiteral("daily_note_pattern"), dailyNotePattern},
        {QStringLiteral("pomodoro_interval_minutes"), pomodoroIntervalMinutes},
        {QStringLiteral("checkin_start_time"), checkinStartTime},
        {QStringLiteral("checkin_end_time"), checkinEndTime},
        {QStringLiteral("misalignment_threshold"), misalignmentThreshold},
        {QStringLiteral("coach_style"), coachStyle},
        {QStringLiteral("coach_prompt"), coachPrompt},
    };
}

tl::expected<CoachConfig, QString> CoachConfig::fromJson(const QJsonObject& object, const Directories& directories)
{
    QString error;
    JsonFields fields(object, QString(), error);
    CoachConfig config;
    const auto text = [&fields](const QString& key, QString& value) {
        value = fields.optional<QString>(key).value_or(value);
    };
    const auto number = [&fields](const QString& key, qint64& value) {
        value = fields.optional<qint64>(key).value_or(value);
    };
    if (const auto sources = fields.optional<QJsonObject>(QStringLiteral("data_sources"))) {
        config.dataSources = readDataSources(fields, *sources, error);
    }
    text(QStringLiteral("detection_mode"), config.detectionMode);
    text(QStringLiteral("daily_note_pattern"), config.dailyNotePattern);
    number(QStringLiteral("pomodoro_interval_minutes"), config.pomodoroIntervalMinutes);
    text(QStringLiteral("checkin_start_time"), config.checkinStartTime);
    text(QStringLiteral("checkin_end_time"), config.checkinEndTime);
    number(QStringLiteral("misalignment_threshold"), config.misalignmentThreshold);
    text(QStringLiteral("coach_style"), config.coachStyle);
    text(QStringLiteral("coach_prompt"), config.coachPrompt);
    const auto vaultPath = fields.optional<QString>(QStringLiteral("vault_path"));
    config.vaultPath = vaultPath ? *vaultPath : inferDefaultVaultPath(directories.home);
    return error.isEmpty() ? tl::expected<CoachConfig, QString>(std::move(config)) : tl::unexpected(error);
}

bool isWithinWindow(const QString& start, const QString& end, int minuteOfDay)
{
    const auto first = minutesFromMidnight(start);
    const auto last = minutesFromMidnight(end);
    return !first || !last || (*first <= minuteOfDay && minuteOfDay <= *last);
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QJsonObject>
#include <QString>

#include <tl/expected.hpp>

namespace flitmark {

struct Directories;

/// What the coach may look at.
struct DataSources
{
    bool piecesSummaries = true;
    bool manualCheckins = true;
    bool fileActivity = false;
    bool gitCommits = false;
    bool calendarCurrent = false;

    bool operator==(const DataSources&) const = default;
};

/// How the coach and the Pomodoro timer work: shared with the coach through a file that both may write.
struct CoachConfig
{
    DataSources dataSources;
    /// "pieces", "manual" or "hybrid".
    QString detectionMode = QStringLiteral("pieces");
    QString vaultPath;
    /// Where the daily notes are, for the coach: "{year}" and "{date}" stand for themselves.
    QString dailyNotePattern = QStringLiteral("Daily/{year}/{date}.md");
    qint64 pomodoroIntervalMinutes = 20;
    /// "HH:mm", 24 hours, local time; so is the end.
    QString checkinStartTime = QStringLiteral("07:30");
    QString checkinEndTime = QStringLiteral("18:00");
    qint64 misalignmentThreshold = 2;
    QString coachStyle = QStringLiteral("supportive");
    QString coachPrompt = QStringLiteral(
        "You are my supportive productivity coach. Keep feedback short, calm, and kind. Ask one question "
        "that helps clarify the next step. If I am off focus, gently redirect me.");

    /// The defaults, with a vault looked for below the home folder.
    static CoachConfig makeDefault(const Directories& directories);

    QJsonObject toJson() const;
    /// The configuration in `object`; a key that is absent or null takes its default. One of the wrong type, or data
    /// sources without one of their keys, make the whole an error: a sentence that names the key.
    static tl::expected<CoachConfig, QString> fromJson(const QJsonObject& object, const Directories& directories);

    bool operator==(const CoachConfig&) const = default;
};

/// Whether `minuteOfDay` (0 to 1439) lies between the times `start` and `end`, both of them inside. Times that can't be
/// read, or whose minutes fit no 64-bit number, hold nobody back: the answer is yes.
bool isWithinWindow(const QString& start, const QString& end, int minuteOfDay);

} // namespace flitmark

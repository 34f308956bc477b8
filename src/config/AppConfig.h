// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <config/ColorPalette.h>

#include <QJsonObject>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QUuid>

#include <tl/expected.hpp>

namespace flitmark {

struct Directories;

/// A text that a click adds to a note.
struct QuickTag
{
    QUuid id;
    /// Normally one emoji.
    QString icon;
    QString appendText;
    /// Selected by itself when a new note starts.
    bool isDefault = false;

    bool operator==(const QuickTag&) const = default;
};

/// The four quick tags of a new configuration, each with an id of its own, none of them default.
QList<QuickTag> defaultQuickTags();

/// How notes of one type are filed.
struct NoteTypeConfig
{
    /// Relative to the vault.
    QString subfolder;
    QStringList tags;
    /// Put before the heading; may be empty.
    QString prefix;

    bool operator==(const NoteTypeConfig&) const = default;
};

/// The type of what is captured in the panel.
inline QString fleetingNoteType()
{
    return QStringLiteral("Fleeting");
}

/// Every setting of the user. A plain record: it checks none of its values.
struct AppConfig
{
    QString vaultPath;
    QString saveSubfolder;
    QStringList defaultTags;
    bool playSoundOnSave = true;
    /// "desktop", "normal" or "floating".
    QString windowMode;
    /// 0 to 1.
    double windowOpacity = 0.95;
    /// By the name of the note type.
    QMap<QString, NoteTypeConfig> noteTypes;
    QList<QuickTag> quickTags;
    bool hasCompletedSetup = false;
    /// In points.
    double panelWidth = 440;
    double panelHeight = 560;
    ColorPalette colorPalette = ColorPalette::obsidianNative;
    bool pomodoroEnabled = true;
    bool coachEnabled = true;
    qint64 pomodoroIntervalMinutes = 20;
    /// "HH:mm", 24 hours, local time; so are the times below.
    QString checkinStartTime;
    QString checkinEndTime;
    /// "pieces", "manual" or "hybrid".
    QString detectionMode;
    bool dailyReviewEnabled = true;
    QStringList dailyReviewTimes;

    /// What a new user starts with. Looks for a vault below the home folder and makes new quick-tag ids at every call.
    static AppConfig makeDefault(const Directories& directories);

    /// All twenty settings, under the keys of the configuration file.
    QJsonObject toJson() const;
    /// The settings in `object`. One that is absent or null takes its default; the panel's size is 380 by 480 then, the
    /// size that files without it come from. A value of the wrong type, or a nested record without one of its keys,
    /// makes the whole record an error: a sentence that names the key.
    static tl::expected<AppConfig, QString> fromJson(const QJsonObject& object, const Directories& directories);

    bool operator==(const AppConfig&) const = default;
};

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <daily/DailyNoteSettings.h>

#include <QByteArray>
#include <QDate>
#include <QHash>
#include <QString>
#include <QStringList>

namespace flitmark {

/// Where a day's note is, or would be.
struct DailyNotePlace
{
    /// The note's absolute path; the fixed place's where no note was found.
    QString path;
    QString pathInVault;
    bool exists = false;
    /// By which rule the note was found, or a new one would be made.
    DailyNoteRule rule = DailyNoteRule::FixedPlace;
    /// The places in the vault that were looked at, the fixed one first.
    QStringList places;
    /// Where in the vault a new note would be made.
    QString newNote;
};

/// Finds a day's note in a vault: at the fixed place, else where Obsidian's settings of the vault put it. Reads these
/// settings and follows links; writes nothing. What is wrong with a settings file is printed once, and again when the
/// file has changed. One thread at a time.
class DailyNoteLocator final
{
public:
    /// The note of `date` in the vault at `vault`, an absolute path. `languages` are the desktop's, the most wanted one
    /// first: a name that is written by the date's month or weekday is looked for in these, in English, and in any
    /// other if it then fits one file only. The note lies in the vault, also when links lead to it; at the fixed place,
    /// a link may lead elsewhere.
    DailyNotePlace locate(const QString& vault, QDate date, const QStringList& languages);

private:
    void findBySettings(const QString& vault, QDate date, const QStringList& languages, DailyNotePlace& place);
    void reportOnce(const QString& file, const QString& problem);

    /// What was printed of a file, with the state that it was in.
    QHash<QString, QByteArray> m_reported;
};

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <config/AppConfig.h>

#include <QDateTime>
#include <QString>
#include <QStringView>

namespace flitmark {

/// The first `count` characters of `text` as a reader counts them (a letter with its marks is one, and so is an emoji
/// made of several), all of it when it is shorter.
QStringView firstCharacters(QStringView text, qsizetype count);

/// What a note's file name takes from its title: the title itself, or the first line of `content` that is neither blank
/// nor begins with "#", trimmed. Empty when there is none.
QString noteTitleSource(const QString& title, const QString& content);

/// `titleSource` as a part of a file name: lower case, letters, marks, digits, "-" and "_" only, at most eight words
/// and 50 characters, and short enough for the name of a file.
QString noteSlug(const QString& titleSource);

/// The name of the file of a note with this title source, saved at `time`: by the local time, to the second.
QString noteFileName(const QDateTime& time, const QString& titleSource);

/// The whole text of the file of a note saved at `time`: front matter, heading if there is one, and body.
QString composeNote(const AppConfig& config, const QDateTime& time, const QString& title, const QString& content,
                    const QString& noteType);

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDateTime>
#include <QList>
#include <QString>

namespace flitmark {

/// One of the recent notes. Identified by its absolute path.
struct NoteFile
{
    QString id;
    QString title;
    /// At most 100 characters.
    QString preview;
    QDateTime modificationDate;

    QString url() const { return id; }
};

/// The newest twenty notes directly in the folder at `folder`, an absolute path; newest first. Empty when there is no
/// such folder; a folder that can't be listed prints a line. Reads no more of a note than its title and preview need.
QList<NoteFile> listRecentNotes(const QString& folder);

} // namespace flitmark

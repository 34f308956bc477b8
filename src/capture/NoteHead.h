// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <optional>

namespace flitmark {

/// What the lists of notes show of a note's text.
struct NoteHead
{
    /// The text of its first heading of the first level, if it has one.
    std::optional<QString> title;
    /// Its first line that is neither empty, a heading nor front matter, uncut; empty when there is none.
    QString previewLine;
};

// Both are for ordinary files, named by absolute paths: a pipe in a note's place would be waited for without end.

/// Reads the note at `path` until title and preview are found. A file that can't be read has neither.
NoteHead readNoteHead(const QString& path);

/// Reads the note at `path` until its preview is found: the beginning of it is enough for most. Empty when there is
/// none or the file can't be read.
QString readPreviewLine(const QString& path);

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QString>

namespace flitmark {

/// A part of a shown text that looks or acts differently.
struct TextSpan
{
    enum class Kind { Strong, Emphasis, Struck, Highlight, Code, Tag, NoteLink, WebLink };

    Kind kind;
    qsizetype start;
    qsizetype length;
    /// Of a link: the note as the link names it, or the address, of a scheme that is safe to open.
    QString target = {};

    bool operator==(const TextSpan&) const = default;
};

/// A line of a note as a reader sees it.
struct InlineText
{
    QString text;
    /// By their start. They may lie in each other.
    QList<TextSpan> spans;
};

/// Renders a line of Markdown, as Obsidian writes it: links by their text, emphasis without its marks, comments not at
/// all. In time linear in the length of `line`.
InlineText renderInline(QStringView line);

} // namespace flitmark

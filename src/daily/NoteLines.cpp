// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/NoteLines.h>

#include <QString>

#include <algorithm>

namespace flitmark {

bool containsLowerCased(QStringView text, QStringView word)
{
    const bool isAscii = std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
    return isAscii ? text.contains(word, Qt::CaseInsensitive) : text.toString().toLower().contains(word);
}

bool containsTaskMarker(QStringView line)
{
    for (qsizetype at = line.indexOf(u"- ["); at >= 0; at = line.indexOf(u"- [", at + 1)) {
        const QStringView rest = line.sliced(at + 3);
        if (rest.startsWith(u" ]") || rest.startsWith(u"x]") || rest.startsWith(u"X]")) {
            return true;
        }
    }
    return false;
}

std::optional<QStringView> sectionHeading(QStringView trimmed)
{
    return trimmed.startsWith(u"## ") ? std::optional(trimmed.sliced(3)) : std::nullopt;
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/NoteLines.h>

#include <QString>

#include <algorithm>

namespace flitmark {

LowerCased::LowerCased(QStringView text)
{
    const bool isAscii = std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
    if (!isAscii) {
        const QString lower = text.toString().toLower();
        m_text.append(lower.constData(), lower.size());
        return;
    }
    // Nearly every heading: no need for the tables of Unicode, nor for memory.
    m_text.resize(text.size());
    std::transform(text.begin(), text.end(), m_text.begin(),
                   [](QChar c) { return c >= u'A' && c <= u'Z' ? QChar(char16_t(c.unicode() | 0x20U)) : c; });
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

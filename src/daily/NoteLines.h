// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QStringView>
#include <QVarLengthArray>

#include <optional>

namespace flitmark {

/// The mark of a finished Pomodoro.
inline constexpr QStringView tomato = u"🍅";

/// Where in `line` tomatoes stand, a character being what a person sees as one: not those that are a part of another.
QList<qsizetype> tomatoesIn(QStringView line);

/// A text in lower case, for looking up several words in it.
class LowerCased
{
public:
    explicit LowerCased(QStringView text);

    bool contains(QStringView word) const { return QStringView(m_text).contains(word); }

private:
    QVarLengthArray<QChar, 128> m_text;
};

/// True when `line` contains a check box: an open or a ticked one.
bool containsTaskMarker(QStringView line);

/// The name of the section that `trimmed` begins, or nothing when it is no heading of the second level.
std::optional<QStringView> sectionHeading(QStringView trimmed);

/// Knows which lines of a note are hidden: the marks "---", and all that stands between the first and the second of
/// them, the third and the fourth, and so on.
class FrontMatter
{
public:
    /// Takes the next line, trimmed; true when it is hidden.
    bool hides(QStringView trimmed)
    {
        if (trimmed == u"---") {
            m_isInside = !m_isInside;
            return true;
        }
        return m_isInside;
    }

private:
    bool m_isInside = false;
};

} // namespace flitmark

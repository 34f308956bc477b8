// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/NoteText.h>
#include <core/Text.h>

#include <QTextBoundaryFinder>

#include <algorithm>

namespace flitmark {

namespace {

constexpr int maximumWords = 8;
constexpr qsizetype maximumSlugCharacters = 50;
// A file's name may have 255 bytes: the time takes 18, "--" two, ".md" three.
constexpr qsizetype maximumSlugBytes = 230;

bool isKeptInSlug(char32_t c)
{
    return QChar::isLetterOrNumber(c) || QChar::isMark(c) || c == U' ' || c == U'-' || c == U'_';
}

/// The longest beginning of `text` with at most `maximumBytes` in UTF-8 that cuts no character in two; where one
/// character alone is longer, one that cuts no code point in two.
QStringView firstBytes(QStringView text, qsizetype maximumBytes)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text.data(), text.size());
    qsizetype bytes = 0;
    qsizetype end = 0;
    for (qsizetype next = finder.toNextBoundary(); next > 0; next = finder.toNextBoundary()) {
        bytes += text.sliced(end, next - end).toUtf8().size();
        if (bytes > maximumBytes) {
            break;
        }
        end = next;
    }
    if (end > 0 || text.isEmpty()) {
        return text.first(end);
    }
    bytes = 0;
    while (end < text.size()) {
        const qsizetype units = text[end].isHighSurrogate() ? 2 : 1;
        bytes += text.sliced(end, units).toUtf8().size();
        if (bytes > maximumBytes) {
            break;
        }
        end += units;
    }
    return text.first(end);
}

QStringList tagsOf(const AppConfig& config, const NoteTypeConfig& noteType)
{
    QStringList tags = config.defaultTags + noteType.tags;
    tags.removeDuplicates();
    return tags;
}

/// The heading line; empty when the note has none.
QString headingOf(const QString& title, const QString& prefix)
{
    if (!trimSpacesAndNewlines(title).isEmpty()) {
        return QStringLiteral("# ") + prefix + title;
    }
    return trimSpacesAndNewlines(prefix).isEmpty() ? QString() : QStringLiteral("# ") + trimSpaces(prefix).toString();
}

} // namespace

QStringView firstCharacters(QStringView text, qsizetype count)
{
    // The finder analyses all the text it is given: it gets more of a long one only as far as needed.
    for (qsizetype window = 16 * count;; window *= 2) {
        const QStringView part = text.first(std::min(window, text.size()));
        QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, part.data(), part.size());
        qsizetype end = 0;
        for (qsizetype i = 0; i < count && end < part.size(); ++i) {
            end = finder.toNextBoundary();
        }
        if (end < part.size() || part.size() == text.size()) {
            return text.first(end);
        }
    }
}

QString noteTitleSource(const QString& title, const QString& content)
{
    if (const QStringView trimmed = trimSpacesAndNewlines(title); !trimmed.isEmpty()) {
        return trimmed.toString();
    }
    for (const QStringView line : splitLines(content)) {
        const QStringView trimmed = trimSpacesAndNewlines(line);
        if (!trimmed.isEmpty() && !trimmed.startsWith(u'#')) {
            return trimmed.toString();
        }
    }
    return {};
}

QString noteSlug(const QString& titleSource)
{
    // By Unicode's rules rather than the user's language, so that one title gives one name on every computer.
    QString kept;
    for (const uint c : titleSource.toLower().toUcs4()) {
        if (isKeptInSlug(c)) {
            kept += QChar::fromUcs4(c);
        }
    }
    kept.replace(u' ', u'-');
    const QString slug = kept.split(u'-', Qt::SkipEmptyParts).mid(0, maximumWords).join(u'-');
    return firstBytes(firstCharacters(slug, maximumSlugCharacters), maximumSlugBytes).toString();
}

QString noteFileName(const QDateTime& time, const QString& titleSource)
{
    const QString timestamp = time.toLocalTime().toString(u"yyyy-MM-dd--HHmmss");
    return titleSource.isEmpty() ? timestamp + QStringLiteral(".md")
                                 : timestamp + QStringLiteral("--") + noteSlug(titleSource) + QStringLiteral(".md");
}

QString composeNote(const AppConfig& config, const QDateTime& time, const QString& title, const QString& content,
                    const QString& noteType)
{
    const NoteTypeConfig typeConfig = config.noteTypes.value(noteType);
    QStringList lines{
        QStringLiteral("---"),
        QStringLiteral("created: ") + time.toUTC().toString(Qt::ISODateWithMs),
        QStringLiteral("type: ") + noteType.toLower(),
    };
    if (const QStringList tags = tagsOf(config, typeConfig); !tags.isEmpty()) {
        lines.append(QStringLiteral("tags: [") + tags.join(u", ") + u']');
    }
    lines.append({QStringLiteral("---"), QString()});
    if (const QString heading = headingOf(title, typeConfig.prefix); !heading.isEmpty()) {
        lines.append({heading, QString()});
    }
    lines.append(content);
    return lines.join(u'\n');
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/NoteHead.h>
#include <core/Text.h>

#include <QFile>

#include <algorithm>
#include <initializer_list>

namespace flitmark {

namespace {

// Most notes show title and preview in a few lines. One without a heading has to be read to its end, but a text that
// found its way into the folder by mistake must not hold the panel up.
constexpr qint64 shortRead = qint64(4) * 1024;
constexpr qint64 firstRead = qint64(16) * 1024;
constexpr qint64 longestRead = qint64(1024) * 1024;

using Lines = QList<QStringView>;

std::optional<QString> headingOf(const Lines& lines)
{
    const auto found =
        std::find_if(lines.begin(), lines.end(), [](QStringView line) { return line.startsWith(u"# "); });
    return found != lines.end() ? std::optional(found->sliced(2).toString()) : std::nullopt;
}

std::optional<QString> previewLineOf(const Lines& lines)
{
    bool isInFrontMatter = false;
    for (const QStringView line : lines) {
        if (line == u"---") {
            isInFrontMatter = !isInFrontMatter;
        } else if (!isInFrontMatter && !line.isEmpty() && !line.startsWith(u'#')) {
            return line.toString();
        }
    }
    return std::nullopt;
}

/// Reads the file at `path` up to the first of the ascending `limits`, in bytes, then up to the next, and shows its
/// lines to `search` each time, until that returns true.
template<typename Search>
void readLines(const QString& path, std::initializer_list<qint64> limits, Search search)
{
    QFile file(path);
    QByteArray bytes;
    if (!file.open(QIODevice::ReadOnly)) {
        return;
    }
    for (const qint64 limit : limits) {
        bytes += file.read(limit - bytes.size());
        const QString text = QString::fromUtf8(bytes);
        Lines lines = splitLines(text);
        const bool isWhole = bytes.size() < limit;
        if (!isWhole && limit < longestRead) {
            // Perhaps not the whole of its line.
            lines.removeLast();
        }
        if (search(lines) || isWhole) {
            return;
        }
    }
}

} // namespace

NoteHead readNoteHead(const QString& path)
{
    NoteHead head;
    readLines(path, {firstRead, longestRead}, [&head](const Lines& lines) {
        const std::optional<QString> previewLine = previewLineOf(lines);
        head = {headingOf(lines), previewLine.value_or(QString())};
        return head.title && previewLine;
    });
    return head;
}

QString readPreviewLine(const QString& path)
{
    QString previewLine;
    readLines(path, {shortRead, firstRead, longestRead}, [&previewLine](const Lines& lines) {
        const std::optional<QString> found = previewLineOf(lines);
        previewLine = found.value_or(QString());
        return found.has_value();
    });
    return previewLine;
}

} // namespace flitmark

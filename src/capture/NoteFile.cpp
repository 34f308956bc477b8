// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/NoteFile.h>
#include <capture/NoteText.h>
#include <core/Text.h>
#include <platform/FolderListing.h>
#include <platform/Print.h>

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <optional>

namespace flitmark {

namespace {

constexpr qsizetype maximumNotes = 20;
constexpr qsizetype previewCharacters = 100;
// Most notes show title and preview in a few lines. One without a heading has to be read to its end, but a text that
// found its way into the folder by mistake must not hold the panel up.
constexpr qint64 firstRead = 16 * 1024;
constexpr qint64 longestRead = 1024 * 1024;

std::optional<QString> headingOf(const QList<QStringView>& lines)
{
    const auto found =
        std::find_if(lines.begin(), lines.end(), [](QStringView line) { return line.startsWith(u"# "); });
    return found != lines.end() ? std::optional(found->sliced(2).toString()) : std::nullopt;
}

std::optional<QString> previewOf(const QList<QStringView>& lines)
{
    bool isInFrontMatter = false;
    for (const QStringView line : lines) {
        if (line == u"---") {
            isInFrontMatter = !isInFrontMatter;
        } else if (!isInFrontMatter && !line.isEmpty() && !line.startsWith(u'#')) {
            return firstCharacters(line, previewCharacters).toString();
        }
    }
    return std::nullopt;
}

struct Head
{
    std::optional<QString> title;
    std::optional<QString> preview;
};

/// Reads the file at `path` until both parts are found. A file that can't be read has neither.
Head readHead(const QString& path)
{
    QFile file(path);
    QByteArray bytes;
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    for (const qint64 limit : {firstRead, longestRead}) {
        bytes += file.read(limit - bytes.size());
        const QString text = QString::fromUtf8(bytes);
        QList<QStringView> lines = splitLines(text);
        const bool isWhole = bytes.size() < limit;
        if (!isWhole && limit < longestRead) {
            // Perhaps not the whole of its line.
            lines.removeLast();
        }
        Head head{headingOf(lines), previewOf(lines)};
        if (isWhole || limit == longestRead || (head.title && head.preview)) {
            return head;
        }
    }
    return {};
}

bool isNewer(const FolderEntry& a, const FolderEntry& b)
{
    return a.modified != b.modified ? a.modified > b.modified : a.name > b.name;
}

} // namespace

QList<NoteFile> listRecentNotes(const QString& folder)
{
    if (!QFileInfo::exists(folder)) {
        return {};
    }
    auto entries = listFolder(folder, [](const QString& name) { return name.endsWith(u".md"); });
    if (!entries) {
        printLine(QStringLiteral("Failed to load notes: ") + entries.error().message);
        return {};
    }
    const qsizetype count = std::min(entries->size(), maximumNotes);
    std::partial_sort(entries->begin(), entries->begin() + count, entries->end(), isNewer);
    QList<NoteFile> notes;
    for (const FolderEntry& entry : entries->first(count)) {
        const QString path = folder + u'/' + entry.name;
        const Head head = entry.isFile ? readHead(path) : Head{};
        notes.append({
            .id = path,
            .title = head.title.value_or(entry.name.chopped(3)),
            .preview = head.preview.value_or(QString()),
            .modificationDate = entry.modificationDate(),
        });
    }
    return notes;
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/NoteFile.h>
#include <capture/NoteHead.h>
#include <capture/NoteText.h>
#include <platform/FolderListing.h>
#include <platform/Print.h>

#include <QFileInfo>

#include <algorithm>

namespace flitmark {

namespace {

constexpr qsizetype maximumNotes = 20;
constexpr qsizetype notePreviewCharacters = 100;

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
        const NoteHead head = entry.isFile ? readNoteHead(path) : NoteHead{};
        notes.append({
            .id = path,
            .title = head.title.value_or(entry.name.chopped(3)),
            .preview = firstCharacters(head.previewLine, notePreviewCharacters).toString(),
            .modificationDate = entry.modificationDate(),
        });
    }
    return notes;
}

} // namespace flitmark

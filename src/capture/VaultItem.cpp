// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/NoteHead.h>
#include <capture/NoteText.h>
#include <capture/VaultItem.h>
#include <core/NameOrder.h>
#include <platform/FolderListing.h>
#include <platform/Print.h>

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <utility>

namespace flitmark {

namespace {

constexpr qsizetype itemPreviewCharacters = 80;

QString folderIcon(const QString& lowerCasedName)
{
    static const std::array<std::pair<QString, QString>, 9> icons{{
        {QStringLiteral("daily"), QStringLiteral("calendar")},
        {QStringLiteral("task"), QStringLiteral("checklist")},
        {QStringLiteral("inbox"), QStringLiteral("tray")},
        {QStringLiteral("archive"), QStringLiteral("archivebox")},
        {QStringLiteral("template"), QStringLiteral("doc.on.doc")},
        {QStringLiteral("system"), QStringLiteral("gearshape")},
        {QStringLiteral("knowledge"), QStringLiteral("lightbulb")},
        {QStringLiteral("client"), QStringLiteral("person.2")},
        {QStringLiteral("personal"), QStringLiteral("person")},
    }};
    const auto* const found =
        std::find_if(icons.begin(), icons.end(), [&](const auto& icon) { return lowerCasedName.contains(icon.first); });
    return found != icons.end() ? found->second : QStringLiteral("folder.fill");
}

bool isIconFile(const QString& name)
{
    return name == u"Icon\r";
}

/// The items for `entries`, in the order of `positions`. Takes the names out of the entries.
void appendItems(QList<VaultItem>& items, const QString& folder, QList<FolderEntry>& entries, const NameOrder& order)
{
    QList<QStringView> names;
    names.reserve(entries.size());
    for (const FolderEntry& entry : std::as_const(entries)) {
        names.append(entry.name);
    }
    for (const qsizetype position : order.sorted(names)) {
        FolderEntry& entry = entries[position];
        items.append({
            .folder = folder,
            .name = std::move(entry.name),
            .isDirectory = entry.isFolder,
            .isFile = entry.isFile,
            .modified = entry.modified / 1000000,
        });
    }
}

} // namespace

QString VaultItem::icon() const
{
    const QString lowerCasedName = name.toLower();
    if (isDirectory) {
        return folderIcon(lowerCasedName);
    }
    if (lowerCasedName.contains(u"todo") || lowerCasedName.contains(u"task")) {
        return QStringLiteral("checkmark.circle");
    }
    return name.contains(u"\U0001F4A1") ? QStringLiteral("lightbulb.fill") : QStringLiteral("doc.text");
}

QString VaultItem::readPreview() const
{
    return isFile ? firstCharacters(readPreviewLine(id()), itemPreviewCharacters).toString() : QString();
}

QList<VaultItem> listVaultItems(const QString& folder, const NameOrder& order)
{
    // A relative path would name a folder wherever the program happens to run.
    if (!QDir::isAbsolutePath(folder) || !QFileInfo::exists(folder)) {
        return {};
    }
    auto entries = listFolder(folder, [](const QString& name) { return !isIconFile(name); });
    if (!entries) {
        printLine(QStringLiteral("Failed to load vault items: ") + entries.error().message);
        return {};
    }
    QList<FolderEntry> folders;
    QList<FolderEntry> notes;
    notes.reserve(entries->size());
    for (FolderEntry& entry : *entries) {
        if (entry.isFolder) {
            folders.append(std::move(entry));
        } else if (entry.name.endsWith(u".md")) {
            notes.append(std::move(entry));
        }
    }
    QList<VaultItem> items;
    items.reserve(folders.size() + notes.size());
    const QString cleanFolder = QDir::cleanPath(folder);
    appendItems(items, cleanFolder, folders, order);
    appendItems(items, cleanFolder, notes, order);
    return items;
}

} // namespace flitmark

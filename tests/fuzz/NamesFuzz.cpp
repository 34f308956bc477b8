// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/NoteText.h>
#include <core/Links.h>
#include <core/Text.h>
#include <core/VaultPathResolver.h>
#include <platform/Directories.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "Property.h"

namespace flitmark {

namespace {

void checkLines(const QString& text)
{
    const QList<QStringView> lines = splitLines(text);
    require(!lines.isEmpty(), "every text has a line");
    qsizetype length = 0;
    for (const QStringView line : lines) {
        require(std::none_of(line.begin(), line.end(), isLineBreak), "no line has a break inside");
        length += line.size();
    }
    const qsizetype breaks = lines.size() - 1;
    require(length + breaks <= text.size() && text.size() <= length + 2 * breaks, "only breaks are left out");
}

void checkNote(const QString& text)
{
    const QString title = noteTitleSource({}, text);
    const QString slug = noteSlug(title);
    require(firstCharacters(slug, 50) == slug, "a slug has at most 50 characters");
    require(slug.toLower() == slug || !slug.contains(u' '), "a slug has no spaces");
    const QString name = noteFileName(QDateTime(QDate(2026, 1, 22), QTime(9, 30)), title);
    require(QFile::encodeName(name).size() <= 255, "the file system takes the name");
    require(!name.contains(u'/') && !name.contains(QChar::Null) && !name.startsWith(u'.'), "a name is a plain one");
    require(std::none_of(name.begin(), name.end(), isLineBreak), "a name is one line");
    require(name.endsWith(u".md"), "a note is a markdown file");

    static const AppConfig config = AppConfig::makeDefault({.home = "/nowhere", .applicationSupport = {}, .cache = {}});
    const QString note = composeNote(config, QDateTime(QDate(2026, 1, 22), QTime(9, 30)), {}, text, "Fleeting");
    require(note.startsWith(u"---\n"), "a note begins with front matter");
    require(note.indexOf(u"\n---\n", 3) > 0, "the front matter ends");
    require(note.contains(trimSpacesAndNewlines(text)), "the thought is in the note as it was written");
}

/// A vault with links that lead about: inside it, out of it, to nothing and in a circle.
class Vault
{
public:
    Vault()
    {
        QDir(folder.path()).mkpath("vault/a/b");
        QDir(folder.path()).mkpath("outside/a");
        const std::pair<const char*, const char*> links[] = {
            {"../outside", "vault/o"}, {"a/b", "vault/i"},  {"../outside/new", "vault/n"},
            {"l", "vault/l"},          {"..", "vault/a/u"},
        };
        for (const auto& [target, name] : links) {
            QFile::link(target, folder.filePath(name));
        }
    }

    QTemporaryDir folder;
    QString path = folder.filePath("vault");
};

void checkFolder(const QString& text)
{
    static const Vault vault;
    const QString fallback = "Inbox";
    const auto folder = VaultPathResolver::saveDirectory(vault.path, text, fallback);
    require(folder.has_value(), "a proper fallback always yields a folder");
    require(folder->startsWith(vault.path + u'/'), "the folder is named inside the vault");
    const auto real = resolveLinks(*folder);
    require(real && (*real + u'/').startsWith(resolveLinks(vault.path).value() + u'/'),
            "the folder is inside the vault");
    // Whatever the text is as a fallback, it is refused or names a folder inside the vault.
    const auto asFallback = VaultPathResolver::saveDirectory(vault.path, {}, text);
    require(!asFallback || asFallback->startsWith(vault.path + u'/'), "a fallback is named inside the vault");
}

} // namespace

void checkInput(const QByteArray& bytes)
{
    const QString text = QString::fromUtf8(bytes);
    checkLines(text);
    checkNote(text);
    checkFolder(text);
}

} // namespace flitmark

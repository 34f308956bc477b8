// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/DraftManager.h>
#include <config/ConfigManager.h>
#include <config/VaultDiscovery.h>
#include <platform/Files.h>
#include <platform/RunLoop.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "Property.h"
#include <fcntl.h>
#include <unistd.h>

namespace flitmark {

namespace {

/// Folders of a user whose files all hold the input. What is printed about them is not looked at.
class User
{
public:
    User()
    {
        ::dup2(::open("/dev/null", O_WRONLY | O_CLOEXEC), STDOUT_FILENO);
        QDir().mkpath(directories.ownFolder());
        QDir().mkpath(directories.configHome + "/obsidian");
    }

    QTemporaryDir folder;
    Directories directories{.home = folder.path(),
                            .applicationSupport = folder.filePath("support"),
                            .cache = {},
                            .configHome = folder.filePath("support")};
    QString config = directories.ownFolder() + "/config.json";
    QString draft = directories.ownFolder() + "/.draft.json";
    QString vaults = directories.configHome + "/obsidian/obsidian.json";
};

/// Puts `bytes` into the file at `path` and takes away what an earlier input left beside it.
void putFile(const QString& path, const QByteArray& bytes)
{
    QFile::remove(path + ".unreadable");
    QFile file(path);
    require(file.open(QFile::WriteOnly) && file.write(bytes) == bytes.size(), "the input is in the file");
}

/// Whether the bytes are still somewhere after `path` was written anew.
bool isKept(const QString& path, const QByteArray& bytes)
{
    return readFile(path + ".unreadable").value_or(QByteArray()) == bytes;
}

void checkConfig(const User& user, const QByteArray& bytes)
{
    putFile(user.config, bytes);
    ConfigManager manager(user.directories);
    const AppConfig loaded = manager.config();
    manager.save();
    const QByteArray written = readFile(user.config).value_or(QByteArray());
    require(ConfigManager(user.directories).config() == loaded, "a configuration is read back as it was saved");
    require(written == bytes || isKept(user.config, bytes) || manager.config() == loaded, "no settings are lost");
    manager.save();
    require(readFile(user.config).value_or(QByteArray()) == written, "saving again changes nothing");
}

void checkDraft(const User& user, const QByteArray& bytes)
{
    putFile(user.draft, bytes);
    const std::unique_ptr<RunLoop> loop = makeRunLoop();
    DraftManager manager(user.directories, *loop);
    if (const std::optional<Draft> draft = manager.currentDraft()) {
        manager.save(draft->content, draft->title, draft->noteType);
        const std::optional<Draft> again = DraftManager(user.directories, *loop).currentDraft();
        require(again.has_value() == manager.currentDraft().has_value(), "a draft is there or not, as saved");
        require(!again || (again->content == draft->content && again->title == draft->title), "a draft is read back");
        return;
    }
    require(readFile(user.draft).value_or(QByteArray()) == bytes, "what is no draft stays");
    manager.save("new", {}, {});
    require(bytes.isEmpty() || isKept(user.draft, bytes), "what was no draft is kept beside the new one");
}

void checkVaults(const User& user, const QByteArray& bytes)
{
    putFile(user.vaults, bytes);
    const auto vaults = detectObsidianVaults(user.directories.home, user.directories.configHome);
    require(readFile(user.vaults).value_or(QByteArray()) == bytes, "Obsidian's list is only read");
    for (const DetectedVault& vault : vaults.value_or(QList<DetectedVault>())) {
        require(!vault.name.contains(u'/'), "a vault's name is the last part of its path");
    }
}

} // namespace

void checkInput(const QByteArray& bytes)
{
    static int argc = 0;
    static const QCoreApplication application(argc, nullptr);
    static const User user;
    checkConfig(user, bytes);
    checkDraft(user, bytes);
    checkVaults(user, bytes);
}

} // namespace flitmark

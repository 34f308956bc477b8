// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <config/ConfigManager.h>
#include <core/Links.h>
#include <core/VaultPathResolver.h>
#include <platform/Files.h>
#include <platform/Json.h>
#include <platform/Print.h>

#include <QDir>
#include <QFileInfo>

namespace flitmark {

namespace {

QString inbox()
{
    return QStringLiteral("Inbox");
}

QString subfolderOf(const AppConfig& config, const QString& noteType)
{
    const auto found = config.noteTypes.find(noteType);
    return found != config.noteTypes.end() ? found->subfolder : config.saveSubfolder;
}

} // namespace

ConfigManager::ConfigManager(const Directories& directories)
    : m_directories(directories)
    , m_configURL(directories.ownFolder() + QStringLiteral("/config.json"))
    , m_config(AppConfig::makeDefault(directories))
{
    // Where the folder can't be made, the first save says so.
    std::ignore = createFolder(directories.ownFolder());
    load();
}

void ConfigManager::setConfig(AppConfig config)
{
    if (m_config == config) {
        return;
    }
    m_config = std::move(config);
    Q_EMIT configChanged();
}

void ConfigManager::load()
{
    const QFileInfo file(m_configURL);
    // A link to a file that is gone (an unmounted disk, say) counts as a file that can't be read.
    if (!file.exists() && !file.isSymLink()) {
        save();
        return;
    }
    tl::expected<AppConfig, QString> loaded =
        readFile(m_configURL)
            .map_error([](const FileError& error) { return error.message; })
            .and_then(parseJsonObject)
            .and_then([this](const QJsonObject& object) { return AppConfig::fromJson(object, m_directories); });
    if (!loaded) {
        printLine(QStringLiteral("Failed to load config: ") + loaded.error());
        m_isFileUnreadable = true;
        setConfig(AppConfig::makeDefault(m_directories));
        return;
    }
    m_isFileUnreadable = false;
    // Exactly the size older versions gave every panel: their users never chose it.
    const bool hasOldPanelSize = loaded->panelWidth == 380 && loaded->panelHeight == 480;
    if (hasOldPanelSize) {
        loaded->panelWidth = 440;
        loaded->panelHeight = 560;
    }
    setConfig(*std::move(loaded));
    if (hasOldPanelSize) {
        save();
    }
}

void ConfigManager::save()
{
    // Settings lost to a slip of the hand in the file can be got back from the copy.
    if (std::exchange(m_isFileUnreadable, false)) {
        keepUnreadable(m_configURL);
    }
    if (const auto written = replaceFile(m_configURL, encodeJson(m_config.toJson())); !written) {
        printLine(QStringLiteral("Failed to save config: ") + written.error().message);
    }
}

QString ConfigManager::getSaveDirectory(const QString& noteType) const
{
    QString directory = saveDirectory(m_config, noteType);
    const QString subfolder = subfolderOf(m_config, noteType);
    if (const auto real = resolveLinks(m_config.vaultPath + u'/' + subfolder); !directory.isEmpty() && !real) {
        printLine(QStringLiteral("Failed to look at the folder \"%1\" in the vault, notes go to \"%2\": %3")
                      .arg(subfolder, inbox(), FileError::ofSystem(real.error()).message));
    }
    return directory;
}

QString ConfigManager::saveDirectory(const AppConfig& config, const QString& noteType)
{
    // Not QDir::isAbsolutePath, which takes the names of built-in resources (":/Vault") for absolute.
    if (!config.vaultPath.startsWith(u'/')) {
        return {};
    }
    return VaultPathResolver::saveDirectory(config.vaultPath, subfolderOf(config, noteType), inbox())
        .value_or(QDir::cleanPath(config.vaultPath + u'/' + inbox()));
}

} // namespace flitmark

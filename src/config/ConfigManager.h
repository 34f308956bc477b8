// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <config/AppConfig.h>
#include <platform/Directories.h>

#include <QObject>

#include <utility>

namespace flitmark {

/// Owns the configuration: the record in memory, which everyone reads, and its file `config.json`.
///
/// The file is read once, at construction, and created then if there is none; it is written by `save()` alone. Main
/// thread only.
class ConfigManager final : public QObject
{
    Q_OBJECT

public:
    /// Creates the program's own folder and loads the configuration from it.
    explicit ConfigManager(const Directories& directories);
    Q_DISABLE_COPY_MOVE(ConfigManager)

    const AppConfig& config() const { return m_config; }
    /// Replaces the configuration in memory. Nothing is written.
    void setConfig(AppConfig config);
    /// Lets `change` alter a copy of the configuration and sets that, so that observers hear of it once.
    template<typename Change>
    void update(Change change)
    {
        AppConfig changed = m_config;
        change(changed);
        setConfig(std::move(changed));
    }

    /// Replaces the configuration by what the file holds; writes the file when there is none. A file that can't be read
    /// or makes no sense prints a line, yields the defaults and stays as it is.
    void load();
    /// Writes the configuration to its file. One that could not be loaded is kept beside it, as
    /// `config.json.unreadable`. A failure prints a line and changes nothing in memory.
    void save();

    /// The absolute path of the configuration file.
    QString configURL() const { return m_configURL; }

    /// The absolute path of the folder for notes of type `noteType`, inside the vault; it need not exist. Empty when
    /// the vault's path is not absolute: there is no telling where such a vault would be. Where the configured folder
    /// can't be looked at (its name is too long, say), it is "Inbox", and a line is printed.
    QString getSaveDirectory(const QString& noteType) const;
    /// Where that would be with another configuration; prints nothing.
    static QString saveDirectory(const AppConfig& config, const QString& noteType);

Q_SIGNALS:
    /// `config()` differs from what it was.
    void configChanged();

private:
    Directories m_directories;
    QString m_configURL;
    AppConfig m_config;
    /// Whether the file holds something that could not be loaded.
    bool m_isFileUnreadable = false;
};

} // namespace flitmark

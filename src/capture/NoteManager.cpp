// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/NoteManager.h>
#include <capture/NoteText.h>
#include <config/ConfigManager.h>
#include <platform/RunLoop.h>
#include <platform/SystemSound.h>

namespace flitmark {

NoteManager::NoteManager(ConfigManager& configManager, RunLoop& runLoop, SystemSound& sound)
    : m_configManager(configManager)
    , m_runLoop(runLoop)
    , m_sound(sound)
{
}

tl::expected<QString, FileError> NoteManager::save(const QString& title, const QString& content,
                                                   const QString& noteType)
{
    const QDateTime now = m_runLoop.now();
    const AppConfig& config = m_configManager.config();
    const QString folder = m_configManager.getSaveDirectory(noteType);
    if (folder.isEmpty()) {
        return tl::unexpected(
            FileError{QStringLiteral("The vault path is not an absolute path: \"%1\"").arg(config.vaultPath)});
    }
    if (const auto created = createFolder(folder); !created) {
        return tl::unexpected(created.error());
    }
    const QString path = folder + u'/' + noteFileName(now, noteTitleSource(title, content));
    const QString text = composeNote(config, now, title, content, noteType);
    if (const auto written = replaceFile(path, text.toUtf8()); !written) {
        return tl::unexpected(written.error());
    }
    if (config.playSoundOnSave) {
        m_sound.play(QStringLiteral("Pop"));
    }
    return path;
}

} // namespace flitmark

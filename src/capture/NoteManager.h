// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/Files.h>

#include <QString>
#include <QtGlobal>

#include <tl/expected.hpp>

namespace flitmark {

class ConfigManager;
class RunLoop;
class SystemSound;

/// Writes captured texts into the vault, each as one new Markdown file.
///
/// Main thread only. The services must outlive it.
class NoteManager final
{
public:
    NoteManager(ConfigManager& configManager, RunLoop& runLoop, SystemSound& sound);
    Q_DISABLE_COPY_MOVE(NoteManager)

    /// Writes a note of type `noteType` (a name; it need not be configured) into that type's folder, which is created
    /// if needed, and plays a sound where the user wants one. A note of the same second and title source is replaced.
    /// Returns the absolute path of the file; on failure no file is left behind.
    tl::expected<QString, FileError> save(const QString& title, const QString& content, const QString& noteType);

private:
    ConfigManager& m_configManager;
    RunLoop& m_runLoop;
    SystemSound& m_sound;
};

} // namespace flitmark

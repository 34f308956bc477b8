// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <config/AppConfig.h>
#include <config/VaultDiscovery.h>
#include <platform/Directories.h>

#include <QObject>

namespace flitmark {

class ConfigManager;

/// What the setup wizard shows and does, without its widgets: four steps in a line, and the choices made in them.
/// Nothing is written before `finishSetup()`.
///
/// Main thread only. The configuration manager must outlive it.
class SetupWizardModel final : public QObject
{
    Q_OBJECT

public:
    static constexpr int welcomeStep = 0;
    static constexpr int vaultStep = 1;
    static constexpr int quickTagsStep = 2;
    static constexpr int finishStep = 3;

    SetupWizardModel(ConfigManager& configManager, const Directories& directories);
    Q_DISABLE_COPY_MOVE(SetupWizardModel)

    /// To be called when the wizard is shown: looks for vaults, selects the first, and offers the default quick tags.
    void start();

    /// 0 to 3.
    int currentStep() const { return m_currentStep; }
    /// One step back; on the first step nothing happens.
    void back();
    /// One step on, if the wizard may proceed; on the last step nothing happens.
    void forward();
    bool canProceed() const;

    const QList<DetectedVault>& detectedVaults() const { return m_detectedVaults; }
    const QString& selectedVaultPath() const { return m_selectedVaultPath; }
    /// Chooses a detected vault, in place of a custom path.
    void selectVault(const QString& path);

    const QString& customVaultPath() const { return m_customVaultPath; }
    void setCustomVaultPath(const QString& path);
    bool useCustomPath() const { return m_useCustomPath; }
    void setUseCustomPath(bool use);
    /// The path that will be stored: the custom one while it is used, else the selected vault's.
    const QString& getFinalVaultPath() const;
    /// Empty when the final path is the absolute path of a folder that exists, else one sentence for the user. A wrong
    /// path is never refused: its folder may be on a disk that is not there yet.
    QString vaultPathProblem() const;

    const QString& saveSubfolder() const { return m_saveSubfolder; }
    void setSaveSubfolder(const QString& subfolder);
    /// The subfolder that will be stored: "Inbox" when the field is empty.
    QString effectiveSubfolder() const;
    /// The subfolder for what is captured in the panel: that of its note type, where there is one.
    QString captureSubfolder() const;

    const QList<QuickTag>& quickTags() const { return m_quickTags; }
    const QString& newTagIcon() const { return m_newTagIcon; }
    void setNewTagIcon(const QString& icon);
    const QString& newTagText() const { return m_newTagText; }
    void setNewTagText(const QString& text);
    /// Appends a tag made of both fields and empties them; with either of them empty nothing happens.
    void addNewTag();
    void toggleDefault(QUuid id);
    void deleteTag(QUuid id);

    /// Stores the choices in the configuration, marks the setup as completed, and saves. Emits `completed`. Later calls
    /// do nothing.
    void finishSetup();

Q_SIGNALS:
    /// Anything but the step changed.
    void changed();
    void stepChanged();
    void completed();

private:
    template<typename T>
    void set(T& field, const T& value);

    ConfigManager& m_configManager;
    Directories m_directories;
    int m_currentStep = welcomeStep;
    bool m_isFinished = false;
    QList<DetectedVault> m_detectedVaults;
    QString m_selectedVaultPath;
    QString m_customVaultPath;
    bool m_useCustomPath = false;
    QString m_saveSubfolder = QStringLiteral("Inbox");
    QList<QuickTag> m_quickTags;
    QString m_newTagIcon;
    QString m_newTagText;
};

} // namespace flitmark

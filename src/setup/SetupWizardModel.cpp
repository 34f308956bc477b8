// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <config/ConfigManager.h>
#include <config/VaultGuess.h>
#include <setup/SetupWizardModel.h>

#include <algorithm>
#include <utility>

namespace flitmark {

namespace {

QString subfolderOrInbox(const QString& subfolder)
{
    return subfolder.isEmpty() ? QStringLiteral("Inbox") : subfolder;
}

} // namespace

SetupWizardModel::SetupWizardModel(ConfigManager& configManager, const Directories& directories)
    : m_configManager(configManager)
    , m_directories(directories)
{
}

void SetupWizardModel::start()
{
    if (const auto vaults = detectObsidianVaults(m_directories.home, m_directories.configHome)) {
        m_detectedVaults = *vaults;
        if (!vaults->isEmpty()) {
            m_selectedVaultPath = vaults->front().path;
        }
    }
    m_quickTags = defaultQuickTags();
    Q_EMIT changed();
}

void SetupWizardModel::back()
{
    if (m_currentStep > welcomeStep) {
        --m_currentStep;
        Q_EMIT stepChanged();
    }
}

void SetupWizardModel::forward()
{
    if (m_currentStep < finishStep && canProceed()) {
        ++m_currentStep;
        Q_EMIT stepChanged();
    }
}

bool SetupWizardModel::canProceed() const
{
    return m_currentStep != vaultStep || !getFinalVaultPath().isEmpty();
}

void SetupWizardModel::selectVault(const QString& path)
{
    if (m_useCustomPath || m_selectedVaultPath != path) {
        m_useCustomPath = false;
        m_selectedVaultPath = path;
        Q_EMIT changed();
    }
}

void SetupWizardModel::setCustomVaultPath(const QString& path)
{
    set(m_customVaultPath, path);
}

void SetupWizardModel::setUseCustomPath(bool use)
{
    set(m_useCustomPath, use);
}

const QString& SetupWizardModel::getFinalVaultPath() const
{
    return m_useCustomPath ? m_customVaultPath : m_selectedVaultPath;
}

QString SetupWizardModel::vaultPathProblem() const
{
    return flitmark::vaultPathProblem(getFinalVaultPath());
}

void SetupWizardModel::setSaveSubfolder(const QString& subfolder)
{
    set(m_saveSubfolder, subfolder);
}

QString SetupWizardModel::effectiveSubfolder() const
{
    return subfolderOrInbox(m_saveSubfolder);
}

QString SetupWizardModel::captureSubfolder() const
{
    const auto& noteTypes = m_configManager.config().noteTypes;
    const auto found = noteTypes.find(fleetingNoteType());
    return found != noteTypes.end() ? subfolderOrInbox(found->subfolder) : effectiveSubfolder();
}

void SetupWizardModel::setNewTagIcon(const QString& icon)
{
    set(m_newTagIcon, icon);
}

void SetupWizardModel::setNewTagText(const QString& text)
{
    set(m_newTagText, text);
}

void SetupWizardModel::addNewTag()
{
    if (m_newTagIcon.isEmpty() || m_newTagText.isEmpty()) {
        return;
    }
    m_quickTags.append({QUuid::createUuid(), m_newTagIcon, m_newTagText});
    m_newTagIcon.clear();
    m_newTagText.clear();
    Q_EMIT changed();
}

void SetupWizardModel::toggleDefault(QUuid id)
{
    const auto tag =
        std::find_if(m_quickTags.begin(), m_quickTags.end(), [&id](const QuickTag& each) { return each.id == id; });
    if (tag != m_quickTags.end()) {
        tag->isDefault = !tag->isDefault;
        Q_EMIT changed();
    }
}

void SetupWizardModel::deleteTag(QUuid id)
{
    if (m_quickTags.removeIf([&id](const QuickTag& each) { return each.id == id; }) > 0) {
        Q_EMIT changed();
    }
}

void SetupWizardModel::finishSetup()
{
    if (std::exchange(m_isFinished, true)) {
        return;
    }
    m_configManager.update([this](AppConfig& config) {
        config.vaultPath = getFinalVaultPath();
        config.saveSubfolder = effectiveSubfolder();
        config.quickTags = m_quickTags;
        config.hasCompletedSetup = true;
    });
    m_configManager.save();
    Q_EMIT completed();
}

template<typename T>
void SetupWizardModel::set(T& field, const T& value)
{
    if (field != value) {
        field = value;
        Q_EMIT changed();
    }
}

} // namespace flitmark

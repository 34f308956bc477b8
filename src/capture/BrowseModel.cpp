// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/BrowseModel.h>
#include <capture/NoteFile.h>
#include <config/ConfigManager.h>
#include <core/ObsidianLink.h>
#include <platform/RunLoop.h>
#include <platform/Workspace.h>

#include <algorithm>

namespace flitmark {

namespace {

/// Some screens full of them.
constexpr qsizetype cachedPreviews = 500;

} // namespace

BrowseModel::BrowseModel(const ConfigManager& configManager, Workspace& workspace, RunLoop& runLoop, DemoMode demoMode)
    : m_configManager(configManager)
    , m_workspace(workspace)
    , m_runLoop(runLoop)
    , m_demoMode(demoMode)
    , m_vaultPath(configManager.config().vaultPath)
    , m_previews(cachedPreviews)
{
    connect(&configManager, &ConfigManager::configChanged, this, &BrowseModel::followVault);
}

/// The folders of another vault are none of this one's.
void BrowseModel::followVault()
{
    if (m_vaultPath != m_configManager.config().vaultPath) {
        m_vaultPath = m_configManager.config().vaultPath;
        navigateToRoot();
    }
}

QString BrowseModel::trailLabel(qsizetype index) const
{
    const QString& path = m_browsePathStack[index];
    return path.sliced(path.lastIndexOf(u'/') + 1);
}

QString BrowseModel::previewOf(qsizetype index)
{
    if (index < 0 || index >= m_browseItems.size()) {
        return {};
    }
    if (const QString* known = m_previews.object(index)) {
        return *known;
    }
    QString preview = m_browseItems[index].readPreview();
    m_previews.insert(index, new QString(preview));
    return preview;
}

QString BrowseModel::summary() const
{
    const auto folders = static_cast<int>(std::count_if(m_browseItems.begin(), m_browseItems.end(),
                                                        [](const VaultItem& item) { return item.isDirectory; }));
    const int notes = static_cast<int>(m_browseItems.size()) - folders;
    const QString folderCount = tr("%n folders", nullptr, folders);
    QString noteCount = tr("%n notes", nullptr, notes);
    if (folders == 0) {
        return noteCount;
    }
    return notes == 0 ? folderCount : tr("%1, %2", "folders, notes").arg(folderCount, noteCount);
}

void BrowseModel::refresh()
{
    loadVaultItems(m_currentBrowsePath);
}

void BrowseModel::navigateIntoFolder(const QString& folder)
{
    setPath(m_browsePathStack + QStringList(folder));
}

void BrowseModel::navigateToPath(qsizetype index)
{
    if (index >= 0 && index < m_browsePathStack.size()) {
        setPath(m_browsePathStack.first(index + 1));
    }
}

void BrowseModel::navigateToRoot()
{
    setPath({});
}

void BrowseModel::setPath(const QStringList& stack)
{
    if (m_browsePathStack != stack) {
        m_browsePathStack = stack;
        m_currentBrowsePath = stack.isEmpty() ? std::nullopt : std::optional(stack.last());
        Q_EMIT currentBrowsePathChanged();
    }
    refresh();
}

void BrowseModel::loadVaultItems(const std::optional<QString>& folder)
{
    m_previews.clear();
    if (m_demoMode == DemoMode::On) {
        loadDemoItems();
    } else {
        if (!m_order) {
            m_order.emplace(QLocale().collation());
        }
        m_browseItems = listVaultItems(folder.value_or(m_configManager.config().vaultPath), *m_order);
    }
    Q_EMIT browseItemsChanged();
}

void BrowseModel::loadDemoItems()
{
    const qint64 now = m_runLoop.now().toMSecsSinceEpoch();
    const auto folder = [now](const QString& name, qint64 age) {
        return VaultItem{QStringLiteral("/tmp"), name, true, false, now - age * 1000};
    };
    const auto note = [now](const QString& name, qint64 age) {
        return VaultItem{QStringLiteral("/tmp"), name, false, false, now - age * 1000};
    };
    m_browseItems = {
        folder(QStringLiteral("Daily"), 0),
        folder(QStringLiteral("Inbox"), 3600),
        folder(QStringLiteral("Projects"), 7200),
        folder(QStringLiteral("Client Notes"), 8600),
        folder(QStringLiteral("Research"), 11200),
        note(QStringLiteral("launch-plan.md"), 18000),
        note(QStringLiteral("weekly-review.md"), 26400),
    };
    m_previews.insert(5, new QString(tr("Finalize release notes + screenshot pack")));
    m_previews.insert(6, new QString(tr("Wins, blockers, and next focus")));
}

void BrowseModel::openNoteInObsidian(const NoteFile& note)
{
    const std::optional<QUrl> link = obsidianLink(m_configManager.config().vaultPath, note.url());
    m_unopenedNote = note.url();
    if (!link) {
        openFile(); // Its name can't be written in a link.
    } else if (!m_workspace.open(*link)) {
        Q_EMIT noProgramFound();
    }
}

void BrowseModel::openFile()
{
    m_workspace.open(QUrl::fromLocalFile(m_unopenedNote));
}

void BrowseModel::activate(qsizetype index)
{
    if (index < 0 || index >= m_browseItems.size()) {
        return;
    }
    const VaultItem item = m_browseItems[index];
    if (item.isDirectory) {
        navigateIntoFolder(item.url());
        return;
    }
    openNoteInObsidian({
        .id = item.id(),
        .title = item.name,
        .preview = previewOf(index),
        .modificationDate = item.modificationDate(),
    });
}

} // namespace flitmark

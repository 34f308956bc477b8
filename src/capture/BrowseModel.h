// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <capture/VaultItem.h>
#include <core/NameOrder.h>
#include <platform/DemoMode.h>

#include <QCache>
#include <QObject>
#include <QStringList>

#include <optional>

namespace flitmark {

class ConfigManager;
class RunLoop;
class Workspace;
struct NoteFile;

/// What the panel's Browse tab shows and does, without its widgets: the listed folder of the vault, the trail that led
/// there, and what opening an entry means.
///
/// Main thread only. The services must outlive it.
class BrowseModel final : public QObject
{
    Q_OBJECT

public:
    BrowseModel(const ConfigManager& configManager, Workspace& workspace, RunLoop& runLoop,
                DemoMode demoMode = DemoMode::Off);
    Q_DISABLE_COPY_MOVE(BrowseModel)

    /// The absolute path of the listed folder; nothing for the vault's root.
    const std::optional<QString>& currentBrowsePath() const { return m_currentBrowsePath; }
    /// The absolute paths of the folders on the way there, the root left out, outermost first.
    const QStringList& browsePathStack() const { return m_browsePathStack; }
    /// What the trail calls the folder at `index` of the stack, which must have one.
    QString trailLabel(qsizetype index) const;

    const QList<VaultItem>& browseItems() const { return m_browseItems; }
    /// The beginning of the text of the item at `index`; empty for a folder, and for an index without an item. Reads
    /// the file, unless it was asked for shortly before: for items that are on screen.
    QString previewOf(qsizetype index);
    /// How many folders and notes are listed.
    QString summary() const;

    /// Lists the current folder again.
    void refresh();

    void navigateIntoFolder(const QString& folder);
    /// Goes back to the folder at `index` of the stack. Does nothing when there is none.
    void navigateToPath(qsizetype index);
    void navigateToRoot();
    /// Opens the note in Obsidian. Where no program opens such links, `noProgramFound` says so.
    void openNoteInObsidian(const NoteFile& note);
    /// Opens the note that could not be opened in Obsidian with the desktop's program for its file.
    void openFile();
    /// What a click on the item at `index` does: goes into a folder, opens a note. Nothing for an index without an
    /// item.
    void activate(qsizetype index);

Q_SIGNALS:
    /// The current folder or the stack changed.
    void currentBrowsePathChanged();
    void browseItemsChanged();
    void noProgramFound();

private:
    void setPath(const QStringList& stack);
    void loadVaultItems(const std::optional<QString>& folder);
    void loadDemoItems();
    void followVault();

    const ConfigManager& m_configManager;
    Workspace& m_workspace;
    RunLoop& m_runLoop;
    DemoMode m_demoMode;
    QString m_vaultPath;
    std::optional<QString> m_currentBrowsePath;
    QStringList m_browsePathStack;
    QList<VaultItem> m_browseItems;
    QString m_unopenedNote;
    /// Those of the items looked at last, by index.
    QCache<qsizetype, QString> m_previews;
    /// Made for the first listing.
    std::optional<NameOrder> m_order;
};

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/DraftManager.h>
#include <capture/NoteManager.h>
#include <capture/NotePanelModel.h>
#include <config/ConfigManager.h>
#include <core/Text.h>
#include <platform/Print.h>
#include <platform/RunLoop.h>

namespace flitmark {

namespace {

using namespace std::chrono_literals;

constexpr RunLoop::Duration statusDuration = 2s;
constexpr RunLoop::Duration closeDelay = 500ms;

} // namespace

NotePanelModel::NotePanelModel(ConfigManager& configManager, DraftManager& draftManager, NoteManager& noteManager,
                               RunLoop& runLoop, DemoMode demoMode)
    : m_configManager(configManager)
    , m_draftManager(draftManager)
    , m_noteManager(noteManager)
    , m_runLoop(runLoop)
    , m_demoMode(demoMode)
{
}

void NotePanelModel::setNoteContent(const QString& content)
{
    if (m_noteContent == content) {
        return;
    }
    m_noteContent = content;
    if (m_demoMode == DemoMode::Off) {
        m_draftManager.save(content, QString(), fleetingNoteType());
    }
    Q_EMIT noteContentChanged();
}

qsizetype NotePanelModel::wordCount() const
{
    return m_noteContent.split(u' ', Qt::SkipEmptyParts).size();
}

void NotePanelModel::setSelectedTab(Tab tab)
{
    if (m_selectedTab != tab) {
        m_selectedTab = tab;
        Q_EMIT selectedTabChanged();
    }
}

void NotePanelModel::toggleQuickTag(QUuid id)
{
    QSet<QUuid> ids = m_selectedQuickTags;
    if (!ids.remove(id)) {
        ids.insert(id);
    }
    setSelectedQuickTags(ids);
}

void NotePanelModel::loadDefaultTags()
{
    setSelectedQuickTags(m_selectedQuickTags | defaultTagIds());
}

QSet<QUuid> NotePanelModel::defaultTagIds() const
{
    QSet<QUuid> ids;
    for (const QuickTag& tag : m_configManager.config().quickTags) {
        if (tag.isDefault) {
            ids.insert(tag.id);
        }
    }
    return ids;
}

void NotePanelModel::setSelectedQuickTags(const QSet<QUuid>& ids)
{
    if (m_selectedQuickTags != ids) {
        m_selectedQuickTags = ids;
        Q_EMIT selectedQuickTagsChanged();
    }
}

void NotePanelModel::saveNote()
{
    if (trimSpacesAndNewlines(m_noteContent).isEmpty()) {
        showStatusMessage(tr("Nothing to save"), StatusType::info);
        return;
    }
    const auto saved = m_noteManager.save(QString(), composedContent(), fleetingNoteType());
    if (!saved) {
        printLine(QStringLiteral("Failed to save note: ") + saved.error().message);
        showStatusMessage(tr("Error saving"), StatusType::error);
        return;
    }
    showStatusMessage(tr("Saved"), StatusType::success);
    clearNote();
    loadExistingNotes();
    m_runLoop.after(closeDelay, this, [this] { Q_EMIT closeRequested(); });
}

/// The text, and below it what the selected quick tags append, in the order of the configuration.
QString NotePanelModel::composedContent() const
{
    QStringList texts;
    for (const QuickTag& tag : m_configManager.config().quickTags) {
        if (m_selectedQuickTags.contains(tag.id)) {
            texts.append(tag.appendText);
        }
    }
    return texts.isEmpty() ? m_noteContent : m_noteContent + QStringLiteral("\n\n") + texts.join(u' ');
}

void NotePanelModel::clearNote()
{
    setNoteContent(QString());
    setSelectedQuickTags(defaultTagIds());
    if (m_demoMode == DemoMode::Off) {
        m_draftManager.clear();
    }
}

void NotePanelModel::loadDraft()
{
    if (m_demoMode == DemoMode::On) {
        return;
    }
    if (const auto& draft = m_draftManager.currentDraft(); draft && !draft->content.isEmpty()) {
        // A copy: setting the text writes a new draft.
        setNoteContent(QString(draft->content));
    }
}

void NotePanelModel::startWithDemoText()
{
    if (m_noteContent.isEmpty()) {
        setNoteContent(tr("Quick capture demo for Flitmark.\n\n"
                          "- Capture the raw thought before it disappears\n"
                          "- Add the default focus tags\n"
                          "- Save it straight into the Obsidian inbox\n\n"
                          "Follow up during the next daily review."));
    }
}

void NotePanelModel::loadExistingNotes()
{
    m_existingNotes = listRecentNotes(m_configManager.getSaveDirectory(fleetingNoteType()));
    Q_EMIT existingNotesChanged();
}

void NotePanelModel::showStatusMessage(const QString& message, StatusType type)
{
    m_statusMessage = message;
    m_statusType = type;
    m_showStatus = true;
    Q_EMIT statusChanged();
    m_runLoop.after(statusDuration, this, [this] {
        if (m_showStatus) {
            m_showStatus = false;
            Q_EMIT statusChanged();
        }
    });
}

void NotePanelModel::panelAppeared()
{
    if (m_demoMode == DemoMode::On) {
        startWithDemoText();
    }
    loadDraft();
    loadExistingNotes();
    loadDefaultTags();
}

void NotePanelModel::panelOpened()
{
    loadDraft();
    loadDefaultTags();
}

} // namespace flitmark

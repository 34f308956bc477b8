// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <capture/NoteFile.h>
#include <platform/DemoMode.h>

#include <QList>
#include <QObject>
#include <QSet>
#include <QString>
#include <QUuid>

namespace flitmark {

class ConfigManager;
class DraftManager;
class NoteManager;
class RunLoop;

/// What the note panel shows and does, without its widgets: the text being written and its quick tags, the selected
/// tab, the status line and the recent notes.
///
/// In demo mode it starts with a text of its own, and leaves the user's draft alone.
///
/// Main thread only. The services must outlive it.
class NotePanelModel final : public QObject
{
    Q_OBJECT

public:
    enum class Tab { newNote, browse, daily };
    Q_ENUM(Tab)
    enum class StatusType { info, success, error };
    Q_ENUM(StatusType)

    NotePanelModel(ConfigManager& configManager, DraftManager& draftManager, NoteManager& noteManager, RunLoop& runLoop,
                   DemoMode demoMode = DemoMode::Off);
    Q_DISABLE_COPY_MOVE(NotePanelModel)

    const QString& noteContent() const { return m_noteContent; }
    /// Sets the text. Every change is on disk as the draft when the call returns.
    void setNoteContent(const QString& content);
    /// The number of pieces between spaces. Line breaks separate no words.
    qsizetype wordCount() const;

    Tab selectedTab() const { return m_selectedTab; }
    void setSelectedTab(Tab tab);

    const QSet<QUuid>& selectedQuickTags() const { return m_selectedQuickTags; }
    void toggleQuickTag(QUuid id);
    /// Selects every quick tag that is a default one; those selected by hand stay selected.
    void loadDefaultTags();

    /// Writes the text with its quick tags as a note and starts a new one; asks to be closed half a second later. A
    /// failure leaves text, tags and draft as they are. The outcome is shown in the status line.
    void saveNote();
    /// Empties the text, goes back to the default quick tags and drops the draft.
    void clearNote();
    /// Takes the draft's text, unless the draft is empty.
    void loadDraft();

    /// Newest first.
    const QList<NoteFile>& existingNotes() const { return m_existingNotes; }
    void loadExistingNotes();

    /// Shows `message` for two seconds, or less: a message shown before it takes the line away at its own time.
    void showStatusMessage(const QString& message, StatusType type);
    const QString& statusMessage() const { return m_statusMessage; }
    /// Whether the status line is to be seen.
    bool showStatus() const { return m_showStatus; }
    StatusType statusType() const { return m_statusType; }

    /// To be called when the panel has been built: brings the draft, the recent notes and the default tags.
    void panelAppeared();
    /// To be called when the panel has come on screen: brings the draft and the default tags. Leaves the keyboard
    /// alone: the editor has it since the panel was shown, and the user may have moved on already.
    void panelOpened();

Q_SIGNALS:
    void noteContentChanged();
    void selectedTabChanged();
    void selectedQuickTagsChanged();
    void existingNotesChanged();
    /// The message, its type or its visibility changed.
    void statusChanged();
    /// The panel should be closed.
    void closeRequested();

private:
    void startWithDemoText();
    void setSelectedQuickTags(const QSet<QUuid>& ids);
    QSet<QUuid> defaultTagIds() const;
    QString composedContent() const;

    ConfigManager& m_configManager;
    DraftManager& m_draftManager;
    NoteManager& m_noteManager;
    RunLoop& m_runLoop;
    DemoMode m_demoMode;
    QString m_noteContent;
    Tab m_selectedTab = Tab::newNote;
    QSet<QUuid> m_selectedQuickTags;
    QList<NoteFile> m_existingNotes;
    QString m_statusMessage;
    StatusType m_statusType = StatusType::info;
    bool m_showStatus = false;
};

} // namespace flitmark

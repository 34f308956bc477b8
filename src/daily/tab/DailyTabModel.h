// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <daily/tab/DailyTabRows.h>
#include <platform/DemoMode.h>

#include <QObject>

#include <optional>

namespace flitmark {

class CheckinWindowController;
class DailyNoteManager;
class NotificationCenter;
class RunLoop;
class SignalManager;

/// What the panel's Daily tab shows and does, without its widgets: today's note in short, its focus and task entries,
/// the Pomodoro of one task, and the coach's alert.
///
/// Tasks are named by the line numbers of the rows; what an edit did is seen in the note, not in a result. Main thread
/// only.
class DailyTabModel final : public QObject
{
    Q_OBJECT

public:
    /// What the model works with; all of it must outlive it.
    struct Services
    {
        DailyNoteManager& dailyNoteManager;
        SignalManager& signalManager;
        CheckinWindowController& checkinController;
        NotificationCenter& notificationCenter;
        RunLoop& runLoop;
    };
    /// What is in the middle of the tab.
    enum class Body { Demo, Loading, NoNote, Note };
    Q_ENUM(Body)
    enum class AlertResponse { IntentionalChange, Refocusing, Snooze };
    Q_ENUM(AlertResponse)

    explicit DailyTabModel(const Services& services, DemoMode demoMode = DemoMode::Off);
    Q_DISABLE_COPY_MOVE(DailyTabModel)

    /// To be called when the tab is selected: loads the note, shows an alert that waits, and lets the active task's
    /// Pomodoros add their tomatoes.
    void tabShown();
    /// To be called when another one is: a Pomodoro that ends from now on adds no tomato.
    void tabHidden();

    /// The current date, as "Thursday, Jan 22".
    QString headerDate() const;
    Body body() const;
    /// Loads the note, unless it is not what is shown.
    void refresh();
    void openInObsidian();
    /// Has Obsidian make today's note.
    void createInObsidian();
    /// Opens the note with the desktop's program for its file.
    void openFile();
    /// Opens a link of a task's text: a note in Obsidian, an address with the desktop's program for it.
    void openLink(const TextSpan& link);
    /// Which file the note is and what says so; empty without a note.
    QString noteDescription() const;
    /// Where no note was found, the places that were looked at.
    QString placesText() const;
    /// Whether the tasks are shown also while there are none.
    bool alwaysShowsTasks() const;

    /// The focus to show; the text for none where there is none. Texts to be shown are cut where they are very long.
    QString focusText() const;
    bool hasFocus() const;
    /// All in the order of the note, but the work done: newest first. A section without entries is not shown.
    QList<DailyTaskRow> tasks() const { return dailyTaskRows(m_services.dailyNoteManager); }
    QStringList coachNotes() const;
    QStringList workDone() const;

    /// Whether the focus editor is open: to change the focus, or to set the next one after it was done. Never both.
    bool isEditingFocus() const { return m_focusEditor == FocusEditor::Editing; }
    bool isSettingNewFocus() const { return m_focusEditor == FocusEditor::SettingNew; }
    const QString& editedFocus() const { return m_editedFocus; }
    void setEditedFocus(const QString& text);
    /// The label of the button that saves.
    QString saveFocusTitle() const;
    /// Opens the editor with the focus in it.
    void editFocus();
    /// Opens it empty; the note keeps its focus until another one is saved. Does nothing without a focus.
    void markFocusDone();
    /// Saves what is entered, without the spaces around it, unless that is nothing; closes the editor. What can't be
    /// written stays in it. Does nothing while it is closed.
    void saveFocus();
    void cancelFocus();

    void toggleTask(qint64 lineNumber);
    void removeTomato(qint64 lineNumber);
    bool isAddingTask() const { return m_isAddingTask; }
    const QString& newTaskText() const { return m_newTaskText; }
    void setNewTaskText(const QString& text);
    void startAddingTask();
    /// Adds the task and closes the row, which stays open when nothing but spaces is entered or nothing was written.
    void saveNewTask();
    void cancelNewTask();

    bool showPomodoroTaskPicker() const { return m_showPomodoroTaskPicker; }
    void setShowPomodoroTaskPicker(bool isShown);
    QList<TaskPickerRow> pickerRows() const { return taskPickerRows(m_services.dailyNoteManager); }
    /// Whether the note has tasks at all, open ones or not.
    bool hasTasks() const;
    /// The picker's bottom line, "Interval: 20 min".
    QString intervalText() const;

    /// The task whose Pomodoro was started here last, until it is stopped here.
    const std::optional<qint64>& activeTaskLineNumber() const { return m_activeTaskLineNumber; }
    bool isTimerPaused() const;
    /// Starts a Pomodoro. Each that completes from now on adds a tomato to the task, while its note is today's.
    void startPomodoro(qint64 lineNumber);
    void pauseOrResume();
    void resetTimer();
    void stopPomodoro();

    bool showCoachAlert() const { return m_showCoachAlert; }
    /// Closes the sheet. The alert goes on waiting.
    void closeCoachAlert();
    /// What the waiting alert says; empty without one.
    QString alertPlanned() const;
    QString alertActual() const;
    /// Answers the waiting alert and closes the sheet. Does nothing without one, or while the sheet is closed.
    void respondToAlert(AlertResponse response);

Q_SIGNALS:
    /// No program opens Obsidian's links.
    void noProgramFound();
    /// Anything that comes from the note changed, `body()` among it.
    void noteChanged();
    void focusEditorChanged();
    void editedFocusChanged();
    void isAddingTaskChanged();
    void newTaskTextChanged();
    void showPomodoroTaskPickerChanged();
    void intervalTextChanged();
    void activeTaskLineNumberChanged();
    /// The timer was paused or resumed.
    void timerStateChanged();
    void showCoachAlertChanged();
    /// What the alert says changed.
    void alertChanged();

private:
    enum class FocusEditor { Closed, Editing, SettingNew };

    void setFocusEditor(FocusEditor state);
    /// Opens the editor with a focus in it that could not be written, wherever it was entered. An open one goes before.
    void keepFocus(const QString& focus);
    void setAddingTask(bool isAdding);
    void setActiveTask(std::optional<qint64> lineNumber);
    void setShowCoachAlert(bool isShown);
    void followAlert();
    void observeCompletion();

    Services m_services;
    DemoMode m_demoMode;
    bool m_isShown = false;
    FocusEditor m_focusEditor = FocusEditor::Closed;
    QString m_editedFocus;
    bool m_showCoachAlert = false;
    bool m_showPomodoroTaskPicker = false;
    std::optional<qint64> m_activeTaskLineNumber;
    /// The note that the line is in.
    QString m_activeTaskPath;
    QMetaObject::Connection m_pomodoroCompletionObserver;
    bool m_isAddingTask = false;
    QString m_newTaskText;
};

} // namespace flitmark

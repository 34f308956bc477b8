// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <checkin/CheckinResponse.h>

#include <QObject>
#include <QString>

#include <functional>

namespace flitmark {

class DailyNoteManager;
class RunLoop;
class SignalManager;

/// What the check-in popup shows and does, without its widgets: four answers, two of which first ask for a focus.
///
/// An answer changes the daily note and tells the coach where it has to, then goes to the callback, once; whatever is
/// asked of the model after that does nothing. One that logs or changes something loads the note first, since the day,
/// the file or the vault may have changed below the popup: it is carried out one turn of the main loop later. Main
/// thread only. The services must outlive it.
class CheckinModel final : public QObject
{
    Q_OBJECT

public:
    using Response = CheckinResponse;
    using DismissCallback = std::function<void(const Response&)>;

    CheckinModel(DailyNoteManager& dailyNoteManager, SignalManager& signalManager, RunLoop& runLoop,
                 DismissCallback onDismiss);
    Q_DISABLE_COPY_MOVE(CheckinModel)

    /// The number of today's Pomodoros, as "3×🍅"; empty when there are none.
    QString countText() const;
    QString focusText() const;
    QString snoozeTitle() const;
    /// The time of day, "HH:mm".
    QString timeText() const;

    /// Whether the new focus is asked for: as a change, or to go on with after the task is done. Never both.
    bool isUpdatingFocus() const { return m_mode == Mode::UpdatingFocus; }
    bool isCompletingTask() const { return m_mode == Mode::CompletingTask; }
    /// What stands above the entry, and on the button that submits it.
    QString entryLabel() const;
    QString submitTitle() const;
    const QString& newFocus() const { return m_newFocus; }
    void setNewFocus(const QString& text);

    /// On track: logs the Pomodoro for today's focus and tells the coach.
    void completePomodoro();
    /// Asks for the next focus, with an empty entry.
    void startCompletingTask();
    /// Asks for another focus, with today's in the entry.
    void startFocusUpdate();
    /// Goes back to the answers.
    void cancel();
    /// Takes the entry without the spaces around it. An empty one stays open.
    void submit();
    void snooze();
    void dismiss();

Q_SIGNALS:
    /// The count or the focus changed.
    void noteChanged();
    void snoozeTitleChanged();
    /// The answers gave way to an entry, or came back.
    void modeChanged();
    void newFocusChanged();

private:
    enum class Mode { Answers, UpdatingFocus, CompletingTask };

    CheckinResponse logCompleted();
    CheckinResponse completeAndStartNew(const QString& text);
    CheckinResponse confirmFocusUpdate(const QString& text);
    void setMode(Mode mode, const QString& text);
    QString plannedFocus() const;
    QString focusToLog() const;
    bool isAnswered() const { return !m_onDismiss; }
    void answer(const Response& response);
    void answerOnFreshNote(std::function<Response()> act);

    DailyNoteManager& m_dailyNoteManager;
    SignalManager& m_signalManager;
    RunLoop& m_runLoop;
    DismissCallback m_onDismiss;
    Mode m_mode = Mode::Answers;
    QString m_newFocus;
};

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <checkin/CheckinModel.h>
#include <checkin/PomodoroTimer.h>
#include <core/Text.h>
#include <daily/DailyNoteManager.h>
#include <platform/RunLoop.h>
#include <signals/SignalManager.h>

#include <utility>

namespace flitmark {

CheckinModel::CheckinModel(DailyNoteManager& dailyNoteManager, SignalManager& signalManager, RunLoop& runLoop,
                           DismissCallback onDismiss)
    : m_dailyNoteManager(dailyNoteManager)
    , m_signalManager(signalManager)
    , m_runLoop(runLoop)
    , m_onDismiss(std::move(onDismiss))
{
    connect(&dailyNoteManager, &DailyNoteManager::todayNoteChanged, this, &CheckinModel::noteChanged);
    connect(&signalManager, &SignalManager::coachConfigChanged, this, &CheckinModel::snoozeTitleChanged);
}

QString CheckinModel::countText() const
{
    const qint64 count = m_dailyNoteManager.todayNote().pomodoroCount;
    return count >= 1 ? QString::number(count) + QStringLiteral("×🍅") : QString();
}

QString CheckinModel::focusText() const
{
    const QString focus = plannedFocus();
    return focus.isEmpty() ? tr("No focus") : shortened(focus);
}

/// Today's focus, as the user reads it.
QString CheckinModel::plannedFocus() const
{
    const DailyNote& note = m_dailyNoteManager.todayNote();
    // What stands there without a note is ours, and goes into files as it is.
    return note.exists || note.focus.isEmpty() ? note.focus : tr("No daily note for today");
}

QString CheckinModel::snoozeTitle() const
{
    return tr("Snooze %1m").arg(pomodoroInterval(m_signalManager.coachConfig().pomodoroIntervalMinutes).count());
}

QString CheckinModel::timeText() const
{
    return m_runLoop.now().toString(u"HH:mm");
}

QString CheckinModel::entryLabel() const
{
    return isCompletingTask() ? tr("What's next?") : tr("New focus:");
}

QString CheckinModel::submitTitle() const
{
    return isCompletingTask() ? tr("Start") : tr("Save");
}

void CheckinModel::setNewFocus(const QString& text)
{
    if (m_newFocus != text) {
        m_newFocus = text;
        Q_EMIT newFocusChanged();
    }
}

void CheckinModel::setMode(Mode mode, const QString& text)
{
    if (isAnswered()) {
        return;
    }
    setNewFocus(text);
    if (m_mode != mode) {
        m_mode = mode;
        Q_EMIT modeChanged();
    }
}

/// What a finished Pomodoro was spent on.
QString CheckinModel::focusToLog() const
{
    const QString& focus = m_dailyNoteManager.todayNote().focus;
    const QString task = m_dailyNoteManager.runningTask();
    return !focus.isEmpty() ? focus : !task.isEmpty() ? task : QStringLiteral("Working");
}

void CheckinModel::completePomodoro()
{
    answerOnFreshNote([this] { return logCompleted(); });
}

CheckinResponse CheckinModel::logCompleted()
{
    // Both before the entry is logged, which may bring another state of the note.
    const QString focus = focusToLog();
    const qint64 count = m_dailyNoteManager.todayNote().pomodoroCount;
    m_dailyNoteManager.addPomodoroEntry(focus);
    m_signalManager.writeDailyFocus(focus, QStringLiteral("active"), count + 1);
    return {Response::Kind::onTrack};
}

void CheckinModel::startCompletingTask()
{
    setMode(Mode::CompletingTask, QString());
}

void CheckinModel::startFocusUpdate()
{
    setMode(Mode::UpdatingFocus, plannedFocus());
}

void CheckinModel::cancel()
{
    setMode(Mode::Answers, QString());
}

void CheckinModel::submit()
{
    const QString text = trimSpaces(m_newFocus).toString();
    if (m_mode == Mode::Answers || text.isEmpty()) {
        return;
    }
    answerOnFreshNote(
        [this, text] { return isCompletingTask() ? completeAndStartNew(text) : confirmFocusUpdate(text); });
}

/// The Pomodoro goes to the focus it was spent on.
CheckinResponse CheckinModel::completeAndStartNew(const QString& text)
{
    m_dailyNoteManager.addPomodoroEntry(focusToLog());
    m_dailyNoteManager.updateFocus(text);
    return {Response::Kind::completedAndNew, text};
}

CheckinResponse CheckinModel::confirmFocusUpdate(const QString& text)
{
    if (m_dailyNoteManager.updateFocus(text)) {
        m_dailyNoteManager.addPomodoroEntry(text);
    }
    return {Response::Kind::updatedFocus, text};
}

void CheckinModel::snooze()
{
    answer({Response::Kind::snoozed});
}

void CheckinModel::dismiss()
{
    answer({Response::Kind::dismissed});
}

void CheckinModel::answer(const Response& response)
{
    // The callback may destroy this object.
    if (const DismissCallback onDismiss = std::exchange(m_onDismiss, nullptr)) {
        onDismiss(response);
    }
}

void CheckinModel::answerOnFreshNote(std::function<Response()> act)
{
    if (isAnswered()) {
        return;
    }
    m_dailyNoteManager.loadTodayNote();
    // After the load has published. The callback may destroy this object.
    m_runLoop.async(this,
                    [act = std::move(act), onDismiss = std::exchange(m_onDismiss, nullptr)] { onDismiss(act()); });
}

} // namespace flitmark

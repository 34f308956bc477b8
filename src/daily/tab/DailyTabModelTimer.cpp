// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <checkin/CheckinWindowController.h>
#include <checkin/PomodoroTimer.h>
#include <core/Text.h>
#include <daily/DailyNoteManager.h>
#include <daily/tab/DailyTabModel.h>
#include <platform/NotificationCenter.h>
#include <signals/SignalManager.h>

namespace flitmark {

namespace {

/// What the signal files call the answers.
QString responseText(DailyTabModel::AlertResponse response)
{
    switch (response) {
    case DailyTabModel::AlertResponse::IntentionalChange:
        return QStringLiteral("intentional_pivot");
    case DailyTabModel::AlertResponse::Refocusing:
        return QStringLiteral("refocusing");
    case DailyTabModel::AlertResponse::Snooze:
        return QStringLiteral("snooze");
    }
    Q_UNREACHABLE();
}

} // namespace

void DailyTabModel::setShowPomodoroTaskPicker(bool isShown)
{
    if (m_showPomodoroTaskPicker != isShown) {
        m_showPomodoroTaskPicker = isShown;
        Q_EMIT showPomodoroTaskPickerChanged();
    }
}

bool DailyTabModel::hasTasks() const
{
    return !m_services.dailyNoteManager.todayNote().tasks.isEmpty();
}

QString DailyTabModel::intervalText() const
{
    const qint64 configured = m_services.signalManager.coachConfig().pomodoroIntervalMinutes;
    return tr("Interval: %1 min").arg(pomodoroInterval(configured).count());
}

bool DailyTabModel::isTimerPaused() const
{
    return m_services.checkinController.isPaused();
}

void DailyTabModel::setActiveTask(std::optional<qint64> lineNumber)
{
    if (m_activeTaskLineNumber != lineNumber) {
        m_activeTaskLineNumber = lineNumber;
        Q_EMIT activeTaskLineNumberChanged();
    }
}

void DailyTabModel::startPomodoro(qint64 lineNumber)
{
    setActiveTask(lineNumber);
    const DailyNote& note = m_services.dailyNoteManager.todayNote();
    m_activeTaskPath = note.path;
    const auto task = std::find_if(note.tasks.begin(), note.tasks.end(),
                                   [lineNumber](const TaskItem& item) { return item.lineNumber == lineNumber; });
    m_services.dailyNoteManager.setRunningTask(task != note.tasks.end() ? task->text : QString());
    setShowPomodoroTaskPicker(false);
    m_services.checkinController.startPomodoroTimer();
    observeCompletion();
}

void DailyTabModel::observeCompletion()
{
    disconnect(m_pomodoroCompletionObserver);
    m_pomodoroCompletionObserver =
        connect(&m_services.notificationCenter, &NotificationCenter::pomodoroCompleted, this, [this] {
            // In another day's note the line is another task's.
            if (m_services.dailyNoteManager.todayNote().path == m_activeTaskPath) {
                m_services.dailyNoteManager.addPomodoroToTask(*m_activeTaskLineNumber);
            }
        });
}

void DailyTabModel::pauseOrResume()
{
    if (isTimerPaused()) {
        m_services.checkinController.resumeTimer();
    } else {
        m_services.checkinController.pauseTimer();
    }
}

void DailyTabModel::resetTimer()
{
    m_services.checkinController.restartTimer();
}

void DailyTabModel::stopPomodoro()
{
    m_services.checkinController.stopPomodoroTimer();
    disconnect(m_pomodoroCompletionObserver);
    setActiveTask(std::nullopt);
    m_services.dailyNoteManager.setRunningTask(QString());
}

void DailyTabModel::setShowCoachAlert(bool isShown)
{
    if (m_showCoachAlert != isShown) {
        m_showCoachAlert = isShown;
        Q_EMIT showCoachAlertChanged();
    }
}

/// An alert that comes while the tab is out of sight is shown with the tab.
void DailyTabModel::followAlert()
{
    Q_EMIT alertChanged();
    if (m_isShown && m_services.signalManager.currentAlert()) {
        setShowCoachAlert(true);
    }
}

void DailyTabModel::closeCoachAlert()
{
    setShowCoachAlert(false);
}

QString DailyTabModel::alertPlanned() const
{
    const std::optional<CoachAlert>& alert = m_services.signalManager.currentAlert();
    return alert ? shortened(alert->planned) : QString();
}

QString DailyTabModel::alertActual() const
{
    const std::optional<CoachAlert>& alert = m_services.signalManager.currentAlert();
    return alert ? shortened(alert->actual) : QString();
}

void DailyTabModel::respondToAlert(AlertResponse response)
{
    // A copy: the answer withdraws the alert.
    const std::optional<CoachAlert> alert = m_services.signalManager.currentAlert();
    if (!alert || !m_showCoachAlert) {
        return;
    }
    m_services.signalManager.writeUserResponse(alert->alertId, responseText(response), QString());
    if (response == AlertResponse::Refocusing) {
        m_services.dailyNoteManager.updateFocus(alert->planned);
    }
    setShowCoachAlert(false);
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <checkin/CheckinWindowController.h>
#include <core/Text.h>
#include <daily/DailyNoteManager.h>
#include <daily/tab/DailyTabModel.h>
#include <platform/NotificationCenter.h>
#include <signals/SignalManager.h>

#include <QLocale>

#include <algorithm>

namespace flitmark {

namespace {

QStringList shownLines(QStringList lines)
{
    std::transform(lines.cbegin(), lines.cend(), lines.begin(), shortened);
    return lines;
}

} // namespace

DailyTabModel::DailyTabModel(const Services& services, DemoMode demoMode)
    : m_services(services)
    , m_demoMode(demoMode)
{
    connect(&services.dailyNoteManager, &DailyNoteManager::todayNoteChanged, this, &DailyTabModel::noteChanged);
    connect(&services.dailyNoteManager, &DailyNoteManager::isLoadingChanged, this, &DailyTabModel::noteChanged);
    connect(&services.dailyNoteManager, &DailyNoteManager::focusNotWritten, this, &DailyTabModel::keepFocus);
    connect(&services.signalManager, &SignalManager::coachConfigChanged, this, &DailyTabModel::intervalTextChanged);
    connect(&services.signalManager, &SignalManager::currentAlertChanged, this, &DailyTabModel::followAlert);
    connect(&services.checkinController, &CheckinWindowController::stateChanged, this,
            &DailyTabModel::timerStateChanged);
}

void DailyTabModel::tabShown()
{
    m_isShown = true;
    if (m_activeTaskLineNumber) {
        observeCompletion();
    }
    refresh();
    if (m_demoMode == DemoMode::Off && m_services.signalManager.currentAlert()) {
        setShowCoachAlert(true);
    }
}

void DailyTabModel::tabHidden()
{
    m_isShown = false;
    disconnect(m_pomodoroCompletionObserver);
}

QString DailyTabModel::headerDate() const
{
    //: How a date is written, in QLocale's pattern letters: "Thursday, Jan 22".
    return QLocale().toString(m_services.runLoop.now().date(), tr("dddd, MMM d", "date pattern"));
}

DailyTabModel::Body DailyTabModel::body() const
{
    if (m_demoMode == DemoMode::On) {
        return Body::Demo;
    }
    if (m_services.dailyNoteManager.isLoading()) {
        return Body::Loading;
    }
    return m_services.dailyNoteManager.todayNote().exists ? Body::Note : Body::NoNote;
}

void DailyTabModel::refresh()
{
    if (m_demoMode == DemoMode::Off) {
        m_services.dailyNoteManager.loadTodayNote();
    }
}

void DailyTabModel::openInObsidian()
{
    if (!m_services.dailyNoteManager.openInObsidian()) {
        Q_EMIT noProgramFound();
    }
}

void DailyTabModel::createInObsidian()
{
    if (!m_services.dailyNoteManager.createInObsidian()) {
        Q_EMIT noProgramFound();
    }
}

void DailyTabModel::openFile()
{
    m_services.dailyNoteManager.openFile();
}

void DailyTabModel::openLink(const TextSpan& link)
{
    if (!m_services.dailyNoteManager.openLink(link)) {
        Q_EMIT noProgramFound();
    }
}

QString DailyTabModel::noteDescription() const
{
    const DailyNote& note = m_services.dailyNoteManager.todayNote();
    if (m_demoMode == DemoMode::On || !note.exists) {
        return {};
    }
    switch (note.rule) {
    case DailyNoteRule::FixedPlace:
        return tr("%1, the fixed place").arg(note.pathInVault);
    case DailyNoteRule::PeriodicNotes:
        return tr("%1, by the settings of Periodic Notes").arg(note.pathInVault);
    case DailyNoteRule::DailyNotes:
        return tr("%1, by Obsidian's settings of daily notes").arg(note.pathInVault);
    }
    return {};
}

QString DailyTabModel::placesText() const
{
    return tr("Looked for:") + u'\n' + m_services.dailyNoteManager.todayNote().places.join(u'\n');
}

bool DailyTabModel::alwaysShowsTasks() const
{
    const DailyNote& note = m_services.dailyNoteManager.todayNote();
    return note.exists && note.rule != DailyNoteRule::FixedPlace;
}

QString DailyTabModel::focusText() const
{
    return hasFocus() ? shortened(m_services.dailyNoteManager.todayNote().focus) : tr("No focus set");
}

bool DailyTabModel::hasFocus() const
{
    return !m_services.dailyNoteManager.todayNote().focus.isEmpty();
}

QStringList DailyTabModel::coachNotes() const
{
    return shownLines(m_services.dailyNoteManager.todayNote().coachNotes);
}

QStringList DailyTabModel::workDone() const
{
    QStringList entries = shownLines(m_services.dailyNoteManager.todayNote().workDone);
    std::reverse(entries.begin(), entries.end());
    return entries;
}

void DailyTabModel::setEditedFocus(const QString& text)
{
    if (m_editedFocus != text) {
        m_editedFocus = text;
        Q_EMIT editedFocusChanged();
    }
}

QString DailyTabModel::saveFocusTitle() const
{
    return isSettingNewFocus() ? tr("Start") : tr("Save");
}

void DailyTabModel::setFocusEditor(FocusEditor state)
{
    if (m_focusEditor != state) {
        m_focusEditor = state;
        Q_EMIT focusEditorChanged();
    }
}

void DailyTabModel::editFocus()
{
    setEditedFocus(m_services.dailyNoteManager.todayNote().focus);
    setFocusEditor(FocusEditor::Editing);
}

void DailyTabModel::markFocusDone()
{
    if (hasFocus()) {
        setEditedFocus(QString());
        setFocusEditor(FocusEditor::SettingNew);
    }
}

void DailyTabModel::saveFocus()
{
    if (m_focusEditor == FocusEditor::Closed) {
        return;
    }
    const QString focus = trimSpaces(m_editedFocus).toString();
    if (focus.isEmpty() || m_services.dailyNoteManager.updateFocus(focus)) {
        setFocusEditor(FocusEditor::Closed);
    }
}

void DailyTabModel::keepFocus(const QString& focus)
{
    if (m_focusEditor == FocusEditor::Closed) {
        setEditedFocus(focus);
        setFocusEditor(FocusEditor::Editing);
    }
}

void DailyTabModel::cancelFocus()
{
    setFocusEditor(FocusEditor::Closed);
}

void DailyTabModel::toggleTask(qint64 lineNumber)
{
    m_services.dailyNoteManager.toggleTask(lineNumber);
}

void DailyTabModel::removeTomato(qint64 lineNumber)
{
    m_services.dailyNoteManager.removePomodoroFromTask(lineNumber);
}

void DailyTabModel::setNewTaskText(const QString& text)
{
    if (m_newTaskText != text) {
        m_newTaskText = text;
        Q_EMIT newTaskTextChanged();
    }
}

void DailyTabModel::setAddingTask(bool isAdding)
{
    if (m_isAddingTask != isAdding) {
        m_isAddingTask = isAdding;
        Q_EMIT isAddingTaskChanged();
    }
}

void DailyTabModel::startAddingTask()
{
    setAddingTask(true);
}

void DailyTabModel::saveNewTask()
{
    const QString text = trimSpaces(m_newTaskText).toString();
    if (text.isEmpty()) {
        return;
    }
    if (m_services.dailyNoteManager.addNewTask(text)) {
        cancelNewTask();
    }
}

void DailyTabModel::cancelNewTask()
{
    setNewTaskText(QString());
    setAddingTask(false);
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/TriggerMenu.h>
#include <checkin/CheckinWindowController.h>
#include <platform/NotificationCenter.h>

namespace flitmark {

TriggerMenu::TriggerMenu(CheckinWindowController& controller, NotificationCenter& notificationCenter,
                         WindowManager& windowManager, QWidget* parent)
    : Menu(windowManager, parent)
{
    setWindowTitle(tr("Flitmark Menu"));
    setAccessibleName(windowTitle());
    connect(addItem(tr("Settings..."), QKeySequence(Qt::CTRL | Qt::Key_Comma)), &QAction::triggered, this,
            &TriggerMenu::settingsChosen);
    connect(addItem(tr("Help...")), &QAction::triggered, &notificationCenter, &NotificationCenter::showHelp);
    addSeparator();
    addPomodoroItems(controller, notificationCenter);
    addSeparator();
    connect(addItem(tr("Quit Flitmark"), QKeySequence(Qt::CTRL | Qt::Key_Q)), &QAction::triggered, this,
            &TriggerMenu::quitChosen);
}

void TriggerMenu::addPomodoroItems(CheckinWindowController& controller, NotificationCenter& notificationCenter)
{
    if (!controller.isRunning()) {
        connect(addItem(tr("Start Pomodoro Timer")), &QAction::triggered, &controller,
                &CheckinWindowController::startPomodoroTimer);
        return;
    }
    if (controller.isPaused()) {
        connect(addItem(tr("Resume Check-ins")), &QAction::triggered, &controller,
                &CheckinWindowController::resumeTimer);
    } else {
        connect(addItem(tr("Pause Check-ins")), &QAction::triggered, &controller, &CheckinWindowController::pauseTimer);
    }
    connect(addItem(tr("Stop Pomodoro Timer")), &QAction::triggered, &controller, [&controller, &notificationCenter] {
        controller.stopPomodoroTimer();
        // Nothing follows a stopped timer: the ring has to be told.
        Q_EMIT notificationCenter.pomodoroTimerUpdated(0.0);
    });
}

} // namespace flitmark

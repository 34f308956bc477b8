// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui/Menu.h>

namespace flitmark {

class CheckinWindowController;
class NotificationCenter;

/// The trigger button's menu: settings and help, what can be done with the Pomodoro as it is when the menu is made, and
/// quitting.
class TriggerMenu final : public Menu
{
    Q_OBJECT

public:
    /// The services must outlive the menu.
    TriggerMenu(CheckinWindowController& controller, NotificationCenter& notificationCenter,
                WindowManager& windowManager, QWidget* parent);
    Q_DISABLE_COPY_MOVE(TriggerMenu)

Q_SIGNALS:
    void settingsChosen();
    void quitChosen();

private:
    void addPomodoroItems(CheckinWindowController& controller, NotificationCenter& notificationCenter);
};

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

namespace flitmark {

/// The announcements the rooms make to each other inside the process. Observers connect to a signal with themselves as
/// the context and are called at once, on the main thread.
class NotificationCenter final : public QObject
{
    Q_OBJECT

public:
    NotificationCenter() = default;
    Q_DISABLE_COPY_MOVE(NotificationCenter)

Q_SIGNALS:
    /// What remains of the running Pomodoro, 0.0 to 1.0.
    void pomodoroTimerUpdated(double remainingRatio);
    /// A Pomodoro ended inside the check-in window.
    void pomodoroCompleted();
    /// The note panel has been on screen for a moment.
    void panelOpened();
    void showDailyTab();
    void showBrowseTab();
    void showNewTab();
    void showHelp();
    /// The settings were saved; the window mode may have changed.
    void windowModeChanged();
};

} // namespace flitmark

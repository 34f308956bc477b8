// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <setup/SetupWizardModel.h>

#include <QWidget>

namespace flitmark {

class Dialogs;
class KeyMonitor;

/// The window of the setup wizard: an ordinary window of the desktop, of fixed size. Closing it changes nothing.
class SetupWizardWindow final : public QWidget
{
    Q_OBJECT

public:
    SetupWizardWindow(ConfigManager& configManager, const Directories& directories, Dialogs& dialogs,
                      const KeyMonitor& keyMonitor);
    Q_DISABLE_COPY_MOVE(SetupWizardWindow)

    /// Shows the window in the middle of the main screen, with the keyboard.
    void showCentered();

Q_SIGNALS:
    /// The user has finished and the choices are stored.
    void completed();

private:
    SetupWizardModel m_model;
};

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <settings/SettingsModel.h>

#include <QWidget>

namespace flitmark {

class Dialogs;
class SettingsView;
struct HelpServices;

/// The settings window: an ordinary window of the desktop. It closes itself. Closed in any way but "Done" it drops what
/// was not stored yet, but asks before it does. It is made anew for each opening.
class SettingsWindow final : public QWidget
{
    Q_OBJECT

public:
    /// All of it must outlive the window.
    SettingsWindow(const SettingsModel::Services& services, Dialogs& dialogs, const HelpServices& help);
    Q_DISABLE_COPY_MOVE(SettingsWindow)

    /// Shows the window in the middle of the main screen, or brings it to the front, with the keyboard.
    void showCentered();

Q_SIGNALS:
    /// The window is closed.
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void askAboutChanges();

    SettingsModel m_model;
    Dialogs& m_dialogs;
    bool m_isAsking = false;
};

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <settings/HelpServices.h>
#include <ui/SchemeFollower.h>

#include <QWidget>

namespace flitmark {

class ConfigManager;

/// The window of the help: an ordinary window of the desktop. Closed, it is gone.
class HelpWindow final : public QWidget
{
    Q_OBJECT

public:
    HelpWindow(ConfigManager& configManager, const HelpServices& services);
    Q_DISABLE_COPY_MOVE(HelpWindow)

    /// Shows the window in the middle of the main screen, with the keyboard.
    void showCentered();

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    SchemeFollower m_scheme;
};

} // namespace flitmark

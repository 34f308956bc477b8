// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <config/ConfigManager.h>
#include <setup/SetupWizardView.h>
#include <setup/SetupWizardWindow.h>

#include <QGuiApplication>
#include <QScreen>
#include <QVBoxLayout>

namespace flitmark {

SetupWizardWindow::SetupWizardWindow(ConfigManager& configManager, const Directories& directories, Dialogs& dialogs)
    : QWidget(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                           Qt::WindowCloseButtonHint)
    , m_model(configManager, directories)
{
    setWindowTitle(tr("Flitmark Setup"));
    auto* view = new SetupWizardView(m_model, dialogs, configManager.config().colorPalette, this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(view);
    view->setLocalHotkeyLine(
        tr("On this computer: the hotkey is not available yet. The round button at the bottom right opens the panel."));
    connect(&m_model, &SetupWizardModel::completed, this, &SetupWizardWindow::completed);
}

void SetupWizardWindow::showCentered()
{
    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        adjustSize();
        QRect frame(QPoint(0, 0), size());
        frame.moveCenter(screen->availableGeometry().center());
        move(frame.topLeft());
    }
    show();
    raise();
    activateWindow();
}

} // namespace flitmark

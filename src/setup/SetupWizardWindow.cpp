// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <config/ConfigManager.h>
#include <platform/KeyMonitor.h>
#include <platform/OnThisComputer.h>
#include <setup/SetupWizardView.h>
#include <setup/SetupWizardWindow.h>
#include <ui/AccessibleRole.h>
#include <ui/OrdinaryWindow.h>

#include <QVBoxLayout>

namespace flitmark {

SetupWizardWindow::SetupWizardWindow(ConfigManager& configManager, const Directories& directories, Dialogs& dialogs,
                                     const KeyMonitor& keyMonitor)
    : QWidget(nullptr, closableWindow)
    , m_model(configManager, directories)
{
    setWindowTitle(tr("Flitmark Setup"));
    setAccessibleRole(*this, QAccessible::Window);
    auto* view = new SetupWizardView(m_model, dialogs, configManager.config().colorPalette, this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(view);
    const auto tellOfHotkey = [view, &keyMonitor] {
        view->setLocalHotkeyLine(onThisComputer::hotkeyToPress(keyMonitor.state()));
    };
    tellOfHotkey();
    connect(&keyMonitor, &KeyMonitor::stateChanged, this, tellOfHotkey);
    connect(&m_model, &SetupWizardModel::completed, this, &SetupWizardWindow::completed);
}

void SetupWizardWindow::showCentered()
{
    centreOnScreen(*this);
    makeKeyAndOrderFront(*this);
}

} // namespace flitmark

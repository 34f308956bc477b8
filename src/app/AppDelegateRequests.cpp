// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/AppDelegate.h>
#include <app/PanelWindow.h>
#include <app/TriggerButtonWindow.h>
#include <app/UpdateWindow.h>
#include <config/ConfigManager.h>
#include <platform/AppUpdateController.h>
#include <platform/Dialogs.h>
#include <platform/LoginItemManager.h>
#include <platform/NotificationCenter.h>
#include <platform/RunLoop.h>
#include <platform/UserDefaults.h>
#include <platform/WindowManager.h>
#include <settings/HelpWindow.h>
#include <settings/SettingsWindow.h>
#include <setup/SetupWizardWindow.h>
#include <ui/OrdinaryWindow.h>

#include <QCoreApplication>
#include <QShortcut>
#include <QWindow>

namespace flitmark {

namespace {

QString launchAtLoginPromptKey()
{
    return QStringLiteral("FlitmarkLaunchAtLoginPrompted");
}

/// Tells the desktop, which gave `token` for it, that `window` is what it waits for.
void answerActivation(WindowManager& windowManager, QWidget& window, const QString& token)
{
    if (!token.isEmpty()) {
        window.winId();
        windowManager.answerActivation(*window.windowHandle(), token);
    }
}

} // namespace

void AppDelegate::activate(const QString& activationToken)
{
    QWidget* window = m_panelWindow ? static_cast<QWidget*>(m_panelWindow.get()) : m_setupWindow.get();
    if (window == nullptr) {
        return;
    }
    answerActivation(m_services.windowManager, *window, activationToken);
    if (m_panelWindow) {
        showPanel();
    } else {
        m_setupWindow->showCentered();
    }
}

void AppDelegate::perform(AppAction action, const QString& activationToken)
{
    switch (action) {
    case AppAction::Help:
        Q_EMIT m_services.notificationCenter.showHelp();
        return;
    case AppAction::Quit:
        // After the answer to whoever asked.
        m_services.runLoop.async(this, quit);
        return;
    default:
        break;
    }
    if (!m_panelWindow) {
        activate(activationToken);
        return;
    }
    answerActivation(m_services.windowManager, *m_panelWindow, activationToken);
    if (action == AppAction::TogglePanel) {
        togglePanel();
    } else if (action == AppAction::Daily) {
        Q_EMIT m_services.notificationCenter.showDailyTab();
    } else {
        showSettingsWindow();
    }
}

void AppDelegate::quit()
{
    QCoreApplication::exit(0);
}

void AppDelegate::addQuitKey(QWidget& window)
{
    auto* shortcut = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q), &window);
    connect(shortcut, &QShortcut::activated, this, quit);
}

void AppDelegate::promptForLaunchAtLoginIfNeeded()
{
    if (m_services.userDefaults.boolean(launchAtLoginPromptKey(), false)) {
        return;
    }
    m_services.loginItemManager.refresh();
    if (m_services.loginItemManager.isEnabled()) {
        m_services.userDefaults.setBoolean(launchAtLoginPromptKey(), true);
        return;
    }
    const Dialogs::Question question{
        .message = tr("Start Flitmark automatically?"),
        .details = tr("Flitmark works best when the floating capture button and Option+N hotkey are available after "
                      "login."),
        .hotkey = &m_services.keyMonitor,
        .buttons = {tr("Enable Auto-Start"), tr("Not Now")},
    };
    m_services.dialogs.ask(question, [this, guard = QPointer(this)](qsizetype button) {
        if (guard == nullptr) {
            return;
        }
        m_services.userDefaults.setBoolean(launchAtLoginPromptKey(), true);
        if (button == 0) {
            enableLaunchAtLogin();
        }
    });
}

void AppDelegate::enableLaunchAtLogin()
{
    LoginItemManager& loginItem = m_services.loginItemManager;
    if (!loginItem.setEnabled(true) && loginItem.lastError()) {
        m_services.dialogs.ask({.message = tr("Auto-Start could not be enabled"),
                                .details = *loginItem.lastError(),
                                .buttons = {tr("OK")}},
                               [](qsizetype) {});
    }
}

void AppDelegate::showUpdateWindow()
{
    Updater& updater = m_services.updateController.updater();
    if (!m_updateWindow) {
        m_updateWindow = std::make_unique<UpdateWindow>(updater, m_services.workspace);
        addQuitKey(*m_updateWindow);
    }
    // The user's own check is under way when it asks for attention, an automatic one has its result by then.
    const bool isFound = updater.state().status == Updater::Status::Available;
    m_updateWindow->showCentered(m_services.configManager.config().colorPalette,
                                 isFound ? UpdateWindow::Keyboard::Leave : UpdateWindow::Keyboard::Take);
}

void AppDelegate::showHelpWindow()
{
    if (m_helpWindow != nullptr && m_helpWindow->isVisible()) {
        makeKeyAndOrderFront(*m_helpWindow);
        return;
    }
    m_helpWindow =
        new HelpWindow(m_services.configManager, {m_services.directories, m_services.keyMonitor, m_services.workspace});
    addQuitKey(*m_helpWindow);
    m_helpWindow->showCentered();
}

void AppDelegate::showSettingsWindow()
{
    if (!m_settingsWindow) {
        m_settingsWindow = std::make_unique<SettingsWindow>(
            SettingsModel::Services{
                .configManager = m_services.configManager,
                .signalManager = m_services.signalManager,
                .checkinController = m_services.checkinWindowController,
                .loginItemManager = m_services.loginItemManager,
                .updateController = m_services.updateController,
                .notificationCenter = m_services.notificationCenter,
                .dailyNoteManager = m_services.dailyNoteManager,
            },
            m_services.dialogs, HelpServices{m_services.directories, m_services.keyMonitor, m_services.workspace});
        // Its closing is the caller: it goes when that has returned.
        connect(
            m_settingsWindow.get(), &SettingsWindow::closed, this,
            [this] { m_settingsWindow.release()->deleteLater(); }, Qt::SingleShotConnection);
        addQuitKey(*m_settingsWindow);
    }
    m_settingsWindow->showCentered();
    if (m_isPanelVisible) {
        m_services.windowManager.keepAbove(*m_settingsWindow->windowHandle(), *m_panelWindow->windowHandle());
    }
}

} // namespace flitmark

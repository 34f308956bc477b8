// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/AppDelegate.h>
#include <app/PanelWindow.h>
#include <app/Placement.h>
#include <app/TriggerButtonView.h>
#include <app/TriggerButtonWindow.h>
#include <app/TriggerMenu.h>
#include <app/UpdateWindow.h>
#include <capture/BrowseModel.h>
#include <capture/NotePanelModel.h>
#include <capture/NotePanelView.h>
#include <checkin/CheckinWindowController.h>
#include <config/ConfigManager.h>
#include <daily/tab/DailyTabModel.h>
#include <platform/AppUpdateController.h>
#include <platform/Dialogs.h>
#include <platform/KeyMonitor.h>
#include <platform/NotificationCenter.h>
#include <platform/RunLoop.h>
#include <platform/Screens.h>
#include <platform/WindowManager.h>
#include <settings/HelpWindow.h>
#include <settings/SettingsWindow.h>
#include <setup/SetupWizardWindow.h>
#include <ui/ThemeScope.h>

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

namespace flitmark {

using namespace std::chrono_literals;

AppDelegate::AppDelegate(const Services& services)
    : m_services(services)
{
    QCoreApplication::instance()->installEventFilter(&m_repeatFilter);
    // The last one is asked first: what is composed comes before all else.
    QCoreApplication::instance()->installEventFilter(&m_compositionFilter);
}

AppDelegate::~AppDelegate()
{
    delete m_helpWindow;
}

void AppDelegate::applicationDidFinishLaunching()
{
    if (isScreenshotMode() || m_services.configManager.config().hasCompletedSetup) {
        setupMainUI();
    } else {
        presentSetupWizard();
    }
    registerGlobalHotkey();
    connect(&m_services.notificationCenter, &NotificationCenter::showHelp, this, &AppDelegate::showHelpWindow);
    connect(&m_services.notificationCenter, &NotificationCenter::showDailyTab, this, &AppDelegate::showPanel);
    handleScreenshotModeIfNeeded();
    connect(&m_services.screens, &Screens::changed, this, &AppDelegate::repositionTriggerButton);
    connect(&m_services.screens, &Screens::changed, this, &AppDelegate::keepPanelReachable);
    connect(&m_services.updateController.updater(), &Updater::attentionAsked, this, &AppDelegate::showUpdateWindow);
}

void AppDelegate::setupMainUI()
{
    setupTriggerButton();
    setupNotePanel();
    m_services.checkinWindowController.startDailyReviewTimer();
    if (!isScreenshotMode()) {
        m_services.runLoop.after(500ms, this, [this] { promptForLaunchAtLoginIfNeeded(); });
    }
}

void AppDelegate::setupTriggerButton()
{
    m_triggerWindow = std::make_unique<TriggerButtonWindow>(m_services.windowManager, m_services.runLoop);
    const auto applyPalette = [this] {
        ThemeScope::set(*m_triggerWindow, themeOfPalette(m_services.configManager.config().colorPalette));
    };
    applyPalette();
    connect(&m_services.configManager, &ConfigManager::configChanged, m_triggerWindow.get(), applyPalette);
    connectTriggerView();

    repositionTriggerButton();
    m_triggerWindow->orderFront();
    connect(m_triggerWindow.get(), &TriggerButtonWindow::moved, this, &AppDelegate::followTriggerWindow);
}

void AppDelegate::connectTriggerView()
{
    TriggerButtonView& view = m_triggerWindow->view();
    connect(this, &AppDelegate::isPanelVisibleChanged, &view,
            [this, &view] { view.setPanelVisible(m_isPanelVisible); });
    connect(&view, &TriggerButtonView::toggled, this, &AppDelegate::togglePanel);
    connect(&view, &TriggerButtonView::draggedTo, this, [this](const QPointF& topLeft) {
        const QRectF frame(topLeft, m_triggerWindow->size());
        setTriggerWindowOrigin(m_services.screens.flipped(frame).topLeft());
    });
    connect(&view, &TriggerButtonView::menuAsked, this, &AppDelegate::showTriggerMenu);
    connect(&m_services.notificationCenter, &NotificationCenter::pomodoroTimerUpdated, &view,
            [this, &view](double remainingRatio) {
                view.setTimerProgress(remainingRatio, m_services.checkinWindowController.minutesRemaining());
            });
}

void AppDelegate::showTriggerMenu(const QPoint& position, Menu::OpenedBy openedBy)
{
    auto* menu = new TriggerMenu(m_services.checkinWindowController, m_services.notificationCenter,
                                 m_services.windowManager, m_triggerWindow.get());
    connect(menu, &TriggerMenu::settingsChosen, this, &AppDelegate::showSettingsWindow);
    connect(menu, &TriggerMenu::quitChosen, this, quit);
    menu->openAt(position, openedBy);
}

void AppDelegate::setupNotePanel()
{
    const DemoMode demoMode = m_services.screenshotMode.demoMode();
    m_panelModel = std::make_unique<NotePanelModel>(m_services.configManager, m_services.draftManager,
                                                    m_services.noteManager, m_services.runLoop, demoMode);
    m_browseModel =
        std::make_unique<BrowseModel>(m_services.configManager, m_services.workspace, m_services.runLoop, demoMode);
    const DailyTabModel::Services dailyServices{
        .dailyNoteManager = m_services.dailyNoteManager,
        .signalManager = m_services.signalManager,
        .checkinController = m_services.checkinWindowController,
        .notificationCenter = m_services.notificationCenter,
        .runLoop = m_services.runLoop,
    };
    m_dailyModel = std::make_unique<DailyTabModel>(dailyServices, demoMode);
    m_panelWindow =
        std::make_unique<PanelWindow>(m_services.windowManager, m_services.configManager,
                                      NotePanelModels{*m_panelModel, *m_browseModel, *m_dailyModel}, demoMode);
    m_panelWindow->keepFreeFor(m_triggerWindow->geometry());
    // Some desktops lay whatever gets the keyboard on top of all.
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, m_panelWindow.get(), [this](const QWindow* window) {
        if (window != nullptr && window == m_panelWindow->windowHandle()) {
            m_triggerWindow->raise();
        }
    });
    connect(m_panelWindow.get(), &FloatingWindow::closeAsked, this, &AppDelegate::hidePanel);
    connect(&m_panelWindow->view(), &NotePanelView::closeAsked, this, &AppDelegate::hidePanel);
    connect(&m_panelWindow->view(), &NotePanelView::settingsAsked, this, &AppDelegate::showSettingsWindow);
    connect(&m_panelWindow->view(), &NotePanelView::menuAsked, &m_triggerWindow->view(),
            &TriggerButtonView::askForMenu);
    addQuitKey(*m_panelWindow);
    connect(m_panelModel.get(), &NotePanelModel::closeRequested, this, &AppDelegate::hidePanel);

    const NotificationCenter* center = &m_services.notificationCenter;
    connect(center, &NotificationCenter::windowModeChanged, m_panelWindow.get(), &PanelWindow::applyWindowMode);
    NotePanelModel* model = m_panelModel.get();
    connect(center, &NotificationCenter::panelOpened, model, &NotePanelModel::panelOpened);
    connect(center, &NotificationCenter::showNewTab, model,
            [model] { model->setSelectedTab(NotePanelModel::Tab::newNote); });
    connect(center, &NotificationCenter::showBrowseTab, model,
            [model] { model->setSelectedTab(NotePanelModel::Tab::browse); });
    connect(center, &NotificationCenter::showDailyTab, model,
            [model] { model->setSelectedTab(NotePanelModel::Tab::daily); });
    if (isScreenshotMode()) {
        selectScreenshotTab();
    }
    model->panelAppeared();
}

void AppDelegate::presentSetupWizard()
{
    m_setupWindow = std::make_unique<SetupWizardWindow>(m_services.configManager, m_services.directories,
                                                        m_services.dialogs, m_services.keyMonitor);
    connect(m_setupWindow.get(), &SetupWizardWindow::completed, this, &AppDelegate::finishSetupWizard);
    addQuitKey(*m_setupWindow);
    m_setupWindow->showCentered();
}

void AppDelegate::finishSetupWizard()
{
    m_services.runLoop.after(300ms, this, [this] {
        m_setupWindow->hide();
        setupMainUI();
        m_services.runLoop.after(200ms, this, [this] { m_setupWindow.reset(); });
    });
}

void AppDelegate::registerGlobalHotkey()
{
    connect(&m_services.keyMonitor, &KeyMonitor::hotkeyPressed, this, &AppDelegate::answerHotkey);
    // What is typed into our own windows is not reported; it must not write a letter into them either.
    QCoreApplication::instance()->installEventFilter(&m_altKeyFilter);
    m_services.keyMonitor.start();
}

void AppDelegate::answerHotkey()
{
    togglePanel();
    if (m_isPanelVisible) {
        // The desktop has not seen the key, so it would not take our own asking for the user's act.
        m_services.windowManager.activate(m_panelWindow->winId());
    }
    m_services.keyMonitor.giveTypingTo(m_isPanelVisible ? m_panelWindow->winId() : 0);
}

void AppDelegate::togglePanel()
{
    if (!m_panelWindow || !m_triggerWindow) {
        return;
    }
    if (m_isPanelVisible) {
        hidePanel();
    } else {
        showPanel();
    }
}

void AppDelegate::showPanel()
{
    if (!m_panelWindow || !m_triggerWindow) {
        return;
    }
    m_services.dialogs.setQuestionsAside(true);
    m_panelWindow->makeKeyAndOrderFront(panelPlace());
    // Both float; where they meet the button stays above the panel.
    m_services.windowManager.keepAbove(*m_triggerWindow->windowHandle(), *m_panelWindow->windowHandle());
    setPanelVisible(true);
    m_services.runLoop.after(100ms, this, [this] { Q_EMIT m_services.notificationCenter.panelOpened(); });
}

QRect AppDelegate::panelPlace() const
{
    const QSizeF size = m_panelWindow->frameRect().size();
    const QPointF origin = panelOrigin(size, m_services.screens.mainScreen());
    return m_services.screens.flipped(QRectF(origin, size)).toRect();
}

void AppDelegate::keepPanelReachable()
{
    if (m_isPanelVisible && QGuiApplication::screenAt(m_panelWindow->frameRect().center()) == nullptr) {
        m_panelWindow->setFrameRect(panelPlace());
    }
}

void AppDelegate::hidePanel()
{
    if (m_panelWindow) {
        m_panelWindow->orderOut();
        setPanelVisible(false);
        m_services.dialogs.setQuestionsAside(false);
    }
}

void AppDelegate::setPanelVisible(bool isVisible)
{
    if (m_isPanelVisible != isVisible) {
        m_isPanelVisible = isVisible;
        Q_EMIT isPanelVisibleChanged();
    }
}

void AppDelegate::repositionTriggerButton()
{
    const std::optional<ScreenFrames> screen = m_services.screens.mainScreen();
    if (!m_triggerWindow || !screen) {
        return;
    }
    if (m_triggerButtonCustomOrigin) {
        setTriggerWindowOrigin(*m_triggerButtonCustomOrigin);
    } else {
        moveTriggerWindow(defaultTriggerOrigin(m_triggerWindow->size(), *screen));
    }
}

void AppDelegate::setTriggerWindowOrigin(const QPointF& origin)
{
    const std::optional<ScreenFrames> screen = m_services.screens.mainScreen();
    if (!m_triggerWindow || !screen) {
        return;
    }
    m_triggerButtonCustomOrigin = clampedTriggerOrigin(origin, m_triggerWindow->size(), *screen);
    moveTriggerWindow(*m_triggerButtonCustomOrigin);
}

void AppDelegate::followTriggerWindow()
{
    m_triggerButtonCustomOrigin = m_services.screens.flipped(m_triggerWindow->geometry()).topLeft();
    if (m_panelWindow) {
        m_panelWindow->keepFreeFor(m_triggerWindow->geometry());
    }
    if (triggerFrameOnScreen() != m_triggerWindow->geometry()) {
        // While the window manager moves the window, it would not listen.
        m_services.runLoop.after(200ms, this, [this] { m_triggerWindow->setGeometry(triggerFrameOnScreen()); });
    }
}

QRect AppDelegate::triggerFrameOnScreen() const
{
    return constrainedFrame(m_triggerWindow->geometry(), m_triggerWindow->screen()->geometry());
}

void AppDelegate::moveTriggerWindow(const QPointF& origin)
{
    const QRectF frame(origin, QSizeF(m_triggerWindow->size()));
    m_triggerWindow->move(m_services.screens.flipped(frame).topLeft().toPoint());
}

} // namespace flitmark

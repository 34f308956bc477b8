// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <app/AltKeyFilter.h>
#include <app/ScreenshotMode.h>
#include <platform/AppAction.h>
#include <ui/CompositionFilter.h>
#include <ui/Menu.h>
#include <ui/RepeatFilter.h>

#include <QObject>
#include <QPointF>
#include <QPointer>
#include <QRect>

#include <memory>
#include <optional>

namespace flitmark {

class AppUpdateController;
class BrowseModel;
class CheckinWindowController;
class ConfigManager;
class DailyNoteManager;
class DailyTabModel;
class Dialogs;
class DraftManager;
class HelpWindow;
class KeyMonitor;
class LoginItemManager;
class NoteManager;
class NotePanelModel;
class NotificationCenter;
class PanelWindow;
class RunLoop;
class Screens;
class SettingsWindow;
class SetupWizardWindow;
class SignalManager;
class TriggerButtonWindow;
class UpdateWindow;
class UserDefaults;
class WindowManager;
class Workspace;
struct Directories;

/// Starts the program and owns its windows: the setup wizard on the first run, then the trigger button and the note
/// panel. Main thread only.
class AppDelegate final : public QObject
{
    Q_OBJECT

public:
    /// What it works with. All of them must outlive it.
    struct Services
    {
        const Directories& directories;
        RunLoop& runLoop;
        NotificationCenter& notificationCenter;
        ConfigManager& configManager;
        AppUpdateController& updateController;
        CheckinWindowController& checkinWindowController;
        SignalManager& signalManager;
        DailyNoteManager& dailyNoteManager;
        DraftManager& draftManager;
        NoteManager& noteManager;
        Screens& screens;
        WindowManager& windowManager;
        Dialogs& dialogs;
        Workspace& workspace;
        KeyMonitor& keyMonitor;
        LoginItemManager& loginItemManager;
        UserDefaults& userDefaults;
        ScreenshotMode screenshotMode = {};
    };

    explicit AppDelegate(const Services& services);
    ~AppDelegate() override;
    Q_DISABLE_COPY_MOVE(AppDelegate)

    /// The start-up sequence: the wizard if set-up is not complete, else the main interface; then the observers.
    void applicationDidFinishLaunching();

    /// Hides the panel if it is on screen, shows it otherwise. Does nothing until the main interface is there.
    void togglePanel();
    /// Puts the panel into the bottom right corner of the main screen and gives it the keyboard.
    void showPanel();
    void hidePanel();
    /// Brings the help to the front where it is open, else opens it at its first section.
    void showHelpWindow();

    bool isScreenshotMode() const { return m_services.screenshotMode.isOn; }
    const QString& screenshotTab() const { return m_services.screenshotMode.tab; }
    /// In screenshot mode, with a file to write: shows the panel, writes its picture and ends the program.
    void handleScreenshotModeIfNeeded();
    /// Writes a picture of the panel into the file at `path`, whose folder is made. Without a panel, or where it can't
    /// be written, there is none.
    void capturePanelSnapshot(const QString& path);

    /// Shows the program to the user: the panel, or the wizard while set-up is not complete. `activationToken` is what
    /// the desktop gave for it, to let a window come to the front; may be empty.
    void activate(const QString& activationToken);
    /// Does what the desktop asks for. Before set-up is complete there is only the wizard, help and quitting.
    void perform(AppAction action, const QString& activationToken);

    /// Opens the settings, or brings their window to the front.
    void showSettingsWindow();

    bool isPanelVisible() const { return m_isPanelVisible; }

    /// The windows, while they exist; tests look at them.
    PanelWindow* panelWindow() const { return m_panelWindow.get(); }
    TriggerButtonWindow* triggerWindow() const { return m_triggerWindow.get(); }
    SetupWizardWindow* setupWindow() const { return m_setupWindow.get(); }
    SettingsWindow* settingsWindow() const { return m_settingsWindow.get(); }

Q_SIGNALS:
    void isPanelVisibleChanged();

private:
    /// At once: everything is on disk already, so no window is asked whether it may close.
    static void quit();

    void setupMainUI();
    void setupTriggerButton();
    void connectTriggerView();
    void setupNotePanel();
    void showTriggerMenu(const QPoint& position, Menu::OpenedBy openedBy);
    /// Makes Ctrl+Q quit while `window` has the keyboard.
    void addQuitKey(QWidget& window);
    void presentSetupWizard();
    void registerGlobalHotkey();
    void answerHotkey();
    void finishSetupWizard();
    /// Asks once per user whether the program shall start at login.
    void promptForLaunchAtLoginIfNeeded();
    void enableLaunchAtLogin();
    void showUpdateWindow();
    void selectScreenshotTab();
    void announceScreenshotTab();

    void repositionTriggerButton();
    /// Brings the panel back into its corner where the screen it lay on is gone.
    void keepPanelReachable();
    /// Where the panel belongs, in the desktop's coordinates.
    QRect panelPlace() const;
    /// Moves the trigger button to `origin` (the placement rules' coordinates), clamped to the screen, and remembers
    /// it.
    void setTriggerWindowOrigin(const QPointF& origin);
    void moveTriggerWindow(const QPointF& origin);
    /// The trigger button is elsewhere, whoever moved it: remembers the place, and pulls it back onto its screen.
    void followTriggerWindow();
    QRect triggerFrameOnScreen() const;
    void setPanelVisible(bool isVisible);

    Services m_services;
    AltKeyFilter m_altKeyFilter;
    RepeatFilter m_repeatFilter;
    CompositionFilter m_compositionFilter;
    std::unique_ptr<NotePanelModel> m_panelModel;
    std::unique_ptr<BrowseModel> m_browseModel;
    std::unique_ptr<DailyTabModel> m_dailyModel;
    std::unique_ptr<TriggerButtonWindow> m_triggerWindow;
    std::unique_ptr<PanelWindow> m_panelWindow;
    std::unique_ptr<SetupWizardWindow> m_setupWindow;
    std::unique_ptr<UpdateWindow> m_updateWindow;
    /// Goes by itself when it is closed.
    QPointer<HelpWindow> m_helpWindow;
    std::unique_ptr<SettingsWindow> m_settingsWindow;
    /// Where the user last put the trigger button, for this run of the program.
    std::optional<QPointF> m_triggerButtonCustomOrigin;
    bool m_isPanelVisible = false;
};

} // namespace flitmark

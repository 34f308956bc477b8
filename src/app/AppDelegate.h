// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/Directories.h>

#include <QObject>
#include <QPointF>

#include <memory>
#include <optional>

namespace flitmark {

class BrowseModel;
class CheckinWindowController;
class ConfigManager;
class DailyNoteManager;
class DailyTabModel;
class Dialogs;
class DraftManager;
class NoteManager;
class NotePanelModel;
class NotificationCenter;
class PanelWindow;
class RunLoop;
class Screens;
class SetupWizardWindow;
class SignalManager;
class TriggerButtonWindow;
class WindowManager;
class Workspace;

/// What the application delegate works with, in the order in which it comes to life.
struct AppServices
{
    Directories directories;
    RunLoop& runLoop;
    NotificationCenter& notificationCenter;
    ConfigManager& configManager;
    CheckinWindowController& checkinWindowController;
    SignalManager& signalManager;
    DailyNoteManager& dailyNoteManager;
    DraftManager& draftManager;
    NoteManager& noteManager;
    Screens& screens;
    WindowManager& windowManager;
    Dialogs& dialogs;
    Workspace& workspace;

    /// The long-lived services of the process, each made now unless it is there already.
    static AppServices shared();
};

/// Starts the program and owns its windows: the setup wizard on the first run, then the trigger button and the note
/// panel. Main thread only.
class AppDelegate final : public QObject
{
    Q_OBJECT

public:
    explicit AppDelegate(const AppServices& services);
    ~AppDelegate() override;
    Q_DISABLE_COPY_MOVE(AppDelegate)

    /// The start-up sequence: the wizard if set-up is not complete, else the main interface; then the observers.
    void applicationDidFinishLaunching();

    /// Hides the panel if it is on screen, shows it otherwise. Does nothing until the main interface is there.
    void togglePanel();
    /// Puts the panel into the bottom right corner of the main screen and gives it the keyboard.
    void showPanel();
    void hidePanel();

    bool isPanelVisible() const { return m_isPanelVisible; }

    /// The windows, while they exist; tests look at them.
    PanelWindow* panelWindow() const { return m_panelWindow.get(); }
    TriggerButtonWindow* triggerWindow() const { return m_triggerWindow.get(); }
    SetupWizardWindow* setupWindow() const { return m_setupWindow.get(); }

Q_SIGNALS:
    void isPanelVisibleChanged();

private:
    void setupMainUI();
    void setupTriggerButton();
    void connectTriggerView();
    void setupNotePanel();
    void showTriggerMenu(const QPoint& position);
    void presentSetupWizard();
    void finishSetupWizard();

    void repositionTriggerButton();
    /// Moves the trigger button to `origin` (the placement rules' coordinates), clamped to the screen, and remembers
    /// it.
    void setTriggerWindowOrigin(const QPointF& origin);
    void moveTriggerWindow(const QPointF& origin);
    void setPanelVisible(bool isVisible);

    AppServices m_services;
    std::unique_ptr<NotePanelModel> m_panelModel;
    std::unique_ptr<BrowseModel> m_browseModel;
    std::unique_ptr<DailyTabModel> m_dailyModel;
    std::unique_ptr<TriggerButtonWindow> m_triggerWindow;
    std::unique_ptr<PanelWindow> m_panelWindow;
    std::unique_ptr<SetupWizardWindow> m_setupWindow;
    /// Where the user last put the trigger button, for this run of the program.
    std::optional<QPointF> m_triggerButtonCustomOrigin;
    bool m_isPanelVisible = false;
};

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/DemoMode.h>
#include <ui/FloatingWindow.h>

namespace flitmark {

class ConfigManager;
class NotePanelView;
struct NotePanelModels;

/// The window of the note panel. It takes the keyboard when it is shown, gives it back to the window that had it when
/// it is hidden, and keeps the size the user gives it in the configuration.
class PanelWindow final : public FloatingWindow
{
    Q_OBJECT

public:
    static constexpr QSize minimumPanelSize{460, 360};
    static constexpr QSize maximumPanelSize{600, 800};
    /// In pictures of the program.
    static constexpr QSize demoPanelSize{640, 540};

    /// Takes its size from the configuration, and corrects one that is too small there. In demo mode it has a size of
    /// its own and leaves the stored one alone.
    PanelWindow(WindowManager& windowManager, ConfigManager& configManager, const NotePanelModels& models,
                DemoMode demoMode = DemoMode::Off);
    Q_DISABLE_COPY_MOVE(PanelWindow)

    NotePanelView& view() { return *m_view; }

    /// Shows the panel at `frame` (the desktop's coordinates), or brings it there, with the keyboard in its editor.
    void makeKeyAndOrderFront(const QRect& frame);

    /// Tells the panel where the trigger button lies (the desktop's coordinates): where it covers the panel's bottom
    /// right corner, the panel keeps that corner free of controls.
    void keepFreeFor(const QRect& triggerFrame);

    /// A picture of the panel: its frame without the shadow, transparent outside the rounded corners, as sharp as the
    /// screen.
    QImage snapshot();
    /// Takes the window mode up from the configuration: "normal" lets other windows cover the panel.
    void applyWindowMode();

private:
    void takeStoredSize();
    void storeSize();
    void applyLook();
    void layOutCorner();

    ConfigManager& m_configManager;
    NotePanelView* m_view;
    QRect m_triggerFrame;
};

} // namespace flitmark

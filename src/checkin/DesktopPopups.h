// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <checkin/PopupPresenter.h>

#include <memory>

namespace flitmark {

class ConfigManager;
class DailyNoteManager;
class PopupWindow;
class RunLoop;
class Screens;
class SignalManager;
class WindowManager;

/// The popups as windows on the desktop, in the palette of the configuration.
class DesktopPopups final : public PopupPresenter
{
public:
    /// What the popups work with; all of it must outlive them.
    struct Services
    {
        ConfigManager& configManager;
        DailyNoteManager& dailyNoteManager;
        SignalManager& signalManager;
        RunLoop& runLoop;
        Screens& screens;
        WindowManager& windowManager;
    };

    explicit DesktopPopups(const Services& services);
    ~DesktopPopups() override;
    Q_DISABLE_COPY_MOVE(DesktopPopups)

    bool isCheckinVisible() const override;
    void showCheckin(CheckinCallback onDismiss) override;
    void raiseCheckin() override;
    void closeCheckin() override;

    bool isDailyReviewVisible() const override;
    void showDailyReview(DailyReviewCallback onAction) override;
    void raiseDailyReview() override;
    void closeDailyReview() override;

    /// The open windows, or null; tests and pictures look at them.
    PopupWindow* checkinWindow() const { return m_checkin.get(); }
    PopupWindow* dailyReviewWindow() const { return m_dailyReview.get(); }

private:
    void applyPalette(PopupWindow& window);

    Services m_services;
    std::unique_ptr<PopupWindow> m_checkin;
    std::unique_ptr<PopupWindow> m_dailyReview;
};

} // namespace flitmark

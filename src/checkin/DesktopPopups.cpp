// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <checkin/CheckinModel.h>
#include <checkin/CheckinView.h>
#include <checkin/DailyReviewPromptView.h>
#include <checkin/DesktopPopups.h>
#include <checkin/PopupPlacement.h>
#include <checkin/PopupWindow.h>
#include <config/ConfigManager.h>
#include <daily/DailyNoteManager.h>
#include <platform/WindowManager.h>
#include <signals/SignalManager.h>
#include <ui/ThemeScope.h>

#include <QCoreApplication>

#include <memory>
#include <tuple>
#include <utility>

namespace flitmark {

namespace {

/// Hides the window now and destroys it later: it may be in the middle of handing over its answer.
void close(std::unique_ptr<PopupWindow>& window)
{
    if (window) {
        window->orderOut();
        window.release()->deleteLater();
    }
}

bool isOpen(const std::unique_ptr<PopupWindow>& window)
{
    return window && window->isVisible();
}

} // namespace

DesktopPopups::DesktopPopups(const Services& services)
    : m_services(services)
{
}

DesktopPopups::~DesktopPopups() = default;

void DesktopPopups::applyPalette(PopupWindow& window)
{
    const auto apply = [this, &window] {
        ThemeScope::set(window, themeOfPalette(m_services.configManager.config().colorPalette));
    };
    QObject::connect(&m_services.configManager, &ConfigManager::configChanged, &window, apply);
    apply();
}

bool DesktopPopups::isCheckinVisible() const
{
    return isOpen(m_checkin);
}

void DesktopPopups::showCheckin(CheckinCallback onDismiss)
{
    close(m_checkin);
    auto model = std::make_unique<CheckinModel>(m_services.dailyNoteManager, m_services.signalManager,
                                                m_services.runLoop, std::move(onDismiss));
    const PopupWindow::Texts texts{
        QCoreApplication::translate("flitmark::DesktopPopups", "Pomodoro Check-in"),
        QCoreApplication::translate("flitmark::DesktopPopups", "🍅 Pomodoro Check-in"),
    };
    m_checkin =
        std::make_unique<PopupWindow>(m_services.windowManager, m_services.runLoop, texts, new CheckinView(*model));
    PopupWindow& window = *m_checkin;
    model->setParent(&window);
    const auto showCount = [&window, shown = model.get()] { window.setBadge(shown->countText()); };
    QObject::connect(model.get(), &CheckinModel::noteChanged, &window, showCount);
    showCount();
    QObject::connect(&window, &PopupWindow::dismissed, model.get(), &CheckinModel::dismiss);
    std::ignore = model.release();
    applyPalette(window);

    const QSizeF size = window.fittingSize();
    const QRectF frame(checkinOrigin(size, m_services.screens.mainScreen()), size);
    window.setFrameRect(m_services.screens.flipped(frame).toRect());
    window.makeKeyAndOrderFront();
}

void DesktopPopups::raiseCheckin()
{
    if (m_checkin) {
        m_checkin->makeKeyAndOrderFront();
    }
}

void DesktopPopups::closeCheckin()
{
    close(m_checkin);
}

bool DesktopPopups::isDailyReviewVisible() const
{
    return isOpen(m_dailyReview);
}

void DesktopPopups::showDailyReview(DailyReviewCallback onAction)
{
    close(m_dailyReview);
    const PopupWindow::Texts texts{
        QCoreApplication::translate("flitmark::DesktopPopups", "Daily Review"),
        QCoreApplication::translate("flitmark::DesktopPopups", "📝 Daily Review"),
    };
    auto* view = new DailyReviewPromptView;
    m_dailyReview = std::make_unique<PopupWindow>(m_services.windowManager, m_services.runLoop, texts, view);
    PopupWindow& window = *m_dailyReview;
    const auto answer = [pending =
                             std::make_shared<DailyReviewCallback>(std::move(onAction))](DailyReviewAction action) {
        // The callback may destroy the window.
        if (const DailyReviewCallback taken = std::exchange(*pending, nullptr)) {
            taken(action);
        }
    };
    QObject::connect(view, &DailyReviewPromptView::chosen, &window, answer);
    QObject::connect(&window, &PopupWindow::dismissed, &window, [answer] { answer(DailyReviewAction::dismissed); });
    applyPalette(window);

    const QSizeF size = window.fittingSize();
    const QRectF frame(dailyReviewOrigin(size, m_services.screens.mainScreen()), size);
    window.setFrameRect(m_services.screens.flipped(frame).toRect());
    window.makeKeyAndOrderFront();
}

void DesktopPopups::raiseDailyReview()
{
    if (m_dailyReview) {
        m_dailyReview->makeKeyAndOrderFront();
    }
}

void DesktopPopups::closeDailyReview()
{
    close(m_dailyReview);
}

} // namespace flitmark

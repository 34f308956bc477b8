// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <checkin/PopupPresenter.h>

namespace flitmark {

namespace {

/// Shows nothing: the popups have no windows in this version yet. A check-in that is due passes unanswered, and the
/// Pomodoro goes on.
class UnseenPopups final : public PopupPresenter
{
public:
    bool isCheckinVisible() const override { return false; }
    void showCheckin(CheckinCallback /*onDismiss*/) override {}
    void raiseCheckin() override {}
    void closeCheckin() override {}
    bool isDailyReviewVisible() const override { return false; }
    void showDailyReview(DailyReviewCallback /*onAction*/) override {}
    void raiseDailyReview() override {}
    void closeDailyReview() override {}
};

} // namespace

PopupPresenter& PopupPresenter::shared()
{
    static UnseenPopups popups;
    return popups;
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <checkin/PopupPresenter.h>

#include <QStringList>

namespace flitmark {

/// Popups without windows, answered by the test. Remembers what was asked of it.
class TestPopups final : public PopupPresenter
{
public:
    bool isCheckinVisible() const override { return m_onDismiss != nullptr; }
    void showCheckin(CheckinCallback onDismiss) override
    {
        calls.append("show check-in");
        m_onDismiss = std::move(onDismiss);
    }
    void raiseCheckin() override { calls.append("raise check-in"); }
    void closeCheckin() override { m_onDismiss = nullptr; }

    bool isDailyReviewVisible() const override { return m_onAction != nullptr; }
    void showDailyReview(DailyReviewCallback onAction) override
    {
        calls.append("show review");
        m_onAction = std::move(onAction);
    }
    void raiseDailyReview() override { calls.append("raise review"); }
    void closeDailyReview() override { m_onAction = nullptr; }

    /// Answers the open popup, as its window would.
    // By a copy of the callback, which goes while it runs: its popup is closed.
    void answer(const CheckinResponse& response) { CheckinCallback{m_onDismiss}(response); }
    void answer(DailyReviewAction action) { DailyReviewCallback{m_onAction}(action); }

    QStringList calls;

private:
    CheckinCallback m_onDismiss;
    DailyReviewCallback m_onAction;
};

} // namespace flitmark

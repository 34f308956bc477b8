// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <checkin/PopupPresenter.h>

#include <QStringList>

#include <utility>

namespace flitmark {

/// Popups without windows, answered by the test. Remembers what was asked of it.
class TestPopups final : public PopupPresenter
{
public:
    bool isCheckinVisible() const override { return m_onDismiss != nullptr; }
    void showCheckin(CheckinCallback onDismiss) override
    {
        calls.append(QStringLiteral("show check-in"));
        m_onDismiss = std::move(onDismiss);
    }
    void raiseCheckin() override { calls.append(QStringLiteral("raise check-in")); }
    void closeCheckin() override { m_onDismiss = nullptr; }

    bool isDailyReviewVisible() const override { return m_onAction != nullptr; }
    void showDailyReview(DailyReviewCallback onAction) override
    {
        calls.append(QStringLiteral("show review"));
        m_onAction = std::move(onAction);
    }
    void raiseDailyReview() override { calls.append(QStringLiteral("raise review")); }
    void closeDailyReview() override { m_onAction = nullptr; }

    /// Answers the open popup, as its window would.
    void answer(const CheckinResponse& response)
    {
        // A copy: closing the popup drops the callback while it runs.
        const CheckinCallback onDismiss = m_onDismiss;
        onDismiss(response);
    }
    void answer(DailyReviewAction action)
    {
        const DailyReviewCallback onAction = m_onAction;
        onAction(action);
    }

    /// The calls since the last time.
    QStringList takeCalls() { return std::exchange(calls, {}); }

    QStringList calls;

private:
    CheckinCallback m_onDismiss;
    DailyReviewCallback m_onAction;
};

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <checkin/CheckinResponse.h>
#include <checkin/DailyReviewAction.h>

#include <QtGlobal>

#include <functional>

namespace flitmark {

/// Puts the two popups on the screen: the check-in and the daily review reminder. Main thread only.
///
/// A popup that is open is raised, not shown a second time. A window hands its answer to its callback and leaves it to
/// the receiver to close it: from inside that callback, so the window must outlive the call.
class PopupPresenter
{
public:
    using CheckinCallback = std::function<void(const CheckinResponse&)>;
    using DailyReviewCallback = std::function<void(DailyReviewAction)>;

    PopupPresenter() = default;
    virtual ~PopupPresenter() = default;
    Q_DISABLE_COPY_MOVE(PopupPresenter)

    virtual bool isCheckinVisible() const = 0;
    /// Opens a new check-in popup in the top right corner of the main screen and gives it the keyboard. One that is
    /// left over, out of sight, is replaced.
    virtual void showCheckin(CheckinCallback onDismiss) = 0;
    /// Brings the open popup to the front and gives it the keyboard.
    virtual void raiseCheckin() = 0;
    /// Takes the popup away. Without effect when there is none.
    virtual void closeCheckin() = 0;

    // The same for the daily review reminder, which stands below the place of a check-in.
    virtual bool isDailyReviewVisible() const = 0;
    virtual void showDailyReview(DailyReviewCallback onAction) = 0;
    virtual void raiseDailyReview() = 0;
    virtual void closeDailyReview() = 0;
};

} // namespace flitmark

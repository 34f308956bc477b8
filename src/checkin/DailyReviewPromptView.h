// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <checkin/DailyReviewAction.h>

#include <QWidget>

namespace flitmark {

/// The body of the daily review reminder: why it is there, and three things to do about it.
class DailyReviewPromptView final : public QWidget
{
    Q_OBJECT

public:
    explicit DailyReviewPromptView(QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(DailyReviewPromptView)

Q_SIGNALS:
    void chosen(DailyReviewAction action);
};

} // namespace flitmark

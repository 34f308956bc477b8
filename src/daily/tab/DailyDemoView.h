// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

namespace flitmark {

/// What the Daily tab shows in the place of a note in pictures of the program. Nothing in it does anything.
class DailyDemoView final : public QWidget
{
    Q_OBJECT

public:
    DailyDemoView();
    Q_DISABLE_COPY_MOVE(DailyDemoView)
};

} // namespace flitmark

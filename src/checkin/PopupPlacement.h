// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/Screens.h>

#include <QPointF>
#include <QSizeF>

#include <optional>

namespace flitmark {

// As in all placement rules, everything counts in points, the origin at the bottom left of the main screen, and a
// window's origin is its bottom left corner.

/// The origin of a check-in popup of `size`: the top right corner of the visible screen. (0, 0) without a screen.
QPointF checkinOrigin(const QSizeF& size, const std::optional<ScreenFrames>& screen);

/// The origin of a daily review reminder of `size`: below the head of a check-in popup. (0, 0) without a screen.
QPointF dailyReviewOrigin(const QSizeF& size, const std::optional<ScreenFrames>& screen);

} // namespace flitmark

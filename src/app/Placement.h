// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/Screens.h>

#include <QPointF>
#include <QRect>
#include <QRectF>
#include <QSizeF>

#include <optional>

namespace flitmark {

/// The distance the program's windows keep from the screen's edges, in points.
inline constexpr double screenMargin = 12;

// Everything here counts in points, the origin at the bottom left of the main screen. A window's origin is its bottom
// left corner.

/// The origin of a note panel of `size`: the bottom right corner of the visible screen. (0, 0) without a screen.
QPointF panelOrigin(const QSizeF& size, const std::optional<ScreenFrames>& screen);

/// `origin` of a trigger button of `size`, moved to lie on the screen. It may cover a desktop panel at the bottom.
QPointF clampedTriggerOrigin(const QPointF& origin, const QSizeF& size, const ScreenFrames& screen);

/// Where a trigger button that the user has not moved lies: the bottom right corner.
QPointF defaultTriggerOrigin(const QSizeF& size, const ScreenFrames& screen);

/// `frame` moved, not resized, to lie inside `screen`, both in any coordinates. What is larger ends at its far edges.
QRect constrainedFrame(const QRect& frame, const QRect& screen);

} // namespace flitmark

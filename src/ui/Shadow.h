// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

class QPainter;
class QRectF;

namespace flitmark {

/// How far the shadow of a floating window reaches past its frame, in points.
inline constexpr int shadowReach = 12;

/// Draws the soft shadow of a floating window around `frame`, whose corners have `radius` points. Under the frame
/// itself nothing is drawn that a filled frame would not cover.
void drawShadow(QPainter& painter, const QRectF& frame, double radius);

} // namespace flitmark

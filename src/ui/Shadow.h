// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

class QPainter;
class QRectF;

namespace flitmark {

/// Draws the soft shadow of a floating window around `frame`, whose corners have `radius` points. It reaches 12 points
/// past the frame; under the frame itself nothing is drawn that a filled frame would not cover.
void drawShadow(QPainter& painter, const QRectF& frame, double radius);

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPainterPath>

class QPainter;

namespace flitmark {

/// The interface's symbols, by name ("plus.circle.fill"). They are outlines of a symbol font that is part of the
/// program, so they are sharp at every size and take any colour. Main thread only.
class Symbols
{
public:
    Symbols() = delete;

    /// True where there is a symbol of this name.
    static bool contains(const QString& name);

    /// Every name there is.
    static QStringList names();

    /// The outline of the symbol `name` on a square of side 1 whose top left corner is the origin. Empty for an
    /// unknown name.
    static const QPainterPath& path(const QString& name);

    /// Draws the symbol `name` to fill `square` with `color`; nothing for an unknown name.
    static void draw(QPainter& painter, const QString& name, const QRectF& square, const QColor& color);
};

} // namespace flitmark

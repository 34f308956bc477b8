// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui/Fonts.h>
#include <ui/Theme.h>

#include <QPainter>

class QAbstractButton;

namespace flitmark {

/// Strokes every control is drawn with. All lengths are logical pixels.
namespace painting {

constexpr double controlRadius = 8;
constexpr double cardRadius = 12;
constexpr double focusWidth = 2;
constexpr double disabledOpacity = 0.4;

/// The direction of reading of the widget that is painted. A picture has none: it is mirrored where it is put into one.
Qt::LayoutDirection directionOf(const QPainter& painter);
/// Where `rect` stands in a widget in the user's direction of reading. All that is painted by the operations here and
/// by `Symbols` is laid out from left to right and moved by this to where it belongs.
QRectF inReadingDirection(const QPainter& painter, const QRectF& rect);

void fillRounded(QPainter& painter, const QRectF& rect, double radius, const QColor& color);

/// A border of `width` that lies wholly inside `rect`.
void strokeRounded(QPainter& painter, const QRectF& rect, double radius, double width, const QColor& color);

/// What lies over a control at `level` (see ControlState).
QColor stateLayer(const Theme& theme, double level);

/// The colour at `level` between three: at rest, under the pointer, pressed.
QColor atLevel(const QColor& rest, const QColor& hovered, const QColor& pressed, double level);

/// The width that `drawLine` takes for `text`.
double lineWidth(const QString& text, const QFont& font, EmojiStyle style = EmojiStyle::AsWritten);

/// Draws `text` on one line in the middle of `rect`'s height, aligned inside its width in the direction of reading,
/// emoji in colour.
void drawLine(QPainter& painter, const QRectF& rect, const QString& text, const QFont& font, const QColor& color,
              Qt::Alignment alignment = Qt::AlignLeft, EmojiStyle style = EmojiStyle::AsWritten);

/// Draws an icon that is a text, an emoji mostly, in the middle of `rect`. `points` is its size.
void drawIconText(QPainter& painter, const QRectF& rect, const QString& icon, int points, const QColor& color);

} // namespace painting

/// Gives a button its text as it is: an ampersand in it is shown and marks no shortcut.
void setPlainText(QAbstractButton& button, const QString& text);
/// The text given to `setPlainText`.
QString plainText(const QAbstractButton& button);

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui/Theme.h>

#include <QColor>
#include <QList>
#include <QString>

#include <optional>

class QPainter;
class QRectF;
class QSize;
class QWidget;

namespace flitmark {

class ControlState;

/// What a row of a list stands on while it is not selected.
enum class RowGround {
    None, ///< directly on its window: popups, lists
    Card, ///< on a card of its own
};

/// How a row looks at a moment.
struct RowState
{
    /// 0 at rest, 1 under the pointer, 2 pressed.
    double level = 0;
    bool showsFocus = false;
    bool isEnabled = true;
};

/// A symbol, a title and, where there is one, a second line: what the rows of lists and menus show.
struct RowContent
{
    QString symbol;
    /// Samples of colours, in place of the symbol.
    QList<QColor> swatches = {};
    ColorToken symbolColor = &Theme::mark;
    QString title;
    /// The title's colour while the row is not selected.
    ColorToken titleColor = &Theme::text;
    QString second = {};
    /// How a second line that is too long is cut: paths in the middle.
    Qt::TextElideMode secondElideMode = Qt::ElideRight;
    RowGround ground = RowGround::None;
    bool isSelected = false;
    /// The symbol at the right, none where it is empty. Unless set, a selected row shows a check mark there.
    std::optional<QString> trailingSymbol;
    /// The row's height at text scale 1.
    int height = 40;

    /// The size at the text scale of now; the width is the least that makes sense.
    QSize sizeHint() const;
    /// The width that shows the title whole, beside the symbol if there is one and nothing at the right.
    int wholeWidth() const;
    void paint(QPainter& painter, const QWidget& row, const ControlState& state) const;
    /// For a row that is no widget of its own.
    void paint(QPainter& painter, const QRectF& box, const Theme& theme, const RowState& state) const;

private:
    /// Draws what stands before the texts, and gives the width it took.
    double paintLeading(QPainter& painter, const QRectF& area, const Theme& theme, const QColor& color) const;
    void paintTexts(QPainter& painter, const QRectF& area, const Theme& theme, bool isEnabled) const;
};

} // namespace flitmark

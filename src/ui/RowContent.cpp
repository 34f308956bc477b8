// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/ControlState.h>
#include <ui/Painting.h>
#include <ui/RowContent.h>
#include <ui/Symbols.h>
#include <ui/ThemeScope.h>

#include <QFontMetricsF>
#include <QWidget>

namespace flitmark {

namespace {

constexpr double rowSymbolSize = 20;
constexpr double rowGap = 12;
constexpr double plainPadding = 8;
constexpr double cardPadding = 12;
constexpr double swatchSize = 24;
constexpr double swatchGap = 4;

} // namespace

QSize RowContent::sizeHint() const
{
    const int texts = second.isEmpty() ? 20 : 20 + 16;
    const int scaledTexts = rowHeight(TextRole::Strong) + (second.isEmpty() ? 0 : rowHeight(TextRole::Caption));
    return {scaled(96), height + scaledTexts - texts};
}

int RowContent::wholeWidth() const
{
    const double padding = ground == RowGround::Card ? cardPadding : plainPadding;
    const double leading = symbol.isEmpty() ? 0 : rowSymbolSize + rowGap;
    return qCeil(2 * padding + leading + painting::lineWidth(title, fontOf(TextRole::Strong)));
}

void RowContent::paint(QPainter& painter, const QWidget& row, const ControlState& state) const
{
    paint(painter, row.rect(), ThemeScope::of(row), {state.level(), state.showsFocus(), row.isEnabled()});
}

void RowContent::paint(QPainter& painter, const QRectF& box, const Theme& theme, const RowState& state) const
{
    if (isSelected) {
        painting::fillRounded(painter, box, painting::controlRadius, theme.sel);
    } else if (ground == RowGround::Card) {
        painting::fillRounded(painter, box, painting::controlRadius, theme.card);
    }
    painting::fillRounded(painter, box, painting::controlRadius, painting::stateLayer(theme, state.level));

    const double padding = !swatches.isEmpty() ? 16 : ground == RowGround::Card ? cardPadding : plainPadding;
    QRectF area = box.adjusted(padding, 0, -padding, 0);
    const double top = box.top() + (box.height() - rowSymbolSize) / 2;
    const QColor marked = !state.isEnabled ? theme.off : isSelected ? theme.selMark : theme.*symbolColor;
    area.setLeft(area.left() + paintLeading(painter, area, theme, marked));
    const bool isChecked = isSelected && !trailingSymbol;
    const QString trailing = isChecked ? QStringLiteral("checkmark.circle.fill") : trailingSymbol.value_or(QString());
    if (!trailing.isEmpty()) {
        const QRectF square(area.right() - rowSymbolSize, top, rowSymbolSize, rowSymbolSize);
        Symbols::draw(painter, trailing, square, isChecked ? marked : isSelected ? theme.selText2 : theme.text2);
        area.setRight(square.left() - rowGap);
    }
    paintTexts(painter, area, theme, state.isEnabled);
    if (state.showsFocus) {
        painting::strokeRounded(painter, box, painting::controlRadius, painting::focusWidth, theme.mark);
    }
}

double RowContent::paintLeading(QPainter& painter, const QRectF& area, const Theme& theme, const QColor& color) const
{
    if (!swatches.isEmpty()) {
        QRectF circle(area.left(), area.center().y() - swatchSize / 2, swatchSize, swatchSize);
        for (const QColor& swatch : swatches) {
            painting::fillRounded(painter, circle, swatchSize / 2, swatch);
            painting::strokeRounded(painter, circle, swatchSize / 2, 1, theme.swatchEdge);
            circle.translate(swatchSize + swatchGap, 0);
        }
        return circle.left() - area.left() - swatchGap + 16;
    }
    if (!symbol.isEmpty()) {
        Symbols::draw(painter, symbol,
                      QRectF(area.left(), area.center().y() - rowSymbolSize / 2, rowSymbolSize, rowSymbolSize), color);
        return rowSymbolSize + rowGap;
    }
    return 0;
}

void RowContent::paintTexts(QPainter& painter, const QRectF& area, const Theme& theme, bool isEnabled) const
{
    const QFont titleFont = fontOf(TextRole::Strong);
    const QFont secondFont = fontOf(TextRole::Caption);
    const double titleRow = rowHeight(TextRole::Strong);
    const double secondRow = second.isEmpty() ? 0 : rowHeight(TextRole::Caption);
    const double top = area.center().y() - (titleRow + secondRow) / 2;
    const auto fitted = [&](const QString& text, const QFont& font, Qt::TextElideMode mode) {
        const QString line = text.simplified();
        return painting::lineWidth(line, font) <= area.width()
                   ? line
                   : QFontMetricsF(font).elidedText(line, mode, area.width());
    };
    painting::drawLine(painter, QRectF(area.left(), top, area.width(), titleRow),
                       fitted(title, titleFont, Qt::ElideRight), titleFont,
                       !isEnabled   ? theme.off
                       : isSelected ? theme.text
                                    : theme.*titleColor);
    if (!second.isEmpty()) {
        const QColor quiet = isSelected ? theme.selText2 : theme.text2;
        painting::drawLine(painter, QRectF(area.left(), top + titleRow, area.width(), secondRow),
                           fitted(second, secondFont, secondElideMode), secondFont, isEnabled ? quiet : theme.off);
    }
}

} // namespace flitmark

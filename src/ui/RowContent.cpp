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

constexpr double symbolSize = 20;
constexpr double gap = 12;

} // namespace

QSize RowContent::sizeHint() const
{
    const int texts = second.isEmpty() ? 20 : 20 + 16;
    const int scaledTexts = rowHeight(TextRole::Strong) + (second.isEmpty() ? 0 : rowHeight(TextRole::Caption));
    return {scaled(96), height + scaledTexts - texts};
}

void RowContent::paint(QPainter& painter, const QWidget& row, const ControlState& state) const
{
    const Theme& theme = ThemeScope::of(row);
    const QRectF box = row.rect();
    if (isSelected) {
        painting::fillRounded(painter, box, painting::controlRadius, theme.sel);
    } else if (ground == RowGround::Card) {
        painting::fillRounded(painter, box, painting::controlRadius, theme.card);
    }
    painting::fillRounded(painter, box, painting::controlRadius, painting::stateLayer(theme, state.level()));

    const double padding = ground == RowGround::Card ? 12 : 8;
    QRectF area = box.adjusted(padding, 0, -padding, 0);
    const double top = (box.height() - symbolSize) / 2;
    const QColor marked = !row.isEnabled() ? theme.off : isSelected ? theme.selMark : theme.*symbolColor;
    if (!symbol.isEmpty()) {
        Symbols::draw(painter, symbol, QRectF(area.left(), top, symbolSize, symbolSize), marked);
        area.setLeft(area.left() + symbolSize + gap);
    }
    if (isSelected) {
        const QRectF check(area.right() - symbolSize, top, symbolSize, symbolSize);
        Symbols::draw(painter, QStringLiteral("checkmark.circle.fill"), check, marked);
        area.setRight(check.left() - gap);
    }
    paintTexts(painter, area, theme, row.isEnabled());
    if (state.showsFocus()) {
        painting::strokeRounded(painter, box, painting::controlRadius, painting::focusWidth, theme.mark);
    }
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
                       fitted(title, titleFont, Qt::ElideRight), titleFont, isEnabled ? theme.text : theme.off);
    if (!second.isEmpty()) {
        const QColor quiet = isSelected ? theme.selText2 : theme.text2;
        painting::drawLine(painter, QRectF(area.left(), top + titleRow, area.width(), secondRow),
                           fitted(second, secondFont, secondElideMode), secondFont, isEnabled ? quiet : theme.off);
    }
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/Painting.h>

#include <QAbstractButton>
#include <QFontMetricsF>
#include <QTextLayout>

#include <algorithm>

namespace flitmark {

namespace {

/// Lays `text` on one line of unlimited width.
QTextLine layOut(QTextLayout& layout, EmojiStyle style)
{
    layout.setFormats(emojiFormats(layout.text(), layout.font(), style));
    layout.setCacheEnabled(false);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    return line;
}

} // namespace

void painting::fillRounded(QPainter& painter, const QRectF& rect, double radius, const QColor& color)
{
    if (color.alpha() == 0) {
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(rect, radius, radius);
}

void painting::strokeRounded(QPainter& painter, const QRectF& rect, double radius, double width, const QColor& color)
{
    const double inset = width / 2;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, width));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), radius - inset, radius - inset);
}

QColor painting::stateLayer(const Theme& theme, double level)
{
    QColor none = theme.hover;
    none.setAlpha(0);
    return atLevel(none, theme.hover, theme.press, level);
}

QColor painting::atLevel(const QColor& rest, const QColor& hovered, const QColor& pressed, double level)
{
    return level <= 1 ? mix(rest, hovered, level) : mix(hovered, pressed, level - 1);
}

double painting::lineWidth(const QString& text, const QFont& font, EmojiStyle style)
{
    QTextLayout layout(text, font);
    return layOut(layout, style).naturalTextWidth();
}

void painting::drawLine(QPainter& painter, const QRectF& rect, const QString& text, const QFont& font,
                        const QColor& color, Qt::Alignment alignment, EmojiStyle style)
{
    QTextLayout layout(text, font);
    const QTextLine line = layOut(layout, style);
    double left = rect.left();
    if (alignment.testFlag(Qt::AlignHCenter)) {
        left = rect.center().x() - line.naturalTextWidth() / 2;
    } else if (alignment.testFlag(Qt::AlignRight)) {
        left = rect.right() - line.naturalTextWidth();
    }
    // The text's own font settles the baseline, so that an emoji beside it moves nothing.
    const QFontMetricsF metrics(font);
    const double baseline = rect.center().y() + (metrics.ascent() - metrics.descent()) / 2;
    painter.setPen(color);
    line.draw(&painter, QPointF(left, baseline - line.ascent()));
}

void painting::drawIconText(QPainter& painter, const QRectF& rect, const QString& icon, int points, const QColor& color)
{
    QFont font = fontOf(TextRole::Body);
    font.setPixelSize(scaled(points));
    drawLine(painter, rect, icon, font, color, Qt::AlignHCenter, EmojiStyle::Preferred);
}

void setPlainText(QAbstractButton& button, const QString& text)
{
    button.setText(QString(text).replace(u'&', QStringLiteral("&&")));
}

QString plainText(const QAbstractButton& button)
{
    return button.text().replace(QStringLiteral("&&"), QStringLiteral("&"));
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/Painting.h>

#include <QAbstractButton>
#include <QCache>
#include <QFontMetricsF>
#include <QPixmapCache>
#include <QStyle>
#include <QTextLayout>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <utility>

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

/// The width of an emoji. It is remembered: to tell it, the font unpacks the whole picture, as often as it is asked.
double emojiWidth(const QString& emoji, const QFont& font)
{
    static QCache<std::pair<QString, int>, double> known(500);
    const std::pair<QString, int> key(emoji, font.pixelSize());
    if (const double* width = known.object(key)) {
        return *width;
    }
    const double width = QFontMetricsF(font).horizontalAdvance(emoji);
    known.insert(key, new double(width));
    return width;
}

/// The pixels an icon is drawn with, a square around its middle.
QPixmap iconPicture(const QString& icon, int pixelSize, const QColor& color, double scale)
{
    const QString key = QStringLiteral("%1 %2 %3 ").arg(pixelSize).arg(color.rgba()).arg(scale) + icon;
    QPixmap picture;
    if (!QPixmapCache::find(key, &picture)) {
        QFont font = fontOf(TextRole::Body);
        font.setPixelSize(pixelSize);
        const double width = painting::lineWidth(icon, font, EmojiStyle::Preferred);
        const int side = 2 * std::max(pixelSize, static_cast<int>(std::ceil(width / 2)));
        picture = QPixmap(QSizeF(side, side).toSize() * scale);
        picture.setDevicePixelRatio(scale);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painting::drawLine(painter, QRectF(0, 0, side, side), icon, font, color, Qt::AlignHCenter,
                           EmojiStyle::Preferred);
        painter.end();
        QPixmapCache::insert(key, picture);
    }
    return picture;
}

} // namespace

Qt::LayoutDirection painting::directionOf(const QPainter& painter)
{
    const auto* widget = dynamic_cast<const QWidget*>(painter.device());
    return widget != nullptr ? widget->layoutDirection() : Qt::LeftToRight;
}

QRectF painting::inReadingDirection(const QPainter& painter, const QRectF& rect)
{
    if (directionOf(painter) == Qt::LeftToRight) {
        return rect;
    }
    return rect.translated(painter.device()->width() - rect.right() - rect.left(), 0);
}

void painting::fillRounded(QPainter& painter, const QRectF& rect, double radius, const QColor& color)
{
    if (color.alpha() == 0) {
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(inReadingDirection(painter, rect), radius, radius);
}

void painting::strokeRounded(QPainter& painter, const QRectF& rect, double radius, double width, const QColor& color)
{
    const double inset = width / 2;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, width));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(inReadingDirection(painter, rect).adjusted(inset, inset, -inset, -inset), radius - inset,
                            radius - inset);
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
    double emojiAndBefore = 0;
    qsizetype end = 0;
    for (const QTextLayout::FormatRange& emoji : emojiFormats(text, font, style)) {
        emojiAndBefore += QFontMetricsF(font).horizontalAdvance(text.mid(end, emoji.start - end)) +
                          emojiWidth(text.mid(emoji.start, emoji.length), emoji.format.font());
        end = emoji.start + emoji.length;
    }
    QTextLayout layout(text.mid(end), font);
    return emojiAndBefore + layOut(layout, style).naturalTextWidth();
}

void painting::drawLine(QPainter& painter, const QRectF& rect, const QString& text, const QFont& font,
                        const QColor& color, Qt::Alignment alignment, EmojiStyle style)
{
    QTextLayout layout(text, font);
    const QTextLine line = layOut(layout, style);
    const QRectF area = inReadingDirection(painter, rect);
    alignment = QStyle::visualAlignment(directionOf(painter), alignment);
    double left = area.left();
    if (alignment.testFlag(Qt::AlignHCenter)) {
        left = area.center().x() - line.naturalTextWidth() / 2;
    } else if (alignment.testFlag(Qt::AlignRight)) {
        left = area.right() - line.naturalTextWidth();
    }
    // The text's own font settles the baseline, so that an emoji beside it moves nothing.
    const QFontMetricsF metrics(font);
    const double baseline = area.center().y() + (metrics.ascent() - metrics.descent()) / 2;
    painter.setPen(color);
    line.draw(&painter, QPointF(left, baseline - line.ascent()));
}

void painting::drawIconText(QPainter& painter, const QRectF& rect, const QString& icon, int points, const QColor& color)
{
    const double scale = painter.device()->devicePixelRatioF();
    const QPixmap picture = iconPicture(icon, scaled(points), color, scale);
    const QSizeF size = picture.size() / scale;
    const QPointF centre = inReadingDirection(painter, rect).center();
    painter.drawPixmap(QPointF(std::round((centre.x() - size.width() / 2) * scale) / scale,
                               std::round((centre.y() - size.height() / 2) * scale) / scale),
                       picture);
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

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/Painting.h>
#include <ui/Surfaces.h>
#include <ui/Symbols.h>
#include <ui/ThemeScope.h>

#include <QPaintEvent>

#include <algorithm>
#include <cmath>

namespace flitmark {

namespace {

constexpr int dotSize = 8;
constexpr int dotGap = 8;

} // namespace

Ground::Ground(ColorToken color, QWidget* parent)
    : QWidget(parent)
    , m_color(color)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void Ground::paintEvent(QPaintEvent* event)
{
    QPainter(this).fillRect(event->rect(), ThemeScope::of(*this).*m_color);
}

Card::Card(QWidget* parent)
    : QWidget(parent)
{
}

void Card::setColor(ColorToken color)
{
    m_color = color;
    update();
}

void Card::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painting::fillRounded(painter, rect(), painting::cardRadius, ThemeScope::of(*this).*m_color);
}

Divider::Divider(int inset, QWidget* parent)
    : QWidget(parent)
    , m_inset(inset)
{
    setFixedHeight(1);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void Divider::paintEvent(QPaintEvent* /*event*/)
{
    QPainter(this).fillRect(rect().adjusted(m_inset, 0, -m_inset, 0), ThemeScope::of(*this).hair);
}

SymbolView::SymbolView(const QString& symbol, int points, ColorToken color, QWidget* parent)
    : QWidget(parent)
    , m_symbol(symbol)
    , m_points(points)
    , m_color(color)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SymbolView::setSymbol(const QString& symbol)
{
    m_symbol = symbol;
    update();
}

void SymbolView::setColor(ColorToken color)
{
    m_color = color;
    update();
}

void SymbolView::setTile(int side, ColorToken ground)
{
    m_tileSide = side;
    m_tileGround = ground;
    updateGeometry();
    update();
}

QSize SymbolView::sizeHint() const
{
    const int side = std::max(m_points, m_tileSide);
    return {side, side};
}

void SymbolView::paintEvent(QPaintEvent* /*event*/)
{
    const Theme& theme = ThemeScope::of(*this);
    QPainter painter(this);
    const auto centred = [this](double side) {
        return QRectF((width() - side) / 2, (height() - side) / 2, side, side);
    };
    if (m_tileGround != nullptr) {
        painting::fillRounded(painter, centred(m_tileSide), painting::cardRadius, theme.*m_tileGround);
    }
    Symbols::draw(painter, m_symbol, centred(m_points), isEnabled() ? theme.*m_color : theme.off);
}

Badge::Badge(const QString& text, Kind kind, QWidget* parent)
    : QLabel(parent)
    , m_kind(kind)
{
    setTextFormat(Qt::PlainText);
    setText(text);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize Badge::sizeHint() const
{
    const double width = painting::lineWidth(text(), fontOf(TextRole::Small));
    return {static_cast<int>(std::ceil(width)) + 16, rowHeight(TextRole::Small) + 4};
}

void Badge::paintEvent(QPaintEvent* /*event*/)
{
    const Theme& theme = ThemeScope::of(*this);
    const bool isAccent = m_kind == Kind::Accent;
    QPainter painter(this);
    painting::fillRounded(painter, rect(), height() / 2.0, isAccent ? theme.badge : theme.soft);
    painting::drawLine(painter, rect(), text(), fontOf(TextRole::Small), isAccent ? theme.badgeText : theme.text2,
                       Qt::AlignHCenter);
}

Dots::Dots(int count, QWidget* parent)
    : QWidget(parent)
    , m_count(count)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Dots::setCurrent(int index)
{
    m_current = index;
    update();
}

QSize Dots::sizeHint() const
{
    return {std::max(0, m_count * (dotSize + dotGap) - dotGap), dotSize};
}

void Dots::paintEvent(QPaintEvent* /*event*/)
{
    const Theme& theme = ThemeScope::of(*this);
    QPainter painter(this);
    for (int i = 0; i < m_count; ++i) {
        const QRectF dot(i * (dotSize + dotGap), (height() - dotSize) / 2.0, dotSize, dotSize);
        painting::fillRounded(painter, dot, dotSize / 2.0, i <= m_current ? theme.line : theme.thumb);
    }
}

} // namespace flitmark

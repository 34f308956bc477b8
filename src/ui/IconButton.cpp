// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/IconButton.h>
#include <ui/Painting.h>
#include <ui/Symbols.h>
#include <ui/ThemeScope.h>

namespace flitmark {

IconButton::IconButton(const QString& name, IconButtonSize size, QWidget* parent)
    : QPushButton(parent)
    , m_state(*new ControlState(*this))
    , m_size(size)
{
    setName(name);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void IconButton::setName(const QString& name)
{
    setToolTip(name);
    setAccessibleName(name);
}

void IconButton::setSymbol(const QString& name, int points)
{
    m_symbol = name;
    m_emoji.clear();
    m_points = points;
    update();
}

void IconButton::setEmoji(const QString& emoji, int points)
{
    m_emoji = emoji;
    m_symbol.clear();
    m_points = points;
    updateGeometry();
    update();
}

void IconButton::setGround(IconButtonGround ground)
{
    m_ground = ground;
    update();
}

void IconButton::setColor(ColorToken color, double opacity)
{
    m_color = color;
    m_opacity = opacity;
    update();
}

QSize IconButton::sizeHint() const
{
    // An emoji is a text and grows with texts; its box grows by as much.
    const int growth = m_emoji.isEmpty() ? 0 : scaled(m_points) - m_points;
    const int side = (m_size == IconButtonSize::Regular ? 32 : 28) + growth;
    return {side, side};
}

QColor IconButton::ink(const Theme& theme) const
{
    if (!isEnabled()) {
        return theme.off;
    }
    QColor color = theme.*m_color;
    if (m_color == &Theme::text2) {
        color = painting::atLevel(theme.text2, theme.text, theme.text2, m_state.level());
    }
    color.setAlphaF(static_cast<float>(m_opacity));
    return color;
}

void IconButton::paintEvent(QPaintEvent* /*event*/)
{
    const Theme& theme = ThemeScope::of(*this);
    const QRectF box = rect();
    QPainter painter(this);
    if (!isEnabled() && !m_emoji.isEmpty()) {
        painter.setOpacity(painting::disabledOpacity);
    }
    if (m_ground == IconButtonGround::Boxed) {
        painting::fillRounded(painter, box, painting::controlRadius, theme.soft);
    }
    painting::fillRounded(painter, box, painting::controlRadius, painting::stateLayer(theme, m_state.level()));
    if (m_emoji.isEmpty()) {
        const double inset = (width() - m_points) / 2.0;
        Symbols::draw(painter, m_symbol, box.adjusted(inset, inset, -inset, -inset), ink(theme));
    } else {
        painting::drawIconText(painter, box, m_emoji, m_points, theme.text);
    }
    if (m_state.showsFocus()) {
        painting::strokeRounded(painter, box, painting::controlRadius, painting::focusWidth, theme.mark);
    }
}

} // namespace flitmark

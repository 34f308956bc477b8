// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/Button.h>
#include <ui/Painting.h>
#include <ui/Symbols.h>
#include <ui/ThemeScope.h>

#include <cmath>

namespace flitmark {

struct Button::Metrics
{
    int height;
    double left;
    double right;
    double gap;
    double symbol;
};

Button::Button(const QString& text, ButtonKind kind, QWidget* parent)
    : QPushButton(parent)
    , m_state(*new ControlState(*this))
    , m_kind(kind)
{
    setPlainText(*this, text);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
}

void Button::setSymbol(const QString& name)
{
    m_symbol = name;
    updateGeometry();
    update();
}

void Button::setButtonSize(ButtonSize size)
{
    m_size = size;
    updateGeometry();
    update();
}

void Button::setColor(ColorToken color)
{
    m_color = color;
    update();
}

Button::Metrics Button::metrics() const
{
    if (m_size == ButtonSize::Compact) {
        return {controlHeight() - 4, 8, 8, 4, 16};
    }
    return {controlHeight(), m_symbol.isEmpty() ? 16.0 : 12.0, 16, 8, 18};
}

QSize Button::sizeHint() const
{
    const Metrics sizes = metrics();
    const double symbol = m_symbol.isEmpty() ? 0 : sizes.symbol + sizes.gap;
    const double text = painting::lineWidth(plainText(*this), fontOf(TextRole::Strong));
    return {static_cast<int>(std::ceil(sizes.left + symbol + text + sizes.right)), sizes.height};
}

QColor Button::ground(const Theme& theme) const
{
    if (m_kind == ButtonKind::Filled) {
        return isEnabled() ? painting::atLevel(theme.fill, theme.fillHover, theme.fillPress, m_state.level())
                           : theme.offFill;
    }
    return m_kind == ButtonKind::Soft ? theme.soft : QColor(Qt::transparent);
}

QColor Button::ink(const Theme& theme) const
{
    if (m_kind == ButtonKind::Filled) {
        return theme.white;
    }
    return isEnabled() ? theme.*m_color : theme.off;
}

void Button::paintEvent(QPaintEvent* /*event*/)
{
    const Theme& theme = ThemeScope::of(*this);
    const Metrics sizes = metrics();
    const QRectF box = rect();
    QPainter painter(this);
    painting::fillRounded(painter, box, painting::controlRadius, ground(theme));
    if (m_kind != ButtonKind::Filled) {
        painting::fillRounded(painter, box, painting::controlRadius, painting::stateLayer(theme, m_state.level()));
    }

    // The contents stand in the middle of a button that is wider than it needs.
    const QString label = plainText(*this);
    const QFont labelFont = fontOf(TextRole::Strong);
    double left = (width() - sizeHint().width()) / 2.0 + sizes.left;
    if (!m_symbol.isEmpty()) {
        const QRectF square(left, (height() - sizes.symbol) / 2, sizes.symbol, sizes.symbol);
        Symbols::draw(painter, m_symbol, square, ink(theme));
        left += sizes.symbol + sizes.gap;
    }
    painting::drawLine(painter, QRectF(left, 0, width() - left, height()), label, labelFont, ink(theme));

    if (m_state.showsFocus()) {
        const bool isFilled = m_kind == ButtonKind::Filled;
        const double inset = isFilled ? 2 : 0;
        painting::strokeRounded(painter, box.adjusted(inset, inset, -inset, -inset), painting::controlRadius - inset,
                                painting::focusWidth, isFilled ? theme.white : theme.mark);
    }
}

} // namespace flitmark

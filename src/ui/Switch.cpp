// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/AccessibleRole.h>
#include <ui/Painting.h>
#include <ui/Switch.h>
#include <ui/ThemeScope.h>

#include <cmath>

namespace flitmark {

namespace {

constexpr double boxWidth = 36;
constexpr double boxHeight = 20;
constexpr double outlineWidth = 2;
constexpr double knobOff = 10;
constexpr double knobOn = 14;

} // namespace

Switch::Switch(const QString& name, QWidget* parent)
    : QCheckBox(parent)
    , m_state(*new ControlState(*this))
    , m_position([this] { update(); })
{
    setAccessibleRole(*this, QAccessible::CheckBox);
    setAccessibleName(name);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QCheckBox::toggled, this, [this](bool isOn) {
        if (isVisible()) {
            m_position.moveTo(isOn ? 1 : 0);
        } else {
            m_position.jumpTo(isOn ? 1 : 0);
        }
    });
}

QSize Switch::sizeHint() const
{
    return {static_cast<int>(boxWidth) + 2 * ringRoom, static_cast<int>(boxHeight) + 2 * ringRoom};
}

void Switch::paintEvent(QPaintEvent* /*event*/)
{
    const Theme& theme = ThemeScope::of(*this);
    const QRectF box((width() - boxWidth) / 2, (height() - boxHeight) / 2, boxWidth, boxHeight);
    const double position = m_position.value();
    QPainter painter(this);
    painter.setOpacity(isEnabled() ? 1 : painting::disabledOpacity);
    const QColor outline = painting::atLevel(theme.outline, theme.text2, theme.text, m_state.level());
    const QColor on = painting::atLevel(theme.line, theme.lineHover, theme.linePress, m_state.level());
    QColor filling = on;
    filling.setAlphaF(static_cast<float>(position));
    painting::fillRounded(painter, box, boxHeight / 2, filling);
    painting::strokeRounded(painter, box, boxHeight / 2, outlineWidth, mix(outline, on, position));

    const double size = std::lerp(knobOff, knobOn, position);
    const double reach = boxHeight / 2;
    const QPointF centre(std::lerp(box.left() + reach, box.right() - reach, position), box.center().y());
    const QRectF knob(centre.x() - size / 2, centre.y() - size / 2, size, size);
    painting::fillRounded(painter, knob, size / 2, mix(outline, theme.white, position));
    if (m_state.showsFocus()) {
        const double room = ringRoom;
        painting::strokeRounded(painter, box.adjusted(-room, -room, room, room), boxHeight / 2 + room,
                                painting::focusWidth, theme.mark);
    }
}

} // namespace flitmark

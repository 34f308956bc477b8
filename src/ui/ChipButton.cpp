// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/AccessibleRole.h>
#include <ui/ChipButton.h>
#include <ui/Painting.h>
#include <ui/ThemeScope.h>

#include <algorithm>
#include <cmath>

namespace flitmark {

namespace {

constexpr int iconPoints = 18;

} // namespace

ChipButton::ChipButton(const QString& icon, const QString& name, QWidget* parent)
    : QPushButton(parent)
    , m_state(*new ControlState(*this))
    , m_selection([this] { update(); })
    , m_icon(icon)
{
    setAccessibleRole(*this, QAccessible::CheckBox);
    setCheckable(true);
    setToolTip(name);
    setAccessibleName(name);
    setAccessibleDescription(icon);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QPushButton::toggled, this, [this](bool isOn) {
        if (isVisible()) {
            m_selection.moveTo(isOn ? 1 : 0);
        } else {
            m_selection.jumpTo(isOn ? 1 : 0);
        }
    });
}

QSize ChipButton::sizeHint() const
{
    // Wider for an icon that is more than one emoji.
    QFont font = fontOf(TextRole::Body);
    font.setPixelSize(scaled(iconPoints));
    const int icon = static_cast<int>(std::ceil(painting::lineWidth(m_icon, font, EmojiStyle::Preferred)));
    const int growth = scaled(iconPoints) - iconPoints;
    return {std::max(44 + growth, icon + 16), 36 + growth};
}

void ChipButton::paintEvent(QPaintEvent* /*event*/)
{
    const Theme& theme = ThemeScope::of(*this);
    const QRectF box = rect();
    const double selection = m_selection.value();
    QPainter painter(this);
    painter.setOpacity(isEnabled() ? 1 : painting::disabledOpacity);
    painting::fillRounded(painter, box, painting::controlRadius, mix(theme.chip, theme.chipOn, selection));
    painting::fillRounded(painter, box, painting::controlRadius, painting::stateLayer(theme, m_state.level()));
    painting::drawIconText(painter, box, m_icon, iconPoints, theme.text);
    if (m_state.showsFocus()) {
        painting::strokeRounded(painter, box, painting::controlRadius, painting::focusWidth,
                                isChecked() ? theme.text : theme.mark);
    } else if (selection > 0) {
        QColor border = theme.line;
        border.setAlphaF(static_cast<float>(selection));
        painting::strokeRounded(painter, box, painting::controlRadius, 2, border);
    }
}

} // namespace flitmark

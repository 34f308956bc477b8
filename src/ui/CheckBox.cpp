// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/AccessibleRole.h>
#include <ui/CheckBox.h>
#include <ui/Painting.h>
#include <ui/Symbols.h>
#include <ui/ThemeScope.h>

#include <algorithm>
#include <cmath>

namespace flitmark {

namespace {

constexpr double boxSize = 20;
constexpr double boxRadius = 4;
constexpr double checkSize = 16;
constexpr double labelGap = 8;

} // namespace

CheckBox::CheckBox(const QString& text, QWidget* parent)
    : QCheckBox(parent)
    , m_state(*new ControlState(*this))
{
    setAccessibleRole(*this, QAccessible::CheckBox);
    setPlainText(*this, text);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize CheckBox::sizeHint() const
{
    const QString label = plainText(*this);
    const double text = label.isEmpty() ? 0 : labelGap + painting::lineWidth(label, fontOf(TextRole::Body));
    const int height = std::max(static_cast<int>(boxSize), rowHeight(TextRole::Body));
    return {static_cast<int>(std::ceil(2 * ringRoom + boxSize + text)), 2 * ringRoom + height};
}

void CheckBox::paintEvent(QPaintEvent* /*event*/)
{
    const Theme& theme = ThemeScope::of(*this);
    const QRectF box(ringRoom, (height() - boxSize) / 2, boxSize, boxSize);
    QPainter painter(this);
    painter.setOpacity(isEnabled() ? 1 : painting::disabledOpacity);
    if (isChecked()) {
        painting::fillRounded(painter, box, boxRadius,
                              painting::atLevel(theme.line, theme.lineHover, theme.linePress, m_state.level()));
        const double inset = (boxSize - checkSize) / 2;
        Symbols::draw(painter, QStringLiteral("checkmark"), box.adjusted(inset, inset, -inset, -inset), theme.white);
    } else {
        painting::strokeRounded(painter, box, boxRadius, 2,
                                painting::atLevel(theme.outline, theme.text2, theme.text, m_state.level()));
    }
    if (m_state.showsFocus()) {
        const double reach = ringRoom;
        painting::strokeRounded(painter, box.adjusted(-reach, -reach, reach, reach), 8, painting::focusWidth,
                                theme.mark);
    }
    const double left = box.right() + labelGap;
    painting::drawLine(painter, QRectF(left, 0, width() - left, height()), plainText(*this), fontOf(TextRole::Body),
                       theme.text);
}

} // namespace flitmark

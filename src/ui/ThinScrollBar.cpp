// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/ControlState.h>
#include <ui/Painting.h>
#include <ui/ThemeScope.h>
#include <ui/ThinScrollBar.h>

#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace flitmark {

namespace {

constexpr double thumbWidth = 4;
constexpr double edgeGap = 4;
constexpr double leastThumb = 24;

} // namespace

ThinScrollBar::ThinScrollBar(QScrollBar& source, QWidget* parent)
    : QWidget(parent)
    , m_source(source)
    , m_state(*new ControlState(*this))
{
    setFocusPolicy(Qt::NoFocus);
    connect(&source, &QScrollBar::valueChanged, this, [this] { update(); });
    connect(&source, &QScrollBar::rangeChanged, this, [this](int low, int high) {
        setVisible(high > low);
        update();
    });
    hide();
}

void ThinScrollBar::placeIn(const QRect& area)
{
    setGeometry(area.right() + 1 - hitWidth, area.top(), hitWidth, area.height());
    raise();
}

void ThinScrollBar::paintEvent(QPaintEvent* /*event*/)
{
    const Theme& theme = ThemeScope::of(*this);
    QPainter painter(this);
    painting::fillRounded(painter, thumb(), thumbWidth / 2,
                          painting::atLevel(theme.thumb, theme.outline, theme.text2, m_state.level()));
}

void ThinScrollBar::mousePressEvent(QMouseEvent* event)
{
    const QRectF now = thumb();
    const double y = event->position().y();
    if (y < now.top() || y > now.bottom()) {
        m_source.triggerAction(y < now.top() ? QAbstractSlider::SliderPageStepSub : QAbstractSlider::SliderPageStepAdd);
        m_grip = -1;
        return;
    }
    m_grip = y - now.top();
    m_state.setAppearance(ControlState::Appearance::Pressed);
}

void ThinScrollBar::mouseMoveEvent(QMouseEvent* event)
{
    const double travel = trackLength() - thumb().height();
    if (m_grip < 0 || travel <= 0) {
        return;
    }
    const double ratio = (event->position().y() - m_grip - edgeGap) / travel;
    m_source.setValue(m_source.minimum() +
                      static_cast<int>(std::lround(ratio * (m_source.maximum() - m_source.minimum()))));
}

void ThinScrollBar::mouseReleaseEvent(QMouseEvent* /*event*/)
{
    m_state.setAppearance(ControlState::Appearance::Live);
}

void ThinScrollBar::wheelEvent(QWheelEvent* event)
{
    QApplication::sendEvent(&m_source, event);
}

double ThinScrollBar::trackLength() const
{
    return height() - 2 * edgeGap;
}

QRectF ThinScrollBar::thumb() const
{
    const double range = m_source.maximum() - m_source.minimum();
    const double whole = range + m_source.pageStep();
    const double length = std::clamp(trackLength() * m_source.pageStep() / std::max(1.0, whole),
                                     std::min(leastThumb, trackLength()), std::max(leastThumb, trackLength()));
    const double ratio = range > 0 ? (m_source.value() - m_source.minimum()) / range : 0;
    return {width() - edgeGap - thumbWidth, edgeGap + ratio * (trackLength() - length), thumbWidth, length};
}

} // namespace flitmark

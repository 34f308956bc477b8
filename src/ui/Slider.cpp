// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/Painting.h>
#include <ui/Slider.h>
#include <ui/ThemeScope.h>

#include <QMouseEvent>

#include <cmath>

namespace flitmark {

namespace {

constexpr double trackHeight = 4;
constexpr double knobSize = 16;
constexpr double knobRing = 3;
/// From the widget's end to the middle of a knob that stands there: the focus ring fits in.
constexpr double knobReach = knobSize / 2 + painting::focusWidth;

QRectF circle(const QPointF& centre, double size)
{
    return {centre.x() - size / 2, centre.y() - size / 2, size, size};
}

} // namespace

Slider::Slider(const QString& name, int minimum, int maximum, int step, QWidget* parent)
    : QAbstractSlider(parent)
    , m_state(*new ControlState(*this))
{
    setOrientation(Qt::Horizontal);
    setRange(minimum, maximum);
    setSingleStep(step);
    setPageStep(2 * step);
    setAccessibleName(name);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(this, &QAbstractSlider::actionTriggered, this, &Slider::moveToStep);
}

QSize Slider::sizeHint() const
{
    return {120, 20};
}

/// Rounds the position that is about to become the value to a step, never past one on the way.
void Slider::moveToStep()
{
    const double steps = static_cast<double>(sliderPosition() - minimum()) / singleStep();
    const double whole = sliderPosition() > value() ? std::floor(steps) : std::ceil(steps);
    setSliderPosition(minimum() + static_cast<int>(whole) * singleStep());
}

void Slider::moveTo(double x)
{
    const double way = isRightToLeft() ? width() - x : x;
    const double share = (way - knobReach) / std::max(1.0, width() - 2 * knobReach);
    const double steps = std::round(share * (maximum() - minimum()) / singleStep());
    setSliderPosition(minimum() + static_cast<int>(steps) * singleStep());
}

double Slider::knobCentre() const
{
    const double share = static_cast<double>(sliderPosition() - minimum()) / std::max(1, maximum() - minimum());
    return std::lerp(knobReach, width() - knobReach, share);
}

void Slider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        setSliderDown(true);
        moveTo(event->position().x());
        update();
    }
}

void Slider::mouseMoveEvent(QMouseEvent* event)
{
    if (isSliderDown()) {
        moveTo(event->position().x());
    }
}

void Slider::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        setSliderDown(false);
        update();
    }
}

void Slider::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

void Slider::paintEvent(QPaintEvent* /*event*/)
{
    const Theme& theme = ThemeScope::of(*this);
    const QPointF centre(knobCentre(), height() / 2.0);
    const QRectF track(0, (height() - trackHeight) / 2, width(), trackHeight);
    const double level = isSliderDown() ? 2 : m_state.level();
    QPainter painter(this);
    painter.setOpacity(isEnabled() ? 1 : painting::disabledOpacity);
    painting::fillRounded(painter, track, trackHeight / 2, theme.track);
    QRectF passed = track;
    passed.setRight(centre.x());
    painting::fillRounded(painter, passed, trackHeight / 2, theme.line);

    painting::fillRounded(painter, circle(centre, knobSize + 2), knobSize, theme.edge);
    painting::fillRounded(painter, circle(centre, knobSize), knobSize, theme.knob);
    painting::fillRounded(painter, circle(centre, knobSize - 2 * knobRing), knobSize,
                          painting::atLevel(theme.line, theme.lineHover, theme.linePress, level));
    if (m_state.showsFocus()) {
        const double size = knobSize + 2 * painting::focusWidth;
        painting::strokeRounded(painter, circle(centre, size), size / 2, painting::focusWidth, theme.mark);
    }
}

} // namespace flitmark

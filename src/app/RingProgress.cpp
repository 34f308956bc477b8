// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/RingProgress.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace flitmark {

namespace {

/// In pixels.
constexpr double visibleWay = 0.25;
/// In points. Between the updates of a Pomodoro of two minutes or more the arc's end moves less.
constexpr double animatedWay = 2;
/// Over before the next update, which follows after a second.
constexpr int animationMilliseconds = 990;
constexpr double maximumFrames = 60;

/// In points.
double wayBetween(double first, double second)
{
    return std::abs(first - second) * 2 * M_PI * RingProgress::radius;
}

} // namespace

RingProgress::RingProgress(RunLoop& runLoop, std::function<void()> onChange)
    : m_runLoop(runLoop)
    , m_onChange(std::move(onChange))
{
}

void RingProgress::moveTo(double progress, Motion motion)
{
    const bool wasShown = std::exchange(m_isShown, progress > 0 && progress < 1);
    m_animation.reset();
    if (!m_isShown) {
        m_value = m_drawn = progress;
        if (wasShown) {
            m_onChange();
        }
        return;
    }
    const double way = wayBetween(m_value, progress);
    if (motion == Motion::Linear && way > animatedWay) {
        animateTo(progress, way);
    } else {
        m_value = progress;
    }
    if (!wasShown) {
        m_drawn = m_value;
        m_onChange();
    } else {
        set(m_value);
    }
}

void RingProgress::animateTo(double progress, double way)
{
    const double frames = std::min(maximumFrames, std::ceil(way * m_pixelRatio / visibleWay));
    const RunLoop::Duration period(static_cast<int>(animationMilliseconds / frames));
    m_animation = m_runLoop.every(period, [this, from = m_value, progress, frames, done = 0.0]() mutable {
        ++done;
        if (done >= frames) {
            m_animation.reset();
            set(progress);
        } else {
            set(from + (progress - from) * done / frames);
        }
    });
}

void RingProgress::set(double value)
{
    m_value = value;
    if (wayBetween(m_value, m_drawn) * m_pixelRatio >= visibleWay) {
        m_drawn = m_value;
        m_onChange();
    }
}

} // namespace flitmark

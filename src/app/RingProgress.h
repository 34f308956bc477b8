// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/RunLoop.h>

namespace flitmark {

/// How much of the trigger button's ring is drawn, and when it is worth drawing anew. Main thread only.
///
/// In a Pomodoro of 20 minutes the end of the arc moves an eighth of a point a second, so a frame per update would
/// already be too many, and an animation between two updates could not be seen at all. So an arc is drawn anew when its
/// end has moved by a quarter of a pixel, and only a longer way, after a resume for example, is animated: over one
/// second, with as many frames as it has quarter pixels, at most 60.
class RingProgress final
{
public:
    /// The radius of the middle of the ring's line, in points.
    static constexpr double radius = 25.5;

    enum class Motion { Linear, Steps };

    /// `onChange` is called whenever the ring is to be drawn anew.
    RingProgress(RunLoop& runLoop, std::function<void()> onChange);
    Q_DISABLE_COPY_MOVE(RingProgress)

    /// What is drawn, as a part of the circle: 0.0 to 1.0.
    double drawn() const { return m_drawn; }
    bool isShown() const { return m_isShown; }

    /// Pixels per point.
    void setPixelRatio(double ratio) { m_pixelRatio = ratio; }

    /// Goes to `progress`, 0.0 to 1.0. At both ends the ring is hidden, at once.
    void moveTo(double progress, Motion motion);

private:
    void animateTo(double progress, double way);
    void set(double value);

    RunLoop& m_runLoop;
    std::function<void()> m_onChange;
    double m_pixelRatio = 1;
    double m_value = 0;
    double m_drawn = 0;
    bool m_isShown = false;
    std::unique_ptr<RunLoop::Timer> m_animation;
};

} // namespace flitmark

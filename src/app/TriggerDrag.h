// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointF>

#include <optional>

namespace flitmark {

/// One drag of the trigger button, from the press to the release: tells a click from a drag and says where the window
/// goes. Points are on the screen; the caller moves the window.
class TriggerDrag
{
public:
    /// A pointer that has moved no farther than this, in points, still clicks.
    static constexpr double threshold = 2;

    /// The button was pressed at `pointer` while its window lay at `windowOrigin`.
    void begin(const QPointF& windowOrigin, const QPointF& pointer);

    /// The pointer moved to `pointer`. Returns where the window should lie now, or nothing while this is still a click.
    std::optional<QPointF> move(const QPointF& pointer);

    /// The button was released: nothing is followed any more. `isDragging` stays until `settle`, for the click that the
    /// release of a drag brings with it.
    void end();

    /// Some time has passed since the release. Without effect while a new press is being followed.
    void settle();

    bool isDragging() const { return m_isDragging; }

private:
    struct Start
    {
        QPointF windowOrigin;
        QPointF pointer;
    };

    std::optional<Start> m_start;
    bool m_isDragging = false;
};

} // namespace flitmark

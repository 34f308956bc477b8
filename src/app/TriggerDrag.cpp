// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/TriggerDrag.h>

#include <cmath>

namespace flitmark {

void TriggerDrag::begin(const QPointF& windowOrigin, const QPointF& pointer)
{
    m_start = Start{windowOrigin, pointer};
    m_isDragging = false;
}

std::optional<QPointF> TriggerDrag::move(const QPointF& pointer)
{
    if (!m_start) {
        return std::nullopt;
    }
    const QPointF way = pointer - m_start->pointer;
    if (std::hypot(way.x(), way.y()) > threshold) {
        m_isDragging = true;
    }
    return m_isDragging ? std::optional(m_start->windowOrigin + way) : std::nullopt;
}

void TriggerDrag::end()
{
    m_start.reset();
}

void TriggerDrag::settle()
{
    if (!m_start) {
        m_isDragging = false;
    }
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/Placement.h>

#include <algorithm>

namespace flitmark {

QPointF panelOrigin(const QSizeF& size, const std::optional<ScreenFrames>& screen)
{
    if (!screen) {
        return {0, 0};
    }
    const QRectF& area = screen->visible;
    const double maxX = area.x() + area.width();
    const double maxY = area.y() + area.height();
    double x = maxX - size.width() - screenMargin;
    double y = area.y() + screenMargin;
    // One after the other, each on what the one before left: a panel larger than the screen ends at its far edges.
    if (x < area.x()) {
        x = area.x() + screenMargin;
    }
    if (y < area.y()) {
        y = area.y() + screenMargin;
    }
    if (x + size.width() > maxX) {
        x = maxX - size.width() - screenMargin;
    }
    if (y + size.height() > maxY) {
        y = maxY - size.height() - screenMargin;
    }
    return {x, y};
}

QPointF clampedTriggerOrigin(const QPointF& origin, const QSizeF& size, const ScreenFrames& screen)
{
    const double minX = screen.visible.x() + screenMargin;
    const double maxX = screen.visible.x() + screen.visible.width() - size.width() - screenMargin;
    const double minY = screen.full.y() + screenMargin;
    const double maxY = screen.visible.y() + screen.visible.height() - size.height() - screenMargin;
    return {std::min(maxX, std::max(minX, origin.x())), std::min(maxY, std::max(minY, origin.y()))};
}

QPointF defaultTriggerOrigin(const QSizeF& size, const ScreenFrames& screen)
{
    return {screen.visible.x() + screen.visible.width() - size.width() - screenMargin, screen.full.y() + screenMargin};
}

QRect constrainedFrame(const QRect& frame, const QRect& screen)
{
    const QPoint end(screen.left() + screen.width() - frame.width(), screen.top() + screen.height() - frame.height());
    const QPoint origin(std::min(std::max(frame.left(), screen.left()), end.x()),
                        std::min(std::max(frame.top(), screen.top()), end.y()));
    return {origin, frame.size()};
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <checkin/PopupPlacement.h>

namespace flitmark {

namespace {

constexpr double fromRight = 20;
constexpr double checkinFromTop = 20;
constexpr double dailyReviewFromTop = 120;

QPointF originInTopRight(const QSizeF& size, double fromTop, const std::optional<ScreenFrames>& screen)
{
    if (!screen) {
        return {0, 0};
    }
    const QRectF& area = screen->visible;
    return {area.x() + area.width() - size.width() - fromRight, area.y() + area.height() - size.height() - fromTop};
}

} // namespace

QPointF checkinOrigin(const QSizeF& size, const std::optional<ScreenFrames>& screen)
{
    return originInTopRight(size, checkinFromTop, screen);
}

QPointF dailyReviewOrigin(const QSizeF& size, const std::optional<ScreenFrames>& screen)
{
    return originInTopRight(size, dailyReviewFromTop, screen);
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/Shadow.h>

#include <QHash>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>

namespace flitmark {

namespace {

/// How far the shadow reaches past the frame, in points.
constexpr int reach = 12;

struct Layer
{
    double opacity;
    double sigma;
    double offsetY;
};
constexpr std::array<Layer, 2> layers{Layer{0.28, 5, 2}, Layer{0.16, 1.5, 1}};

/// The distance of a point from the edge of a rounded square centred on the origin; negative inside.
double distanceToEdge(double x, double y, double halfSide, double radius)
{
    const double dx = std::abs(x) - halfSide + radius;
    const double dy = std::abs(y) - halfSide + radius;
    return std::hypot(std::max(dx, 0.0), std::max(dy, 0.0)) + std::min(std::max(dx, dy), 0.0) - radius;
}

/// The shadow of the smallest square that shows all of it: corners, and one point between them to be stretched.
QImage makeTile(double radius, int cornerSize, double scale)
{
    const int side = static_cast<int>(std::ceil((2 * cornerSize + 1) * scale));
    QImage tile(side, side, QImage::Format_ARGB32_Premultiplied);
    const double halfSide = cornerSize + 0.5 - reach;
    for (int row = 0; row < side; ++row) {
        for (int column = 0; column < side; ++column) {
            const double x = (column + 0.5) / scale - cornerSize - 0.5;
            const double y = (row + 0.5) / scale - cornerSize - 0.5;
            double light = 1;
            for (const Layer& layer : layers) {
                const double distance = distanceToEdge(x, y - layer.offsetY, halfSide, radius);
                light *= 1 - layer.opacity * 0.5 * std::erfc(distance / (layer.sigma * M_SQRT2));
            }
            // Out to nothing over the last points, so that the window's own edge does not show.
            const double past = distanceToEdge(x, y, halfSide, radius);
            const double fade = std::clamp((reach - past) / 4, 0.0, 1.0);
            tile.setPixel(column, row, qRgba(0, 0, 0, static_cast<int>(std::lround(255 * (1 - light) * fade))));
        }
    }
    return tile;
}

} // namespace

void drawShadow(QPainter& painter, const QRectF& frame, double radius)
{
    const double scale = painter.device()->devicePixelRatioF();
    // A corner holds the margin, the rounding and what the blur reaches inwards.
    const int cornerSize = reach + static_cast<int>(std::ceil(radius)) + 16;
    static QHash<std::pair<double, double>, QImage> tiles;
    QImage& tile = tiles[{radius, scale}];
    if (tile.isNull()) {
        tile = makeTile(radius, cornerSize, scale);
    }

    const QRectF outer = frame.adjusted(-reach, -reach, reach, reach);
    const double corner = cornerSize;
    const std::array<double, 4> from{0, corner * scale, (corner + 1) * scale, (2 * corner + 1) * scale};
    const std::array<double, 4> toX{outer.left(), outer.left() + corner, outer.right() - corner, outer.right()};
    const std::array<double, 4> toY{outer.top(), outer.top() + corner, outer.bottom() - corner, outer.bottom()};
    for (size_t row = 0; row < 3; ++row) {
        for (size_t column = 0; column < 3; ++column) {
            if (row == 1 && column == 1) {
                continue;
            }
            painter.drawImage(
                QRectF(QPointF(toX.at(column), toY.at(row)), QPointF(toX.at(column + 1), toY.at(row + 1))), tile,
                QRectF(QPointF(from.at(column), from.at(row)), QPointF(from.at(column + 1), from.at(row + 1))));
        }
    }
}

} // namespace flitmark

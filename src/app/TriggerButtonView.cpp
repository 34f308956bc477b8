// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/TriggerButtonView.h>
#include <platform/RunLoop.h>
#include <ui/Motion.h>
#include <ui/Symbols.h>
#include <ui/ThemeScope.h>

#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <cmath>

namespace flitmark {

namespace {

constexpr double discSide = 48;
constexpr double iconPoints = 20;
constexpr double hoverScale = 1.1;

/// The disc's shadow: black at 25 %, 4 points lower than the disc, fading to nothing before the window ends.
QImage makeShadow(double scale)
{
    const int pixels = static_cast<int>(std::ceil(TriggerButtonView::side * scale));
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    for (int row = 0; row < pixels; ++row) {
        for (int column = 0; column < pixels; ++column) {
            const double x = (column + 0.5) / scale;
            const double y = (row + 0.5) / scale;
            const double fromShadow = std::hypot(x - 28, y - 32);
            const double fromDisc = std::hypot(x - 28, y - 28);
            const double alpha =
                0.25 * std::clamp(1 - (fromShadow - 20) / 8, 0.0, 1.0) * std::clamp((28 - fromDisc) / 3, 0.0, 1.0);
            image.setPixel(column, row, qRgba(0, 0, 0, static_cast<int>(std::lround(255 * alpha))));
        }
    }
    image.setDevicePixelRatio(scale);
    return image;
}

QRectF discRect()
{
    constexpr double inset = (TriggerButtonView::side - discSide) / 2;
    return {inset, inset, discSide, discSide};
}

} // namespace

TriggerButtonView::TriggerButtonView(RunLoop& runLoop, QWidget* parent)
    : QPushButton(parent)
    , m_runLoop(runLoop)
{
    setFixedSize(side, side);
    setAttribute(Qt::WA_Hover);
    setAccessibleName(tr("Flitmark Button"));
    setAccessibleDescription(tr("Shows or hides the note panel"));

    m_iconScale.setStartValue(1.0);
    m_iconScale.setEndValue(hoverScale);
    m_iconScale.setEasingCurve(QEasingCurve::InOutQuad);
    connect(&m_iconScale, &QVariantAnimation::valueChanged, this, [this] { update(); });

    connect(this, &QPushButton::clicked, this, [this] {
        if (!m_drag.isDragging()) {
            Q_EMIT toggled();
        }
    });
}

void TriggerButtonView::setPanelVisible(bool isVisible)
{
    m_isPanelVisible = isVisible;
    update();
}

QRegion TriggerButtonView::opaqueShape()
{
    return {discRect().toRect(), QRegion::Ellipse};
}

void TriggerButtonView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);

    static QImage shadow;
    if (shadow.devicePixelRatio() != devicePixelRatioF() || shadow.isNull()) {
        shadow = makeShadow(devicePixelRatioF());
    }
    painter.drawImage(QPointF(0, 0), shadow);

    painter.setPen(Qt::NoPen);
    painter.setBrush(ThemeScope::of(*this).primary);
    painter.drawEllipse(discRect());
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(Qt::white, 2));
        painter.drawEllipse(discRect().adjusted(2, 2, -2, -2));
    }

    const double scale = m_iconScale.currentValue().isValid() ? m_iconScale.currentValue().toDouble() : 1;
    QRectF icon(0, 0, iconPoints * scale, iconPoints * scale);
    icon.moveCenter(discRect().center());
    const QString symbol = m_isPanelVisible ? QStringLiteral("note.text") : QStringLiteral("plus.square.on.square");
    Symbols::draw(painter, symbol, icon, Qt::white);
}

void TriggerButtonView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        m_drag.begin(window()->pos(), event->globalPosition());
    }
    QPushButton::mousePressEvent(event);
}

void TriggerButtonView::mouseMoveEvent(QMouseEvent* event)
{
    if (const auto topLeft = m_drag.move(event->globalPosition())) {
        Q_EMIT draggedTo(*topLeft);
    }
    QPushButton::mouseMoveEvent(event);
}

void TriggerButtonView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        m_drag.end();
        m_runLoop.after(std::chrono::milliseconds(100), this, [this] { m_drag.settle(); });
    }
    QPushButton::mouseReleaseEvent(event);
}

void TriggerButtonView::enterEvent(QEnterEvent* event)
{
    QPushButton::enterEvent(event);
    setHovered(true);
}

void TriggerButtonView::leaveEvent(QEvent* event)
{
    QPushButton::leaveEvent(event);
    setHovered(false);
}

void TriggerButtonView::setHovered(bool isHovered)
{
    if (m_drag.isDragging()) {
        return;
    }
    m_iconScale.setDirection(isHovered ? QAbstractAnimation::Forward : QAbstractAnimation::Backward);
    m_iconScale.setDuration(motion::duration(200));
    m_iconScale.start();
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <app/TriggerDrag.h>

#include <QPushButton>
#include <QVariantAnimation>

namespace flitmark {

class RunLoop;

/// The round button itself: draws the disc, in its theme's primary colour, and its icon, and tells clicks from drags.
class TriggerButtonView final : public QPushButton
{
    Q_OBJECT

public:
    /// The side of the square view, in points. The disc in it is smaller: the rest is for its shadow and the ring.
    static constexpr int side = 56;

    TriggerButtonView(RunLoop& runLoop, QWidget* parent);
    Q_DISABLE_COPY_MOVE(TriggerButtonView)

    /// While the note panel is on screen the button shows another icon.
    void setPanelVisible(bool isVisible);
    /// The shape of what is drawn, for desktops that have no transparency.
    static QRegion opaqueShape();

Q_SIGNALS:
    /// The button was clicked; not sent for the click that ends a drag.
    void toggled();
    /// The user drags the window to this place: its top left corner, in the desktop's coordinates.
    void draggedTo(const QPointF& topLeft);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void setHovered(bool isHovered);

    RunLoop& m_runLoop;
    TriggerDrag m_drag;
    bool m_isPanelVisible = false;
    QVariantAnimation m_iconScale;
};

} // namespace flitmark

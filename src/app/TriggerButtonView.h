// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <app/RingProgress.h>
#include <app/TriggerDrag.h>
#include <ui/Menu.h>

#include <QPushButton>
#include <QVariantAnimation>

namespace flitmark {

class RunLoop;

/// The round button itself: draws the disc, in its theme's primary colour, its icon and, while a Pomodoro runs, the
/// ring around it. Tells clicks from drags.
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
    /// Shows how much of the Pomodoro remains, 0.0 to 1.0, as a ring; none at either end. Screen readers are told the
    /// `minutes`.
    void setTimerProgress(double progress, std::chrono::minutes minutes);
    bool isTimerActive() const { return m_ring.isShown(); }

    enum class Ground { Transparent, Opaque };
    /// What lies below the ring, which lets its ground shine through.
    void setGround(Ground ground);
    /// The shape of what is drawn, for desktops that have no transparency.
    QRegion opaqueShape() const;

    /// Asks for the menu without the pointer, as screen readers do.
    void askForMenu();

Q_SIGNALS:
    /// The button was clicked; not sent for the click that ends a drag.
    void toggled();
    /// The user drags the window to this place: its top left corner, in the desktop's coordinates.
    void draggedTo(const QPointF& topLeft);
    /// The ring came or went: `opaqueShape` is another one.
    void isTimerActiveChanged();
    /// The menu is wanted at this place on the screen.
    void menuAsked(const QPoint& position, Menu::OpenedBy openedBy);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void setHovered(bool isHovered);
    void updateRing();
    void paintRing(QPainter& painter) const;

    RunLoop& m_runLoop;
    TriggerDrag m_drag;
    bool m_isPanelVisible = false;
    RingProgress m_ring;
    /// What is on the screen of the ring.
    bool m_isRingDrawn = false;
    double m_drawnProgress = 0;
    Ground m_ground = Ground::Transparent;
    QVariantAnimation m_iconScale;
};

} // namespace flitmark

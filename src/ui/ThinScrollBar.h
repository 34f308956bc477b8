// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

class QScrollBar;

namespace flitmark {

class ControlState;

/// A thin upright scroll bar that lies over the right edge of a scrolled widget while there is more than fits. It
/// mirrors the widget's own scroll bar, which is hidden.
class ThinScrollBar final : public QWidget
{
    Q_OBJECT

public:
    /// How wide the bar answers the pointer, in points. What is drawn is thinner.
    static constexpr int hitWidth = 12;

    ThinScrollBar(QScrollBar& source, QWidget* parent);
    Q_DISABLE_COPY_MOVE(ThinScrollBar)

    /// Lies down along the right edge of `area`, above its other children.
    void placeIn(const QRect& area);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    double trackLength() const;
    QRectF thumb() const;

    QScrollBar& m_source;
    ControlState& m_state;
    /// Where the thumb is held, from its top; below zero while it is not.
    double m_grip = -1;
};

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui/ControlState.h>

#include <QAbstractSlider>

namespace flitmark {

/// A slider from left to right whose user moves in whole steps. A value between two steps stays until the user moves
/// it. The wheel is left to what the slider stands in.
class Slider final : public QAbstractSlider
{
    Q_OBJECT

public:
    /// `name` is the accessible name.
    Slider(const QString& name, int minimum, int maximum, int step, QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(Slider)

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void moveToStep();
    void moveTo(double x);
    double knobCentre() const;

    ControlState& m_state;
};

} // namespace flitmark

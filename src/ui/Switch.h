// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui/ControlState.h>

#include <QCheckBox>

namespace flitmark {

/// A switch without a text of its own; to screen readers it is a check box. It stands `ringRoom` inside the widget, so
/// that the focus ring fits around it: lay it out with as much less margin.
class Switch final : public QCheckBox
{
    Q_OBJECT

public:
    static constexpr int ringRoom = 6;

    /// `name` is the accessible name.
    explicit Switch(const QString& name, QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(Switch)

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }
    void paintEvent(QPaintEvent* event) override;

private:
    ControlState& m_state;
    /// Where the knob is: 0 off, 1 on.
    Glide m_position;
};

} // namespace flitmark

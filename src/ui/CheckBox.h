// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui/ControlState.h>

#include <QCheckBox>

namespace flitmark {

/// A check box with its text. Its box stands `ringRoom` inside the widget, so that the focus ring fits around it: lay
/// it out with as much less margin.
class CheckBox final : public QCheckBox
{
    Q_OBJECT

public:
    static constexpr int ringRoom = 6;

    explicit CheckBox(const QString& text, QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(CheckBox)

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }
    void paintEvent(QPaintEvent* event) override;

private:
    ControlState& m_state;
};

} // namespace flitmark

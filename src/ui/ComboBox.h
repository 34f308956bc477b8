// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui/ControlState.h>

#include <QComboBox>

namespace flitmark {

/// A field that opens a list of texts of which one is chosen. The wheel is left to what it stands in.
class ComboBox final : public QComboBox
{
    Q_OBJECT

public:
    /// `name` is the accessible name.
    explicit ComboBox(const QString& name, QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(ComboBox)

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    void showPopup() override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    ControlState& m_state;
};

} // namespace flitmark

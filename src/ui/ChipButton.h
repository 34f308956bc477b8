// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui/ControlState.h>

#include <QPushButton>

namespace flitmark {

/// A quick tag: an emoji that can be switched on and off. To screen readers it is a check box named by the tag's text,
/// as large as the chip.
class ChipButton final : public QPushButton
{
    Q_OBJECT

public:
    /// `icon` is shown, `name` is the tooltip and the accessible name.
    ChipButton(const QString& icon, const QString& name, QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(ChipButton)

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ControlState& m_state;
    Glide m_selection;
    QString m_icon;
};

} // namespace flitmark

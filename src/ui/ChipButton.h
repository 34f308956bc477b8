// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui/ControlState.h>

#include <QCheckBox>

namespace flitmark {

/// A quick tag: an emoji that can be switched on and off. To screen readers it is a check box named by the tag's text.
class ChipButton final : public QCheckBox
{
    Q_OBJECT

public:
    /// `icon` is shown, `name` is the tooltip and the accessible name.
    ChipButton(const QString& icon, const QString& name, QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(ChipButton)

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }
    void paintEvent(QPaintEvent* event) override;

private:
    ControlState& m_state;
    Glide m_selection;
    QString m_icon;
};

} // namespace flitmark

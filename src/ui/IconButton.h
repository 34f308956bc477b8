// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui/ControlState.h>
#include <ui/Theme.h>

#include <QPushButton>

namespace flitmark {

enum class IconButtonSize {
    Regular, ///< 32 by 32
    Small,   ///< 28 by 28: in rows
};

enum class IconButtonGround { None, Boxed };

/// A square button that shows one symbol or one emoji. Its tooltip is its accessible name. Space and Return press it.
class IconButton final : public QPushButton
{
    Q_OBJECT

public:
    /// `name` is the tooltip and the accessible name.
    explicit IconButton(const QString& name, IconButtonSize size = IconButtonSize::Regular, QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(IconButton)

    /// Changes the tooltip and the accessible name.
    void setName(const QString& name);
    /// Shows the symbol `name`, `points` high, in place of what was shown.
    void setSymbol(const QString& name, int points = 20);
    /// Shows `emoji`, `points` high, in place of what was shown.
    void setEmoji(const QString& emoji, int points = 14);
    void setGround(IconButtonGround ground);
    /// The symbol's colour and opacity. With `Theme::text2` it turns to `Theme::text` under the pointer.
    void setColor(ColorToken color, double opacity = 1);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor ink(const Theme& theme) const;

    ControlState& m_state;
    IconButtonSize m_size;
    IconButtonGround m_ground = IconButtonGround::None;
    ColorToken m_color = &Theme::text2;
    double m_opacity = 1;
    QString m_symbol;
    QString m_emoji;
    int m_points = 20;
};

} // namespace flitmark

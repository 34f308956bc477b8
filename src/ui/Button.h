// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui/ControlState.h>
#include <ui/Theme.h>

#include <QPushButton>

namespace flitmark {

enum class ButtonKind {
    Filled, ///< the one main action of a view
    Soft,
    Ghost,
};

enum class ButtonSize {
    Regular, ///< 32 high
    Compact, ///< 28 high, with less padding: the parts of a trail
};

/// A button with a text and, where set, a symbol before it. Space and Return press it.
class Button final : public QPushButton
{
    Q_OBJECT

public:
    explicit Button(const QString& text, ButtonKind kind = ButtonKind::Soft, QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(Button)

    /// Shows the symbol `name` before the text; none for an empty name.
    void setSymbol(const QString& name);
    void setButtonSize(ButtonSize size);
    /// The colour of text and symbol; `Theme::text` unless set. A filled button keeps its white label.
    void setColor(ColorToken color);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Metrics;
    Metrics metrics() const;
    QColor ground(const Theme& theme) const;
    QColor ink(const Theme& theme) const;

    ControlState& m_state;
    ButtonKind m_kind;
    ButtonSize m_size = ButtonSize::Regular;
    ColorToken m_color = &Theme::text;
    QString m_symbol;
};

} // namespace flitmark

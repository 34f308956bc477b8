// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui/Motion.h>

#include <QObject>

class QKeyEvent;
class QWidget;

namespace flitmark {

/// Watches one control for its state (at rest, under the pointer, pressed, focused by keyboard) and repaints it when
/// that changes. The control makes one as a member or child and asks it while painting. To a push button Return is what
/// Space is; together with another key, and from a thing to check, it is left to the view around, on every desktop.
class ControlState final : public QObject
{
    Q_OBJECT

public:
    /// What to look like: as the control is, or fixed for a picture.
    enum class Appearance { Live, Rest, Hovered, Pressed, Focused };

    /// `control` must outlive this.
    explicit ControlState(QWidget& control);
    Q_DISABLE_COPY_MOVE(ControlState)

    /// 0 at rest, 1 under the pointer, 2 pressed; gliding between them. 0 for a disabled control.
    double level() const { return m_level.value(); }

    /// True while the control has the focus and got it by keyboard: only then a ring is drawn.
    bool showsFocus() const;
    /// True while the control has the focus, however it came by it.
    bool hasFocus() const;

    void setAppearance(Appearance appearance);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void handleFocusIn(Qt::FocusReason reason);
    /// Whether the key was a Return, which the control's own handling must not get.
    bool handleReturn(QKeyEvent& event);
    void refresh();
    double wantedLevel() const;

    QWidget& m_control;
    Glide m_level;
    Appearance m_appearance = Appearance::Live;
    bool m_isHovered = false;
    bool m_isPressed = false;
    bool m_isFocusedByKey = false;
};

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/RunLoop.h>
#include <ui/FloatingWindow.h>
#include <ui/KeyPause.h>

namespace flitmark {

class Badge;
class Label;

/// The frame of a popup that comes up by itself: a head with title, badge and close button, a body, and a foot with the
/// time of day. As high as its content asks for, also while it is open; it grows downwards.
///
/// It takes the keyboard from whatever the user is typing into, so what was meant for there must not answer it: for
/// half a second no key does anything, after that Escape closes it, and every other answer needs the focus moved to it
/// first.
class PopupWindow final : public FloatingWindow
{
    Q_OBJECT

public:
    static constexpr int frameWidth = 280;

    struct Texts
    {
        QString windowTitle;
        /// What stands in the head.
        QString heading;
    };

    /// Takes `body` over.
    PopupWindow(WindowManager& windowManager, RunLoop& runLoop, const Texts& texts, QWidget* body);
    Q_DISABLE_COPY_MOVE(PopupWindow)

    /// Shows `text` in the head, before the close button; an empty one hides the badge.
    void setBadge(const QString& text);

    /// The size the frame has, or will have when it is shown.
    QSize fittingSize() const;

    /// Shows the window, or brings it to the front, and gives it the keyboard.
    void makeKeyAndOrderFront();

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// The user closed the popup without an answer. It stays open until somebody hides it.
    void dismissed();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* makeHead(const QString& heading);
    QWidget* makeFoot();
    void fit();
    QString question() const;
    void showTime();

    WindowManager& m_windowManager;
    RunLoop& m_runLoop;
    QWidget* m_body;
    Badge* m_badge = nullptr;
    Label* m_time = nullptr;
    KeyPause m_keyPause;
    std::unique_ptr<RunLoop::Timer> m_clock;
};

} // namespace flitmark

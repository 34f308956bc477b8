// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

class QRect;
class QString;
class QWindow;

namespace flitmark {

/// What the program asks of the desktop's window manager, window by window. Main thread only.
class WindowManager
{
public:
    /// A window of any program; 0 is none.
    using WindowId = quintptr;

    WindowManager() = default;
    virtual ~WindowManager() = default;
    Q_DISABLE_COPY_MOVE(WindowManager)

    /// True when windows may be partly transparent. It can change while the program runs.
    virtual bool isCompositing() const = 0;

    /// Puts `window` on all workspaces, keeps it out of task bar and pager, and has it float where desktops arrange
    /// windows in tiles. One that does not accept the focus is left out when windows are cycled through. The desktop
    /// forgets this with every hiding, so it is asked for again before each showing.
    virtual void makeCompanion(QWindow& window) = 0;

    /// Raises `upper`, and keeps it above `lower` for as long as both are on screen; to be called after each showing of
    /// `lower`. Both are top-level windows, and each may be hidden without the other.
    virtual void keepAbove(QWindow& upper, QWindow& lower) = 0;

    /// Lets the pointer reach `window` only inside `area` (points, from the window's top left corner); what lies
    /// outside belongs to the windows behind it.
    virtual void setInputArea(QWindow& window, const QRect& area) = 0;

    /// Shows `window`, at its next showing, as what the user started: `token` is what the desktop gave for that. The
    /// desktop stops telling that something is about to start.
    virtual void answerActivation(QWindow& window, const QString& token) = 0;

    /// The window that has the keyboard, as far as the desktop tells.
    virtual WindowId activeWindow() const = 0;

    /// Gives the keyboard to `window` again. A window that is gone is ignored.
    virtual void activate(WindowId window) = 0;
};

} // namespace flitmark

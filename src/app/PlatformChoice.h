// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

namespace flitmark {

/// Settles, while the toolkit comes to life, how windows reach the screen: by X11 wherever there is an X server, also
/// in a Wayland session, because windows that float above all others are placed by X11 alone. What the user set in the
/// environment or on the command line goes first. The environment is as it was when this ends, so that programs
/// started later are not bound by the choice.
///
/// Without any display it prints one line and ends the process with status 1, as it does when the display can't be
/// opened or, later, is lost.
class PlatformChoice final
{
public:
    PlatformChoice(int argc, char** argv);
    ~PlatformChoice();
    Q_DISABLE_COPY_MOVE(PlatformChoice)

private:
    bool m_isOurs = false;
};

} // namespace flitmark

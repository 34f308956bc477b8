// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/DemoMode.h>

#include <QString>

namespace flitmark {

/// The mode for pictures of the program: fixed contents in the place of the user's, a panel of fixed size, a chosen tab
/// and, where asked for, a picture of the panel in a file. Set by the environment alone.
struct ScreenshotMode
{
    bool isOn = false;
    /// In lower case: "daily" and "browse" are tabs, anything else means the New tab.
    QString tab = QStringLiteral("new");
    /// Where the picture goes; nothing is captured while it is empty.
    QString output = {};

    /// Read from `FLITMARK_SCREENSHOT_MODE`, on for the value "1" alone, `_TAB` and `_OUTPUT`.
    static ScreenshotMode ofEnvironment();

    DemoMode demoMode() const { return isOn ? DemoMode::On : DemoMode::Off; }
};

/// Lets pictures be taken where there is no display: the toolkit then draws without one. To be called before the
/// application object is made; changes nothing outside the mode or where a display is there.
void choosePlatformForScreenshots();

} // namespace flitmark

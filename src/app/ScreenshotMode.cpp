// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/ScreenshotMode.h>

namespace flitmark {

ScreenshotMode ScreenshotMode::ofEnvironment()
{
    return {
        .isOn = qgetenv("FLITMARK_SCREENSHOT_MODE") == "1",
        .tab = qEnvironmentVariable("FLITMARK_SCREENSHOT_TAB", QStringLiteral("new")).toLower(),
        .output = qEnvironmentVariable("FLITMARK_SCREENSHOT_OUTPUT"),
    };
}

void choosePlatformForScreenshots()
{
    const bool hasDisplay = !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    if (ScreenshotMode::ofEnvironment().isOn && !hasDisplay && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
}

} // namespace flitmark

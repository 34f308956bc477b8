// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/FlitmarkApp.h>
#include <app/ScreenshotMode.h>
#include <platform/linux/RunningCopy.h>

using flitmark::RunningCopy;

int main(int argc, char** argv)
{
    flitmark::choosePlatformForScreenshots();
    // Pictures of the program are taken beside the running copy.
    RunningCopy runningCopy(flitmark::ScreenshotMode::ofEnvironment().isOn ? QString() : RunningCopy::folderOfUser());
    switch (runningCopy.claim()) {
    case RunningCopy::Claim::HandedOver:
        return 0;
    case RunningCopy::Claim::Failed:
        return 1;
    case RunningCopy::Claim::Apart:
    case RunningCopy::Claim::First:
        break;
    }
    flitmark::FlitmarkApp app(argc, argv, runningCopy);
    return app.run();
}

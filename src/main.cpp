// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/FlitmarkApp.h>
#include <app/ScreenshotMode.h>
#include <platform/linux/RunningCopy.h>

#include <fcntl.h>
#include <unistd.h>

using flitmark::RunningCopy;

namespace {

/// Has the three standard descriptors lead nowhere where the program was started without them. The next files to be
/// opened would take their numbers, and what is printed would go into those.
void openStandardDescriptors()
{
    int descriptor = -1;
    do {
        descriptor = ::open("/dev/null", O_RDWR);
    } while (descriptor >= 0 && descriptor <= STDERR_FILENO);
    ::close(descriptor);
}

} // namespace

int main(int argc, char** argv)
{
    openStandardDescriptors();
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

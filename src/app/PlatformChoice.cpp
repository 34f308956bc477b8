// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/PlatformChoice.h>
#include <platform/Print.h>

#include <QString>

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace flitmark {

namespace {

constexpr const char* platformVariable = "QT_QPA_PLATFORM";

/// What was there before ours.
QtMessageHandler formerHandler = nullptr;

/// One line instead of what the toolkit and the libraries below it would say, and no crash. Everything that matters is
/// on disk at any time.
[[noreturn]] void end(const QString& why)
{
    printLine(why);
    std::_Exit(EXIT_FAILURE);
}

[[noreturn]] void endWithoutDisplay(const QString& why)
{
    end(QStringLiteral("Flitmark can't start: %1").arg(why));
}

/// While the toolkit starts: it knows that there is no display only by a crash.
void onStartMessage(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (type == QtFatalMsg) {
        const QString display = qEnvironmentVariable("DISPLAY", qEnvironmentVariable("WAYLAND_DISPLAY"));
        endWithoutDisplay(QStringLiteral("the display \"%1\" can't be opened").arg(display));
    }
    if (!message.contains(QLatin1String("platform plugin")) && !message.contains(QLatin1String("connect to display"))) {
        formerHandler(type, context, message);
    }
}

/// Later: the toolkit's last word before the process would go.
void onMessage(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (message.startsWith(QLatin1String("The X11 connection broke"))) {
        end(QStringLiteral("Flitmark ends: the display is gone. What you wrote is kept."));
    }
    formerHandler(type, context, message);
}

bool isChosenByUser(int argc, char** argv)
{
    return !qEnvironmentVariableIsEmpty(platformVariable) ||
           std::any_of(argv, argv + argc,
                       [](std::string_view argument) { return argument == "-platform" || argument == "--platform"; });
}

} // namespace

PlatformChoice::PlatformChoice(int argc, char** argv)
{
    if (!isChosenByUser(argc, argv)) {
        if (!qEnvironmentVariableIsEmpty("DISPLAY")) {
            m_isOurs = qputenv(platformVariable, "xcb");
        } else if (qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) {
            endWithoutDisplay(QStringLiteral("there is no display; neither DISPLAY nor WAYLAND_DISPLAY is set"));
        }
    }
    formerHandler = qInstallMessageHandler(onStartMessage);
}

PlatformChoice::~PlatformChoice()
{
    qInstallMessageHandler(onMessage);
    if (m_isOurs) {
        qunsetenv(platformVariable);
    }
}

} // namespace flitmark

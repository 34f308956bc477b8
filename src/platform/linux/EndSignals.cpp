// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/linux/EndSignals.h>

#include <QSocketNotifier>

#include <sys/eventfd.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

namespace flitmark {

namespace {

constexpr std::array<int, 3> endSignals{SIGTERM, SIGINT, SIGHUP};

/// Written to by the signal handler, which may do little more.
int wakeUp = -1;

extern "C" void onEndSignal(int)
{
    const int previousError = errno;
    const uint64_t one = 1;
    [[maybe_unused]] const ssize_t written = ::write(wakeUp, &one, sizeof one);
    errno = previousError;
}

} // namespace

EndSignals::EndSignals(QObject* parent)
    : QObject(parent)
{
    wakeUp = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    auto* notifier = new QSocketNotifier(wakeUp, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
        notifier->setEnabled(false);
        Q_EMIT endAsked();
    });
    for (const int signal : endSignals) {
        struct sigaction former = {};
        ::sigaction(signal, nullptr, &former);
        if (signal == SIGHUP && former.sa_handler == SIG_IGN) {
            continue;
        }
        struct sigaction action = {};
        action.sa_handler = &onEndSignal;
        action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
        ::sigaction(signal, &action, nullptr);
    }
}

// The descriptor stays: a signal may still come.
EndSignals::~EndSignals() = default;

} // namespace flitmark

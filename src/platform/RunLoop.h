// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDateTime>
#include <QObject>
#include <QPointer>

#include <chrono>
#include <functional>
#include <memory>

namespace flitmark {

/// Where all time comes from: the current time, and calls to be made later on the main thread.
///
/// Every operation but `async` is for the main thread only. A task is given the object it works on and is dropped if
/// that object is gone when its time comes.
class RunLoop
{
public:
    using Task = std::function<void()>;
    using Duration = std::chrono::milliseconds;

    /// A repeating timer. It runs until it is destroyed, which its own task may do.
    class Timer
    {
    public:
        Timer() = default;
        virtual ~Timer() = default;
        Q_DISABLE_COPY_MOVE(Timer)
    };

    RunLoop() = default;
    virtual ~RunLoop() = default;
    Q_DISABLE_COPY_MOVE(RunLoop)

    /// The current time, in the local time zone.
    virtual QDateTime now() const = 0;

    /// From now to the next full minute and a little more, so that a timer that is early by a hair still finds itself
    /// in it.
    Duration untilNextMinute() const;

    /// Queues `task` for the main thread's next turn, in the order of the calls. May be called from any thread.
    virtual void async(const QObject* owner, Task task) = 0;

    /// Runs `task` once, `delay` from now.
    virtual void after(Duration delay, const QObject* owner, Task task) = 0;

    /// Runs `task` every `period` (more than zero), first one period from now, until the timer is destroyed. A timer
    /// that is late skips the firings it missed and keeps its cadence.
    virtual std::unique_ptr<Timer> every(Duration period, Task task) = 0;
};

/// The run loop of the program, on the main thread, with the application object there.
std::unique_ptr<RunLoop> makeRunLoop();

} // namespace flitmark

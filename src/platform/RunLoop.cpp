// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/RunLoop.h>

#include <QTimer>

#include <algorithm>
#include <limits>

namespace flitmark {

namespace {

using namespace std::chrono_literals;

class QtTimer final : public RunLoop::Timer
{
public:
    QtTimer(RunLoop::Duration period, const RunLoop::Task& task)
    {
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.setInterval(period);
        m_timer.callOnTimeout(&m_timer, task);
        m_timer.start();
    }

private:
    QTimer m_timer;
};

/// Qt keeps intervals in an int of milliseconds: about 24 days. A longer wait is cut there.
RunLoop::Duration clamped(RunLoop::Duration duration)
{
    return std::clamp(duration, RunLoop::Duration(0), RunLoop::Duration(std::numeric_limits<int>::max()));
}

class QtRunLoop final : public RunLoop
{
public:
    QDateTime now() const override { return QDateTime::currentDateTime(); }

    void async(const QObject* owner, Task task) override
    {
        QMetaObject::invokeMethod(&m_context, guarded(owner, std::move(task)), Qt::QueuedConnection);
    }

    void after(Duration delay, const QObject* owner, Task task) override
    {
        QTimer::singleShot(clamped(delay), Qt::PreciseTimer, &m_context, guarded(owner, std::move(task)));
    }

    std::unique_ptr<Timer> every(Duration period, Task task) override
    {
        return std::make_unique<QtTimer>(std::max(clamped(period), Duration(1)), task);
    }

private:
    static Task guarded(const QObject* owner, Task task)
    {
        return [guard = QPointer<const QObject>(owner), task = std::move(task)] {
            if (!guard.isNull()) {
                task();
            }
        };
    }

    QObject m_context;
};

} // namespace

RunLoop::Duration RunLoop::untilNextMinute() const
{
    constexpr Duration littleMore(50);
    return 1min - Duration(now().time().msecsSinceStartOfDay()) % 1min + littleMore;
}

std::unique_ptr<RunLoop> makeRunLoop()
{
    return std::make_unique<QtRunLoop>();
}

} // namespace flitmark

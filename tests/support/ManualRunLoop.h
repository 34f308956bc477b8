// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/RunLoop.h>

#include <algorithm>
#include <map>
#include <vector>

namespace flitmark {

/// A run loop whose clock stands still until a test moves it. Tasks run inside `advance` and `runQueued`, in the order
/// of their time and, at one time, of their making.
class ManualRunLoop final : public RunLoop
{
public:
    explicit ManualRunLoop(QDateTime start = QDateTime(QDate(2026, 1, 22), QTime(14, 3, 5, 123)))
        : m_now(std::move(start))
    {
    }

    QDateTime now() const override { return m_now; }
    void async(const QObject* owner, Task task) override { after(Duration(0), owner, std::move(task)); }
    void after(Duration delay, const QObject* owner, Task task) override
    {
        add(std::max(delay, Duration(0)), [guard = QPointer<const QObject>(owner), task = std::move(task)] {
            if (guard) {
                task();
            }
        });
    }
    std::unique_ptr<Timer> every(Duration period, Task task) override
    {
        auto timer = std::make_unique<ManualTimer>();
        timer->task = std::make_shared<Task>(std::move(task));
        m_timers.push_back(timer->task);
        repeat(std::max(period, Duration(1)), timer->task);
        return timer;
    }

    /// Moves the clock by `duration`, running everything that falls due on the way, each at its own time.
    void advance(Duration duration)
    {
        const Duration until = m_elapsed + duration;
        while (const Task task = takeNext(until)) {
            task();
        }
        moveTo(until);
    }
    /// Runs what is queued, and what that queues in turn, without moving the clock.
    void runQueued() { advance(Duration(0)); }
    /// Sets the clock alone, as a user or a long sleep would: nothing runs, and timers still wait what they had left.
    void setWallClock(const QDateTime& now) { m_now = now; }

    /// How many repeating timers are alive.
    qsizetype timerCount() const
    {
        return std::count_if(m_timers.begin(), m_timers.end(), [](const auto& timer) { return !timer.expired(); });
    }

private:
    struct ManualTimer final : Timer
    {
        std::shared_ptr<Task> task;
    };

    void add(Duration delay, Task task) { m_queue.emplace(m_elapsed + delay, std::move(task)); }
    /// Queues the next firing of `timer`, and with each firing the one after it.
    void repeat(Duration period, const std::weak_ptr<Task>& timer)
    {
        add(period, [this, period, timer] {
            if (const std::shared_ptr<Task> task = timer.lock()) {
                repeat(period, timer);
                (*task)();
            }
        });
    }
    /// The next task due by `until`, with the clock at its time; an empty one when there is none.
    Task takeNext(Duration until)
    {
        if (m_queue.empty() || m_queue.begin()->first > until) {
            return {};
        }
        const auto next = m_queue.extract(m_queue.begin());
        moveTo(next.key());
        return std::move(next.mapped());
    }
    void moveTo(Duration elapsed)
    {
        m_now = m_now.addMSecs((elapsed - m_elapsed).count());
        m_elapsed = elapsed;
    }

    QDateTime m_now;
    Duration m_elapsed{0};
    /// By the time they are due; what is due at one time stands in the order of its making.
    std::multimap<Duration, Task> m_queue;
    std::vector<std::weak_ptr<Task>> m_timers;
};

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/RunLoop.h>

#include <mutex>
#include <vector>

namespace flitmark {

/// A run loop whose clock stands still until a test moves it. Tasks run inside `advance` and `runQueued`, in the order
/// of their time and, at one time, of their making.
class ManualRunLoop final : public RunLoop
{
public:
    explicit ManualRunLoop(QDateTime start = QDateTime(QDate(2026, 1, 22), QTime(14, 3, 5, 123)));

    QDateTime now() const override { return m_now; }
    void async(const QObject* owner, Task task) override;
    void after(Duration delay, const QObject* owner, Task task) override;
    std::unique_ptr<Timer> every(Duration period, Task task) override;

    /// Moves the clock by `duration`, running everything that falls due on the way, each at its own time.
    void advance(Duration duration);
    /// Runs what is queued, and what that queues in turn, without moving the clock.
    void runQueued();
    /// Sets the clock alone, as a user or a long sleep would: nothing runs, and timers still wait what they had left.
    void setWallClock(const QDateTime& now) { m_now = now; }

    /// How many repeating timers are alive.
    qsizetype timerCount() const;

private:
    struct Entry;
    class ManualTimer;

    void add(Duration delay, Task task);
    bool runNext(Duration until);

    QDateTime m_now;
    Duration m_elapsed{0};
    std::mutex m_mutex;
    std::vector<std::shared_ptr<Entry>> m_entries;
    quint64 m_sequence = 0;
};

} // namespace flitmark

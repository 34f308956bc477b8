// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <support/ManualRunLoop.h>

#include <algorithm>

namespace flitmark {

struct ManualRunLoop::Entry
{
    Duration due;
    quint64 sequence;
    Task task;
    Duration period{0};
    bool isCancelled = false;
};

class ManualRunLoop::ManualTimer final : public Timer
{
public:
    explicit ManualTimer(std::shared_ptr<Entry> entry)
        : m_entry(std::move(entry))
    {
    }
    ~ManualTimer() override { m_entry->isCancelled = true; }
    Q_DISABLE_COPY_MOVE(ManualTimer)

private:
    std::shared_ptr<Entry> m_entry;
};

namespace {

RunLoop::Task guarded(const QObject* owner, RunLoop::Task task)
{
    return [guard = QPointer<const QObject>(owner), task = std::move(task)] {
        if (guard) {
            task();
        }
    };
}

} // namespace

ManualRunLoop::ManualRunLoop(QDateTime start)
    : m_now(std::move(start))
{
}

void ManualRunLoop::async(const QObject* owner, Task task)
{
    add(Duration(0), guarded(owner, std::move(task)));
}

void ManualRunLoop::after(Duration delay, const QObject* owner, Task task)
{
    add(std::max(delay, Duration(0)), guarded(owner, std::move(task)));
}

void ManualRunLoop::add(Duration delay, Task task)
{
    const std::lock_guard lock(m_mutex);
    m_entries.push_back(std::make_shared<Entry>(Entry{m_elapsed + delay, m_sequence++, std::move(task)}));
}

std::unique_ptr<RunLoop::Timer> ManualRunLoop::every(Duration period, Task task)
{
    const std::lock_guard lock(m_mutex);
    const Duration step = std::max(period, Duration(1));
    m_entries.push_back(std::make_shared<Entry>(Entry{m_elapsed + step, m_sequence++, std::move(task), step}));
    return std::make_unique<ManualTimer>(m_entries.back());
}

bool ManualRunLoop::runNext(Duration until)
{
    std::shared_ptr<Entry> next;
    {
        const std::lock_guard lock(m_mutex);
        std::erase_if(m_entries, [](const auto& entry) { return entry->isCancelled; });
        const auto found = std::min_element(m_entries.begin(), m_entries.end(), [](const auto& a, const auto& b) {
            return std::tie(a->due, a->sequence) < std::tie(b->due, b->sequence);
        });
        if (found == m_entries.end() || (*found)->due > until) {
            return false;
        }
        next = *found;
        m_now = m_now.addMSecs((next->due - m_elapsed).count());
        m_elapsed = next->due;
        if (next->period > Duration(0)) {
            next->due += next->period;
            next->sequence = m_sequence++;
        } else {
            m_entries.erase(found);
        }
    }
    next->task();
    return true;
}

void ManualRunLoop::advance(Duration duration)
{
    const Duration until = m_elapsed + duration;
    while (runNext(until)) {
    }
    m_now = m_now.addMSecs((until - m_elapsed).count());
    m_elapsed = until;
}

void ManualRunLoop::runQueued()
{
    advance(Duration(0));
}

qsizetype ManualRunLoop::timerCount() const
{
    return std::count_if(m_entries.begin(), m_entries.end(),
                         [](const auto& entry) { return entry->period > Duration(0) && !entry->isCancelled; });
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/Descriptor.h>
#include <platform/FileEventSource.h>

#include <map>
#include <mutex>
#include <thread>
#include <vector>

namespace flitmark {

class InotifyFileEventSource;

/// The system's file events, read by one background thread for all watches. It must outlive the watches.
class InotifyFileEventSources final : public FileEventSources
{
public:
    InotifyFileEventSources() = default;
    ~InotifyFileEventSources() override;
    Q_DISABLE_COPY_MOVE(InotifyFileEventSources)

    tl::expected<std::unique_ptr<FileEventSource>, FileError> open(const QString& path, FileEventSource::Events wanted,
                                                                   FileEventSource::Handler handler) override;

private:
    friend class InotifyFileEventSource;

    tl::expected<void, FileError> start();
    tl::expected<void, FileError> add(InotifyFileEventSource& source, const QString& path);
    int descriptor() const { return m_events.get(); }
    void remove(InotifyFileEventSource& source);
    void run();
    void readEvents();
    void dispatch(int watch, quint32 mask);

    /// Guards the map and is held while a handler runs, so that a watch that was removed is never called again.
    std::mutex m_mutex;
    /// The system has one watch per file, which several sources may share.
    std::map<int, std::vector<InotifyFileEventSource*>> m_watches;
    Descriptor m_events;
    Descriptor m_stop;
    std::thread m_thread;
};

} // namespace flitmark

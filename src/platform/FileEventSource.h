// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/Files.h>

#include <QFlags>
#include <QtGlobal>

#include <functional>
#include <memory>

namespace flitmark {

/// A watch on one file. It follows that file, whatever becomes of its name, until it is cancelled, and does not hold it
/// open: its volume can be unmounted.
///
/// Opened and cancelled on the main thread; cancelled at the latest when it is destroyed.
class FileEventSource
{
public:
    enum class Event {
        /// Data was written into the file, or it was cut or grew.
        Written = 1,
        /// The file was renamed or moved.
        Renamed = 2,
    };
    Q_DECLARE_FLAGS(Events, Event)

    /// Called off the main thread, once for every event of the system, with all that it means.
    using Handler = std::function<void(Events)>;

    FileEventSource() = default;
    virtual ~FileEventSource() = default;
    Q_DISABLE_COPY_MOVE(FileEventSource)

    /// Ends the watch. A call of the handler that is under way is waited for; none comes
    /// after. Not to be called by the handler itself.
    virtual void cancel() = 0;

    /// The descriptor that the events are received on, which watches may share; -1 once cancelled.
    virtual int descriptor() const = 0;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(FileEventSource::Events)

/// Opens the watches.
class FileEventSources
{
public:
    FileEventSources() = default;
    virtual ~FileEventSources() = default;
    Q_DISABLE_COPY_MOVE(FileEventSources)

    /// Watches the file that is at `path` now, a link being followed. `handler` hears of the `wanted` events. An error
    /// says why the file can't be watched.
    virtual tl::expected<std::unique_ptr<FileEventSource>, FileError>
    open(const QString& path, FileEventSource::Events wanted, FileEventSource::Handler handler) = 0;
};

} // namespace flitmark

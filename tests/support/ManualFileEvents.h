// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/FileEventSource.h>

#include <QFileInfo>
#include <QHash>
#include <QStringList>

#include <thread>

namespace flitmark {

/// Watches that report what a test tells them to, each event from a thread of its own, as the real ones do.
class ManualFileEvents final : public FileEventSources
{
public:
    tl::expected<std::unique_ptr<FileEventSource>, FileError> open(const QString& path, FileEventSource::Events wanted,
                                                                   FileEventSource::Handler handler) override
    {
        if (!QFileInfo::exists(path)) {
            return tl::unexpected(FileError{"No such file or directory"});
        }
        auto source = std::make_unique<Source>();
        source->watches = &m_open;
        m_open.insert(source->key = ++m_lastDescriptor, {path, wanted, std::move(handler)});
        return source;
    }

    /// Reports `events` to every watch on `path` that asked for one of them.
    void report(const QString& path, FileEventSource::Events events)
    {
        for (const Watch& watch : std::as_const(m_open)) {
            if (watch.path == path && (watch.wanted & events)) {
                std::thread([&] { watch.handler(watch.wanted & events); }).join();
            }
        }
    }

    /// The paths that are watched now.
    QStringList paths() const
    {
        QStringList all;
        for (const Watch& watch : m_open) {
            all.append(watch.path);
        }
        return all;
    }

private:
    struct Watch
    {
        QString path;
        FileEventSource::Events wanted;
        FileEventSource::Handler handler;
    };

    struct Source final : FileEventSource
    {
        ~Source() override { cancel(); }
        void cancel() override { watches->remove(std::exchange(key, -1)); }
        int descriptor() const override { return key; }

        QHash<int, Watch>* watches = nullptr;
        int key = -1;
    };

    QHash<int, Watch> m_open;
    int m_lastDescriptor = 99;
};

} // namespace flitmark

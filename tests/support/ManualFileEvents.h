// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/FileEventSource.h>

#include <QHash>
#include <QStringList>

#include <thread>

namespace flitmark {

/// Watches that report what a test tells them to, each event from a thread of its own, as the real ones do.
class ManualFileEvents final : public FileEventSources
{
public:
    ManualFileEvents() = default;

    tl::expected<std::unique_ptr<FileEventSource>, FileError> open(const QString& path, FileEventSource::Events wanted,
                                                                   FileEventSource::Handler handler) override
    {
        ++openings;
        if (isBroken) {
            return tl::unexpected(FileError{QStringLiteral("Broken")});
        }
        const int descriptor = m_nextDescriptor++;
        m_open.insert(descriptor, {path, wanted, std::move(handler)});
        return std::make_unique<Source>(*this, descriptor);
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

    /// How many watches were asked for.
    int openings = 0;
    /// Lets every further watch fail.
    bool isBroken = false;

private:
    struct Watch
    {
        QString path;
        FileEventSource::Events wanted;
        FileEventSource::Handler handler;
    };

    class Source final : public FileEventSource
    {
    public:
        Source(ManualFileEvents& owner, int descriptor)
            : m_owner(owner)
            , m_descriptor(descriptor)
        {
        }
        ~Source() override { Source::cancel(); }
        Q_DISABLE_COPY_MOVE(Source)

        void cancel() override
        {
            m_owner.m_open.remove(m_descriptor);
            m_descriptor = -1;
        }
        int descriptor() const override { return m_descriptor; }

    private:
        ManualFileEvents& m_owner;
        int m_descriptor;
    };

    QHash<int, Watch> m_open;
    int m_nextDescriptor = 100;
};

} // namespace flitmark

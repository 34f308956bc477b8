// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/linux/InotifyFileEventSource.h>

#include <QFile>

#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/inotify.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstring>

namespace flitmark {

class InotifyFileEventSource final : public FileEventSource
{
public:
    InotifyFileEventSource(InotifyFileEventSources& owner, Events wanted, Handler handler)
        : m_owner(owner)
        , m_wanted(wanted)
        , m_handler(std::move(handler))
    {
    }
    ~InotifyFileEventSource() override { InotifyFileEventSource::cancel(); }
    Q_DISABLE_COPY_MOVE(InotifyFileEventSource)

    void cancel() override
    {
        m_owner.remove(*this);
        watch = -1;
    }

    int descriptor() const override { return watch < 0 ? -1 : m_owner.descriptor(); }

    quint32 mask() const
    {
        return (m_wanted.testFlag(Event::Written) ? IN_MODIFY : 0U) |
               (m_wanted.testFlag(Event::Renamed) ? IN_MOVE_SELF : 0U);
    }

    void handle(quint32 mask)
    {
        Events events;
        events.setFlag(Event::Written, (mask & IN_MODIFY) != 0);
        events.setFlag(Event::Renamed, (mask & IN_MOVE_SELF) != 0);
        events &= m_wanted;
        if (events != Events()) {
            m_handler(events);
        }
    }

    int watch = -1;

private:
    InotifyFileEventSources& m_owner;
    Events m_wanted;
    Handler m_handler;
};

InotifyFileEventSources::~InotifyFileEventSources()
{
    if (m_thread.joinable()) {
        const quint64 one = 1;
        std::ignore = ::write(m_stop.get(), &one, sizeof(one));
        m_thread.join();
    }
}

tl::expected<std::unique_ptr<FileEventSource>, FileError>
InotifyFileEventSources::open(const QString& path, FileEventSource::Events wanted, FileEventSource::Handler handler)
{
    if (path.contains(QChar::Null)) {
        return systemError(EINVAL);
    }
    auto source = std::make_unique<InotifyFileEventSource>(*this, wanted, std::move(handler));
    if (const auto added = start().and_then([&] { return add(*source, path); }); !added) {
        return tl::unexpected(added.error());
    }
    return source;
}

tl::expected<void, FileError> InotifyFileEventSources::start()
{
    if (m_thread.joinable()) {
        return {};
    }
    m_events.reset(::inotify_init1(IN_CLOEXEC | IN_NONBLOCK));
    m_stop.reset(::eventfd(0, EFD_CLOEXEC));
    if (!m_events.isOpen() || !m_stop.isOpen()) {
        return systemError(errno);
    }
    m_thread = std::thread([this] { run(); });
    return {};
}

tl::expected<void, FileError> InotifyFileEventSources::add(InotifyFileEventSource& source, const QString& path)
{
    const std::lock_guard lock(m_mutex);
    source.watch =
        ::inotify_add_watch(m_events.get(), QFile::encodeName(path).constData(), source.mask() | IN_MASK_ADD);
    if (source.watch < 0) {
        return systemError(errno);
    }
    m_watches[source.watch].push_back(&source);
    return {};
}

void InotifyFileEventSources::remove(InotifyFileEventSource& source)
{
    const std::lock_guard lock(m_mutex);
    const auto watch = m_watches.find(source.watch);
    if (watch != m_watches.end() && std::erase(watch->second, &source) > 0 && watch->second.empty()) {
        ::inotify_rm_watch(m_events.get(), watch->first);
        m_watches.erase(watch);
    }
}

void InotifyFileEventSources::run()
{
    std::array<pollfd, 2> ready = {{{m_events.get(), POLLIN, 0}, {m_stop.get(), POLLIN, 0}}};
    while (true) {
        const int count = ::poll(ready.data(), ready.size(), -1);
        if (count < 0 && errno != EINTR) {
            return;
        }
        if (count > 0 && ready[1].revents != 0) {
            return;
        }
        readEvents();
    }
}

void InotifyFileEventSources::readEvents()
{
    alignas(inotify_event) std::array<char, 4096> buffer = {};
    const ssize_t length = ::read(m_events.get(), buffer.data(), buffer.size());
    for (ssize_t at = 0; at < length;) {
        inotify_event event = {};
        std::memcpy(&event, buffer.data() + at, sizeof(event));
        at += static_cast<ssize_t>(sizeof(event) + event.len);
        dispatch(event.wd, event.mask);
    }
}

void InotifyFileEventSources::dispatch(int watch, quint32 mask)
{
    const std::lock_guard lock(m_mutex);
    const auto found = m_watches.find(watch);
    if (found == m_watches.end()) {
        return;
    }
    for (InotifyFileEventSource* source : found->second) {
        source->handle(mask);
    }
    // The system ends the watch itself when the file system goes.
    if ((mask & IN_IGNORED) != 0) {
        m_watches.erase(found);
    }
}

} // namespace flitmark

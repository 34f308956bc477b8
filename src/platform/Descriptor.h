// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/Files.h>

#include <QtGlobal>

#include <unistd.h>

#include <utility>

namespace flitmark {

/// An open file descriptor, closed when it goes.
class Descriptor final
{
public:
    explicit Descriptor(int fd = -1)
        : m_fd(fd)
    {
    }
    ~Descriptor() { close(); }
    Q_DISABLE_COPY_MOVE(Descriptor)

    bool isOpen() const { return m_fd >= 0; }
    int get() const { return m_fd; }

    /// Leaves the closing to the caller.
    int release() { return std::exchange(m_fd, -1); }

    /// Closes what is open and takes `fd` instead.
    void reset(int fd)
    {
        close();
        m_fd = fd;
    }

    /// False when the system reports a delayed write error.
    bool close() { return m_fd < 0 || ::close(std::exchange(m_fd, -1)) == 0; }

private:
    int m_fd;
};

/// Everything from the place where `file` stands to its end. A folder is an error.
tl::expected<QByteArray, FileError> readAll(const Descriptor& file);

/// Writes `bytes` at the place where `file` stands.
tl::expected<void, FileError> writeAll(const Descriptor& file, const QByteArray& bytes);

} // namespace flitmark

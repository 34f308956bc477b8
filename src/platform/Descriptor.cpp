// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Descriptor.h>

#include <sys/stat.h>

#include <cerrno>

namespace flitmark {

tl::expected<QByteArray, FileError> readAll(const Descriptor& file)
{
    struct stat info = {};
    if (::fstat(file.get(), &info) != 0) {
        return systemError(errno);
    }
    if (S_ISDIR(info.st_mode)) {
        return systemError(EISDIR);
    }
    // One byte more than the file should have, to see its end without growing.
    QByteArray bytes(static_cast<qsizetype>(info.st_size) + 1, Qt::Uninitialized);
    qsizetype done = 0;
    while (true) {
        if (done == bytes.size()) {
            bytes.resize(done + 4096);
        }
        const ssize_t n = ::read(file.get(), bytes.data() + done, static_cast<size_t>(bytes.size() - done));
        if (n < 0 && errno == EINTR) {
            continue;
        }
        if (n < 0) {
            return systemError(errno);
        }
        if (n == 0) {
            bytes.resize(done);
            return bytes;
        }
        done += n;
    }
}

tl::expected<void, FileError> writeAll(const Descriptor& file, const QByteArray& bytes)
{
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::write(file.get(), bytes.constData() + done, static_cast<size_t>(bytes.size() - done));
        if (n < 0 && errno == EINTR) {
            continue;
        }
        if (n < 0) {
            return systemError(errno);
        }
        done += n;
    }
    return {};
}

} // namespace flitmark

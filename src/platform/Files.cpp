// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Descriptor.h>
#include <platform/FileReplacement.h>
#include <platform/Files.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace flitmark {

namespace {

} // namespace

FileError FileError::ofSystem(int code)
{
    return {QString::fromLocal8Bit(::strerrordesc_np(code))};
}

tl::unexpected<FileError> systemError(int code)
{
    return tl::unexpected(FileError::ofSystem(code));
}

tl::expected<QByteArray, FileError> readFile(const QString& path)
{
    if (path.contains(QChar::Null)) {
        return systemError(EINVAL);
    }
    // Without waiting: a pipe in the file's place must not stop the program.
    const Descriptor fd(::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    return fd.isOpen() ? readAll(fd) : systemError(errno);
}

tl::expected<void, FileError> replaceFile(const QString& path, const QByteArray& bytes, Flush flush)
{
    FileReplacement replacement;
    const auto way = replacement.prepare(path, bytes, flush);
    if (!way) {
        return tl::unexpected(way.error());
    }
    if (*way == FileReplacement::Way::InPlace) {
        return overwriteFile(replacement.target(), bytes);
    }
    if (auto renamed = replacement.rename(); !renamed) {
        return renamed;
    }
    if (flush == Flush::ToDisk) {
        replacement.flushFolder();
    } else {
        replacement.closeOldInBackground();
    }
    return {};
}

tl::expected<void, FileError> overwriteFile(const QString& path, const QByteArray& bytes)
{
    if (path.contains(QChar::Null)) {
        return systemError(EINVAL);
    }
    Descriptor fd(::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0666));
    struct stat info = {};
    if (!fd.isOpen() || ::fstat(fd.get(), &info) != 0) {
        return systemError(errno);
    }
    // The room is reserved before the old content is touched, and cut only after the new one is there, so that a reader
    // in between finds no empty file.
    if (S_ISREG(info.st_mode) && ::fallocate(fd.get(), FALLOC_FL_KEEP_SIZE, 0, std::max<off_t>(bytes.size(), 1)) != 0 &&
        (errno == ENOSPC || errno == EDQUOT || errno == EFBIG)) {
        return systemError(errno);
    }
    if (auto written = writeAll(fd, bytes); !written) {
        return written;
    }
    if ((info.st_size > bytes.size() && ::ftruncate(fd.get(), bytes.size()) != 0) || !fd.close()) {
        return systemError(errno);
    }
    return {};
}

void keepUnreadable(const QString& path)
{
    if (const auto bytes = readFile(path)) {
        std::ignore = replaceFile(path + QStringLiteral(".unreadable"), *bytes);
    }
}

tl::expected<void, FileError> createFolder(const QString& path)
{
    if (path.contains(QChar::Null)) {
        return systemError(EINVAL);
    }
    const QString clean = QDir::cleanPath(path);
    if (QFileInfo(clean).isDir()) {
        return {};
    }
    const QString parent = QFileInfo(clean).path();
    if (parent != clean) {
        if (auto made = createFolder(parent); !made) {
            return made;
        }
    }
    if (::mkdir(QFile::encodeName(clean).constData(), 0777) != 0) {
        const int reason = errno;
        const QFileInfo info(clean);
        if (reason != EEXIST) {
            return systemError(reason);
        }
        // "File exists" would not tell the user what is wrong with a file, or a link to nothing, in a folder's place.
        if (!info.isDir()) {
            return systemError(info.exists() ? ENOTDIR : ENOENT);
        }
    }
    return {};
}

} // namespace flitmark

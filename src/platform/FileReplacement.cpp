// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Links.h>
#include <platform/FileReplacement.h>

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QThreadPool>

#include <fcntl.h>
#include <sys/xattr.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace flitmark {

namespace {

/// Gives the new file what the old one had besides its content. What the system does not allow is left out.
void copyAttributes(int from, int to, const struct stat& old)
{
    if (::fchown(to, old.st_uid, old.st_gid) != 0) {
        // Another owner's file, writable for us through its folder: it becomes ours, its group stays if it may.
        std::ignore = ::fchown(to, static_cast<uid_t>(-1), old.st_gid);
    }
    ::fchmod(to, old.st_mode & 07777U);

    constexpr qsizetype mostBytes = 65536; // of a list and of a value, as the system limits both
    QByteArray names(mostBytes, '\0');
    const ssize_t length = ::flistxattr(from, names.data(), static_cast<size_t>(names.size()));
    for (ssize_t at = 0; at < length;) {
        const char* name = names.constData() + at;
        QByteArray value(mostBytes, '\0');
        const ssize_t size = ::fgetxattr(from, name, value.data(), static_cast<size_t>(value.size()));
        if (size >= 0) {
            ::fsetxattr(to, name, value.constData(), static_cast<size_t>(size), 0);
        }
        at += static_cast<ssize_t>(std::strlen(name)) + 1;
    }
}

/// Where a write to `path` really lands: the end of a chain of links, which need not exist yet.
tl::expected<QString, FileError> followLinks(const QString& path)
{
    if (!QFileInfo(path).isSymLink()) {
        return path;
    }
    return resolveLinks(path).map_error(&FileError::ofSystem);
}

/// A name in `folder` that file lists and sync programs pass over: hidden, and shaped like a temporary file.
QByteArray temporaryName(const QString& folder)
{
    const QString random = QString::number(QRandomGenerator::global()->generate64(), 36);
    return QFile::encodeName(folder + QStringLiteral("/.~flitmark-") + random + QStringLiteral(".tmp"));
}

/// Opens a file in `folder` that has no name yet, or, where the file system has no such thing, one named `name`.
int openTemporary(const QString& folder, const QByteArray& name, bool& isNamed)
{
    const int unnamed = ::open(QFile::encodeName(folder).constData(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666);
    isNamed = unnamed < 0;
    return isNamed ? ::open(name.constData(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0666) : unnamed;
}

bool giveName(int fd, const QByteArray& name)
{
    const QByteArray self = "/proc/self/fd/" + QByteArray::number(fd);
    return ::linkat(AT_FDCWD, self.constData(), AT_FDCWD, name.constData(), AT_SYMLINK_FOLLOW) == 0;
}

} // namespace

FileReplacement::~FileReplacement()
{
    if (m_hasHiddenFile) {
        ::unlink(m_hiddenName.constData());
    }
}

tl::expected<FileReplacement::Way, FileError> FileReplacement::prepare(const QString& path, const QByteArray& bytes,
                                                                       Flush flush)
{
    if (path.isEmpty() || path.contains(QChar::Null)) {
        return systemError(path.isEmpty() ? ENOENT : EINVAL);
    }
    const tl::expected<QString, FileError> target = followLinks(path);
    if (!target) {
        return tl::unexpected(target.error());
    }
    m_target = *target;
    m_targetName = QFile::encodeName(m_target);
    m_folder = QFileInfo(m_target).absolutePath();

    struct stat oldInfo = {};
    const bool exists = ::stat(m_targetName.constData(), &oldInfo) == 0;
    if (exists && S_ISDIR(oldInfo.st_mode)) {
        return systemError(EISDIR);
    }
    if (exists && !S_ISREG(oldInfo.st_mode)) {
        return Way::InPlace;
    }
    // A file its user made read-only is not to be replaced through its folder's permissions either.
    if (exists && ::access(m_targetName.constData(), W_OK) != 0) {
        return systemError(errno);
    }

    m_old.reset(exists ? ::open(m_targetName.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK) : -1);

    m_hiddenName = temporaryName(m_folder);
    m_file.reset(openTemporary(m_folder, m_hiddenName, m_hasHiddenFile));
    if (!m_file.isOpen()) {
        const int reason = errno;
        m_hasHiddenFile = false;
        return exists && (reason == EACCES || reason == EPERM) ? tl::expected<Way, FileError>(Way::InPlace)
                                                               : tl::expected<Way, FileError>(systemError(reason));
    }
    if (m_old.isOpen()) {
        copyAttributes(m_old.get(), m_file.get(), oldInfo);
    } else if (exists) {
        ::fchmod(m_file.get(), oldInfo.st_mode & 07777U);
    }
    return write(bytes, flush).map([] { return Way::Beside; });
}

tl::expected<void, FileError> FileReplacement::write(const QByteArray& bytes, Flush flush)
{
    if (auto written = writeAll(m_file, bytes); !written) {
        return written;
    }
    if ((flush == Flush::ToDisk && ::fsync(m_file.get()) != 0) || ::fstat(m_file.get(), &m_info) != 0) {
        return systemError(errno);
    }
    if (!m_hasHiddenFile && !giveName(m_file.get(), m_hiddenName)) {
        return systemError(errno);
    }
    m_hasHiddenFile = true;
    return m_file.close() ? tl::expected<void, FileError>() : systemError(errno);
}

tl::expected<void, FileError> FileReplacement::rename()
{
    if (::rename(m_hiddenName.constData(), m_targetName.constData()) != 0) {
        return systemError(errno);
    }
    m_hasHiddenFile = false;
    return {};
}

void FileReplacement::closeOldInBackground()
{
    if (m_old.isOpen()) {
        QThreadPool::globalInstance()->start([fd = m_old.release()] { ::close(fd); });
    }
}

bool FileReplacement::exchange()
{
    return ::renameat2(AT_FDCWD, m_hiddenName.constData(), AT_FDCWD, m_targetName.constData(), RENAME_EXCHANGE) == 0;
}

bool FileReplacement::isNewContent(const QByteArray& name) const
{
    struct stat info = {};
    return ::stat(name.constData(), &info) == 0 && info.st_ino == m_info.st_ino && info.st_dev == m_info.st_dev;
}

void FileReplacement::flushFolder() const
{
    const Descriptor fd(::open(QFile::encodeName(m_folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (fd.isOpen()) {
        ::fsync(fd.get());
    }
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Links.h>
#include <platform/Files.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>
#include <utility>

namespace flitmark {

namespace {

tl::unexpected<FileError> systemError(int code)
{
    return tl::unexpected(FileError::ofSystem(code));
}

/// An open file descriptor, closed when it goes.
class Descriptor
{
public:
    explicit Descriptor(int fd)
        : m_fd(fd)
    {
    }
    ~Descriptor() { close(); }
    Q_DISABLE_COPY_MOVE(Descriptor)

    bool isOpen() const { return m_fd >= 0; }
    int get() const { return m_fd; }

    /// False when the system reports a delayed write error.
    bool close() { return m_fd < 0 || ::close(std::exchange(m_fd, -1)) == 0; }

private:
    int m_fd;
};

bool writeAll(int fd, const QByteArray& bytes)
{
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::write(fd, bytes.constData() + done, static_cast<size_t>(bytes.size() - done));
        if (n < 0 && errno == EINTR) {
            continue;
        }
        if (n < 0) {
            return false;
        }
        done += n;
    }
    return true;
}

/// Gives the new file what the old one had besides its content. What the system does not allow is left out.
void copyAttributes(int from, int to, const struct stat& old)
{
    if (::fchown(to, old.st_uid, old.st_gid) != 0) {
        // Another owner's file, writable for us through its folder: it becomes ours, its group stays if it may.
        std::ignore = ::fchown(to, static_cast<uid_t>(-1), old.st_gid);
    }
    ::fchmod(to, old.st_mode & 07777U);

    QByteArray names(64 * 1024, '\0');
    const ssize_t length = ::flistxattr(from, names.data(), static_cast<size_t>(names.size()));
    for (ssize_t at = 0; at < length;) {
        const char* name = names.constData() + at;
        QByteArray value(64 * 1024, '\0');
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
    if (const std::optional<QString> target = resolveLinks(path)) {
        return *target;
    }
    struct stat info = {};
    return systemError(::stat(QFile::encodeName(path).constData(), &info) != 0 ? errno : ELOOP);
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

/// Waits until the names in `folder` are on disk. A file system that cannot is none the worse.
void flushFolder(const QString& folder)
{
    const Descriptor fd(::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (fd.isOpen()) {
        ::fsync(fd.get());
    }
}

} // namespace

FileError FileError::ofSystem(int code)
{
    return {QString::fromLocal8Bit(::strerrordesc_np(code))};
}

tl::expected<QByteArray, FileError> readFile(const QString& path)
{
    if (path.contains(QChar::Null)) {
        return systemError(EINVAL);
    }
    // Without waiting: a pipe in the file's place must not stop the program.
    const Descriptor fd(::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat info = {};
    if (!fd.isOpen() || ::fstat(fd.get(), &info) != 0) {
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
        const ssize_t n = ::read(fd.get(), bytes.data() + done, static_cast<size_t>(bytes.size() - done));
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

tl::expected<void, FileError> replaceFile(const QString& path, const QByteArray& bytes, Flush flush)
{
    if (path.contains(QChar::Null)) {
        return systemError(EINVAL);
    }
    const tl::expected<QString, FileError> target = followLinks(path);
    if (!target) {
        return tl::unexpected(target.error());
    }
    const QByteArray targetName = QFile::encodeName(*target);
    const QString folder = QFileInfo(*target).absolutePath();

    const Descriptor old(::open(targetName.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat oldInfo = {};
    const bool exists = ::stat(targetName.constData(), &oldInfo) == 0;
    if (exists && S_ISDIR(oldInfo.st_mode)) {
        return systemError(EISDIR);
    }
    if (exists && !S_ISREG(oldInfo.st_mode)) {
        return overwriteFile(*target, bytes);
    }
    // A file its user made read-only is not to be replaced through its folder's permissions either.
    if (exists && ::access(targetName.constData(), W_OK) != 0) {
        return systemError(errno);
    }

    bool isNamed = false;
    const QByteArray temporary = temporaryName(folder);
    Descriptor fd(openTemporary(folder, temporary, isNamed));
    if (!fd.isOpen()) {
        const int reason = errno;
        return exists && (reason == EACCES || reason == EPERM) ? overwriteFile(*target, bytes) : systemError(reason);
    }
    if (exists) {
        if (old.isOpen()) {
            copyAttributes(old.get(), fd.get(), oldInfo);
        } else {
            ::fchmod(fd.get(), oldInfo.st_mode & 07777U);
        }
    }
    const bool written = writeAll(fd.get(), bytes) && (flush == Flush::Later || ::fsync(fd.get()) == 0) &&
                         (isNamed || giveName(fd.get(), temporary)) && fd.close() &&
                         ::rename(temporary.constData(), targetName.constData()) == 0;
    if (!written) {
        const int reason = errno;
        ::unlink(temporary.constData());
        return systemError(reason);
    }
    if (flush == Flush::ToDisk) {
        flushFolder(folder);
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
    if (!writeAll(fd.get(), bytes) || (info.st_size > bytes.size() && ::ftruncate(fd.get(), bytes.size()) != 0) ||
        !fd.close()) {
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
    if (::mkdir(QFile::encodeName(clean).constData(), 0777) != 0 && (errno != EEXIST || !QFileInfo(clean).isDir())) {
        return systemError(errno);
    }
    return {};
}

} // namespace flitmark

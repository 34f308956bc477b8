// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Descriptor.h>
#include <platform/FileReplacement.h>
#include <platform/Files.h>

#include <QThread>

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <csignal>
#include <optional>
#include <utility>

namespace flitmark {

namespace {

// How long a program may have the file open for writing before we go on without being sure of it.
constexpr int maximumLeaseTries = 25;
constexpr unsigned long leaseTryMilliseconds = 2;

/// A file held still: as far as the system can, nobody writes into it while this lives, whoever tries waits for its
/// end. The hold is a read lease, which is given only while nobody has the file open for writing.
class HeldFile final
{
public:
    explicit HeldFile(const QByteArray& name)
        : m_file(::open(name.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK))
    {
        if (!m_file.isOpen() || ::fstat(m_file.get(), &m_info) != 0) {
            return;
        }
        // The system tells of a waiting writer by a signal; this one is ignored where nobody asks for it.
        ::fcntl(m_file.get(), F_SETSIG, SIGURG);
        for (int tries = 0; tries < maximumLeaseTries; ++tries) {
            m_isLeased = ::fcntl(m_file.get(), F_SETLEASE, F_RDLCK) == 0;
            if (m_isLeased || errno != EAGAIN) {
                return;
            }
            QThread::msleep(leaseTryMilliseconds);
        }
    }
    ~HeldFile() = default;
    Q_DISABLE_COPY_MOVE(HeldFile)

    bool holds(const QByteArray& bytes) const
    {
        return m_file.isOpen() && ::lseek(m_file.get(), 0, SEEK_SET) == 0 && readAll(m_file) == bytes;
    }

    bool isAt(const QByteArray& name) const
    {
        struct stat info = {};
        return m_file.isOpen() && ::stat(name.constData(), &info) == 0 && info.st_ino == m_info.st_ino &&
               info.st_dev == m_info.st_dev;
    }

    /// True when nobody has written since `holds(bytes)` was true, or waits to.
    bool isStill(const QByteArray& bytes) const
    {
        return m_isLeased ? ::fcntl(m_file.get(), F_GETLEASE) == F_RDLCK : holds(bytes);
    }

private:
    Descriptor m_file;
    struct stat m_info = {};
    bool m_isLeased = false;
};

/// Tells programs that follow the events of the folder, rather than look, that the file is there and has a new content:
/// the last they heard of its name is that it went away with the old one.
void announce(const QByteArray& name)
{
    const Descriptor file(::open(name.constData(), O_WRONLY | O_CLOEXEC | O_NONBLOCK));
    if (file.isOpen()) {
        ::futimens(file.get(), nullptr);
    }
}

/// Undoes an exchange that put the new content in the place of a file other than the one that was read, or of one that
/// somebody waits to write into.
void takeBack(FileReplacement& replacement)
{
    const bool isBack = replacement.exchange();
    // Somebody renamed over our content meanwhile: that is the last word.
    if (isBack && !replacement.isNewContent(replacement.hiddenName())) {
        replacement.exchange();
    }
}

/// For file systems that can't swap two names.
tl::expected<ReplaceOutcome, FileError> renameOver(FileReplacement& replacement, const HeldFile& old,
                                                   const QByteArray& expected)
{
    if (!old.isAt(replacement.targetName()) || !old.isStill(expected)) {
        return ReplaceOutcome::Changed;
    }
    return replacement.rename().map([] { return ReplaceOutcome::Replaced; });
}

} // namespace

tl::expected<ReplaceOutcome, FileError> replaceFileIfUnchanged(const QString& path, const QByteArray& expected,
                                                               const QByteArray& bytes)
{
    const auto current = readFile(path);
    if (!current) {
        return tl::unexpected(current.error());
    }
    if (*current != expected) {
        return ReplaceOutcome::Changed;
    }
    FileReplacement replacement;
    const auto way = replacement.prepare(path, bytes, Flush::ToDisk);
    if (!way) {
        return tl::unexpected(way.error());
    }
    if (*way == FileReplacement::Way::InPlace) {
        return overwriteFile(replacement.target(), bytes).map([] { return ReplaceOutcome::Replaced; });
    }

    const HeldFile old(replacement.targetName());
    std::optional<HeldFile> fresh(std::in_place, replacement.hiddenName());
    if (!old.holds(expected)) {
        return ReplaceOutcome::Changed;
    }
    if (!replacement.exchange()) {
        return errno == EINVAL || errno == ENOSYS ? renameOver(replacement, old, expected)
                                                  : tl::expected<ReplaceOutcome, FileError>(systemError(errno));
    }
    // Whoever turned to the new content waits for us; where the system can't make him wait, and he has written into it
    // already, that is the file.
    const bool isTaken = !fresh->holds(bytes);
    if (!isTaken && (!old.isAt(replacement.hiddenName()) || !old.isStill(expected))) {
        takeBack(replacement);
        return ReplaceOutcome::Changed;
    }
    fresh.reset();
    announce(replacement.targetName());
    replacement.flushFolder();
    return ReplaceOutcome::Replaced;
}

} // namespace flitmark

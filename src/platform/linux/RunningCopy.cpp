// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Directories.h>
#include <platform/Files.h>
#include <platform/Print.h>
#include <platform/linux/RunningCopy.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSocketNotifier>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>

namespace flitmark {

namespace {

/// What one write puts into a pipe as a whole is at most this long; tokens are a fraction of it.
constexpr qsizetype longestWish = 4096;

/// The named pipe at `path`, made where there is none; something else of that name gives way to it.
Descriptor openPipe(const QByteArray& path)
{
    for (int attempt = 0; attempt < 2; ++attempt) {
        if (::mkfifo(path.constData(), S_IRUSR | S_IWUSR) != 0 && errno != EEXIST) {
            break;
        }
        // Open both ways: the reader never comes to an end when a writer leaves.
        const int fd = ::open(path.constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC | O_NOFOLLOW);
        struct stat info = {};
        if (fd >= 0 && ::fstat(fd, &info) == 0 && S_ISFIFO(info.st_mode)) {
            return Descriptor(fd);
        }
        const Descriptor other(fd);
        ::unlink(path.constData());
    }
    return Descriptor();
}

} // namespace

RunningCopy::RunningCopy(const QString& folder, const QByteArray& activationToken)
    : m_claim(claimIn(folder, activationToken))
{
}

RunningCopy::~RunningCopy() = default;

QString RunningCopy::folderOfUser()
{
    const QString systemFolder = QStringLiteral("/run/user/%1").arg(::getuid());
    for (const QString& folder : {qEnvironmentVariable("XDG_RUNTIME_DIR"), systemFolder}) {
        if (QDir::isAbsolutePath(folder) && QFileInfo(folder).isDir() && QFileInfo(folder).isWritable()) {
            return folder;
        }
    }
    QString own = Directories::ofUser().ownFolder();
    // A failure shows when the pipe can't be made.
    static_cast<void>(createFolder(own));
    return own;
}

QByteArray RunningCopy::tokenOfStart()
{
    const QByteArray token = qgetenv("XDG_ACTIVATION_TOKEN");
    return token.isEmpty() ? qgetenv("DESKTOP_STARTUP_ID") : token;
}

RunningCopy::Claim RunningCopy::claimIn(const QString& folder, const QByteArray& activationToken)
{
    if (folder.isEmpty()) {
        return Claim::Apart;
    }
    m_pipe.reset(openPipe(QFile::encodeName(folder + QStringLiteral("/org.flitmark.Flitmark.running"))).release());
    if (!m_pipe.isOpen()) {
        printLine(QStringLiteral("Nothing keeps a second copy from starting: %1: %2")
                      .arg(folder, FileError::ofSystem(errno).message));
        return Claim::First;
    }
    if (::flock(m_pipe.get(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) {
        return Claim::First;
    }
    const QByteArray wish = activationToken.left(longestWish - 1).replace('\n', ' ') + '\n';
    const bool isTold = ::write(m_pipe.get(), wish.constData(), static_cast<size_t>(wish.size())) == wish.size();
    if (!isTold) {
        printLine(QStringLiteral("Flitmark is running, but does not listen"));
    }
    return isTold ? Claim::HandedOver : Claim::Failed;
}

void RunningCopy::listen()
{
    if (m_claim != Claim::First || !m_pipe.isOpen() || m_notifier) {
        return;
    }
    m_notifier = std::make_unique<QSocketNotifier>(m_pipe.get(), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &RunningCopy::readWishes);
}

void RunningCopy::readWishes()
{
    QByteArray wishes;
    std::array<char, longestWish> block{};
    for (ssize_t length = 0; (length = ::read(m_pipe.get(), block.data(), block.size())) > 0;) {
        wishes.append(block.data(), length);
    }
    // Many starts at once are one wish; the last token is the freshest.
    wishes.chop(wishes.endsWith('\n') ? 1 : 0);
    Q_EMIT activationAsked(QString::fromUtf8(wishes.mid(wishes.lastIndexOf('\n') + 1)));
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/AutostartEntry.h>
#include <platform/Directories.h>
#include <platform/Files.h>
#include <platform/linux/AutostartLoginService.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace flitmark {

namespace {

bool canStart(const QString& program)
{
    const QFileInfo file(program);
    return file.isAbsolute() ? file.isFile() && file.isExecutable()
                             : !QStandardPaths::findExecutable(program).isEmpty();
}

} // namespace

AutostartLoginService::AutostartLoginService(const QString& configHome, QString program)
    : m_folder(configHome + QStringLiteral("/autostart"))
    , m_entry(m_folder + QStringLiteral("/org.flitmark.Flitmark.desktop"))
    , m_program(std::move(program))
{
}

LoginService::Status AutostartLoginService::status() const
{
    struct stat info = {};
    if (::stat(QFile::encodeName(m_entry).constData(), &info) != 0 && (errno == ENOENT || errno == ENOTDIR)) {
        return Status::NotRegistered;
    }
    const auto text = readFile(m_entry);
    const std::optional<AutostartEntry> entry = text ? parseAutostartEntry(*text) : std::nullopt;
    if (!entry) {
        return Status::Unknown;
    }
    if (entry->isSwitchedOff) {
        return Status::RequiresApproval;
    }
    return canStart(entry->program) ? Status::Enabled : Status::NotFound;
}

LoginService::Outcome AutostartLoginService::registerProgram()
{
    const auto written =
        createFolder(m_folder).and_then([this] { return replaceFile(m_entry, autostartEntryText(m_program)); });
    return written.map_error([](const FileError& error) { return error.message; });
}

LoginService::Outcome AutostartLoginService::unregisterProgram()
{
    if (::unlink(QFile::encodeName(m_entry).constData()) != 0 && errno != ENOENT && errno != ENOTDIR) {
        return tl::unexpected(FileError::ofSystem(errno).message);
    }
    return {};
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <tl/expected.hpp>

namespace flitmark {

// The paths are absolute. One with a NUL inside names no file and is an error, rather than the file named by its first
// part.

/// Why a file operation failed, in the system's own words ("No such file or directory").
struct FileError
{
    QString message;

    /// The system's words for the error number `code`.
    static FileError ofSystem(int code);
};

/// The same as a result: what an operation returns that failed with the error number `code`.
tl::unexpected<FileError> systemError(int code);

/// The whole content of the file at `path`.
tl::expected<QByteArray, FileError> readFile(const QString& path);

/// Whether a replaced file has reached the disk when the call returns, or is left to the system to write out soon.
enum class Flush { ToDisk, Later };

/// Makes `bytes` the content of the file at `path`, as a whole or not at all: they are written beside it under a hidden
/// name and renamed over it. A link is followed and stays; permissions, extended attributes and, where allowed, the
/// owner are kept. Where the folder takes no second file, and into a device or a pipe, the content is written in place.
/// On failure the file is as it was and nothing else is left behind.
tl::expected<void, FileError> replaceFile(const QString& path, const QByteArray& bytes, Flush flush = Flush::ToDisk);

/// What came of `replaceFileIfUnchanged`.
enum class ReplaceOutcome {
    Replaced,
    /// The file held something else and stayed as it was.
    Changed,
};

/// Makes `bytes` the content of the file at `path` in the way of `replaceFile`, flushed to disk, but only while it
/// holds `expected`. The file must be there.
///
/// What other programs write at the same time is not lost: one that has the file open for writing is waited for (a
/// moment), one that opens it meanwhile is made to wait by the system, and a file that was renamed over this one in the
/// last moment is put back. Who was made to wait may hold a file then that has lost its name, as after any save by
/// renaming. Where the file system or its rights give no such hold on a file, a short moment remains in
/// which a write into the open file goes unseen.
tl::expected<ReplaceOutcome, FileError> replaceFileIfUnchanged(const QString& path, const QByteArray& expected,
                                                               const QByteArray& bytes);

/// Rewrites the file at `path` in place, creating it if needed, so that whoever holds it open sees the new content. On
/// a full disk the file stays as it was.
tl::expected<void, FileError> overwriteFile(const QString& path, const QByteArray& bytes);

/// Copies the file at `path`, which could not be understood, to a file beside it whose name ends in ".unreadable", so
/// that writing a new one loses nothing. An older copy is replaced; a failure is of no consequence and has no message.
void keepUnreadable(const QString& path);

/// Creates the folder at `path` with all its parents; one that is there already is a success.
tl::expected<void, FileError> createFolder(const QString& path);

} // namespace flitmark

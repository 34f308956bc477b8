// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/Descriptor.h>
#include <platform/Files.h>

#include <sys/stat.h>

namespace flitmark {

/// A new content for a file, written beside it under a hidden name and ready to take its place: what `replaceFile` and
/// `replaceFileIfUnchanged` have in common. Whatever stands under the hidden name at the end is removed.
class FileReplacement final
{
public:
    FileReplacement() = default;
    ~FileReplacement();
    Q_DISABLE_COPY_MOVE(FileReplacement)

    enum class Way {
        /// The content is ready beside the file.
        Beside,
        /// The place takes no second file, or is a device or a pipe: only writing in place is left.
        InPlace,
    };

    /// Writes `bytes` beside the file that `path` leads to, with what that file has besides its content. Once.
    tl::expected<Way, FileError> prepare(const QString& path, const QByteArray& bytes, Flush flush);

    /// The end of the links at the prepared path.
    const QString& target() const { return m_target; }
    const QByteArray& targetName() const { return m_targetName; }
    /// The hidden name: that of the new content, or of the old one after an exchange.
    const QByteArray& hiddenName() const { return m_hiddenName; }

    /// Renames the new content over the file.
    tl::expected<void, FileError> rename();
    /// After the rename, closes the last descriptor of the replaced file off the caller's thread. The system frees the
    /// file then, and lets whoever closes it wait until the disk has taken what it once held.
    void closeOldInBackground();
    /// Swaps the two names; `errno` tells why when it returns false.
    bool exchange();
    /// True when the file at `name` is the new content's.
    bool isNewContent(const QByteArray& name) const;
    /// Waits until the names in the folder are on disk. A file system that cannot is none the worse.
    void flushFolder() const;

private:
    tl::expected<void, FileError> write(const QByteArray& bytes, Flush flush);

    QString m_target;
    QByteArray m_targetName;
    QString m_folder;
    QByteArray m_hiddenName;
    Descriptor m_old;
    Descriptor m_file;
    struct stat m_info = {};
    bool m_hasHiddenFile = false;
};

} // namespace flitmark

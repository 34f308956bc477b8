// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/Files.h>

#include <QDateTime>
#include <QList>
#include <QString>

#include <functional>

namespace flitmark {

/// One file or folder directly inside a listed folder.
struct FolderEntry
{
    QString name;
    bool isFolder = false;
    /// Whether it is an ordinary file, which can be read from its beginning to its end.
    bool isFile = false;
    /// When the content was last modified, in nanoseconds since 1970.
    qint64 modified = 0;

    QDateTime modificationDate() const { return QDateTime::fromMSecsSinceEpoch(modified / 1000000); }
};

/// The entries of the folder at `path` that are not hidden and whose name `isWanted` accepts, in no order. Links are
/// followed: an entry that leads nowhere or may not be looked at is left out.
tl::expected<QList<FolderEntry>, FileError> listFolder(const QString& path,
                                                       const std::function<bool(const QString& name)>& isWanted);

} // namespace flitmark

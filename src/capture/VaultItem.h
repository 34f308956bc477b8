// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDateTime>
#include <QList>
#include <QString>

namespace flitmark {

class NameOrder;

/// One entry of a vault's folder: a folder or a Markdown file. Identified by its absolute path.
///
/// There may be a hundred thousand of them: what can be told from the rest is not stored.
struct VaultItem
{
    /// The absolute path of the folder it lies in.
    QString folder;
    /// With the extension.
    QString name;
    bool isDirectory = false;
    /// Whether it is an ordinary file, with a text that can be read.
    bool isFile = false;
    /// In milliseconds since 1970.
    qint64 modified = 0;

    QString id() const { return folder + u'/' + name; }
    QString url() const { return id(); }
    QDateTime modificationDate() const { return QDateTime::fromMSecsSinceEpoch(modified); }
    /// The name of the symbol that stands for it.
    QString icon() const;
    /// At most 80 characters of its text, read from the file at every call; empty for a folder.
    QString readPreview() const;
};

/// The folders and Markdown files directly in the folder at `folder`, an absolute path: folders first, by name in
/// `order`. Hidden ones are left out. Empty when there is no such folder; one that can't be listed prints a line.
QList<VaultItem> listVaultItems(const QString& folder, const NameOrder& order);

} // namespace flitmark

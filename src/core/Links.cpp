// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Links.h>

#include <QFile>
#include <QStringList>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

namespace flitmark {

namespace {

// As many as the system itself follows in one path.
constexpr int maximumLinks = 40;

void pushReversed(QStringList& pending, const QString& path)
{
    QStringList names = path.split(u'/', Qt::SkipEmptyParts);
    std::reverse(names.begin(), names.end());
    pending.append(std::move(names));
}

} // namespace

tl::expected<QString, int> resolveLinks(const QString& path)
{
    namespace fs = std::filesystem;

    QStringList pending; // the next name is the last one
    pushReversed(pending, path);
    QString resolved; // without a trailing slash; empty is the root
    int linksLeft = maximumLinks;
    while (!pending.isEmpty()) {
        const QString name = pending.takeLast();
        if (name == u".") {
            continue;
        }
        if (name == u"..") {
            resolved.truncate(qMax(resolved.lastIndexOf(u'/'), qsizetype(0)));
            continue;
        }
        const QString next = resolved + u'/' + name;
        const fs::path nextPath(QFile::encodeName(next).toStdString());
        std::error_code error;
        const fs::file_status status = fs::symlink_status(nextPath, error);
        if (status.type() == fs::file_type::none) {
            return tl::unexpected(error.value());
        }
        if (status.type() != fs::file_type::symlink) {
            resolved = next;
            continue;
        }
        const fs::path target = fs::read_symlink(nextPath, error);
        if (error || linksLeft-- == 0) {
            return tl::unexpected(error ? error.value() : ELOOP);
        }
        const QByteArray targetBytes = QByteArray::fromStdString(target.native());
        const QString targetName = QFile::decodeName(targetBytes);
        // Another name in its place would be another file.
        if (QFile::encodeName(targetName) != targetBytes) {
            return tl::unexpected(EILSEQ);
        }
        if (target.is_absolute()) {
            resolved.clear();
        }
        pushReversed(pending, targetName);
    }
    return resolved.isEmpty() ? QStringLiteral("/") : resolved;
}

} // namespace flitmark

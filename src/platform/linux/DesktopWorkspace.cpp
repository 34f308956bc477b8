// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Files.h>
#include <platform/Workspace.h>
#include <platform/linux/Desktop.h>

#include <QDesktopServices>
#include <QDir>
#include <QStandardPaths>

#include <algorithm>

namespace flitmark {

namespace {

/// True when the file at `path`, one of those in which a desktop keeps what opens what, names an application for links
/// of `scheme` that is there.
bool namesHandler(const QString& path, const QString& scheme)
{
    const QByteArray key = "x-scheme-handler/" + scheme.toLatin1() + '=';
    const QList<QByteArray> lines = readFile(path).value_or(QByteArray()).split('\n');
    return std::any_of(lines.begin(), lines.end(), [&key](const QByteArray& line) {
        const QList<QByteArray> names = line.startsWith(key) ? line.mid(key.size()).split(';') : QList<QByteArray>();
        return std::any_of(names.begin(), names.end(), [](const QByteArray& name) {
            const QString file = QString::fromUtf8(name.trimmed());
            return !file.isEmpty() && !QStandardPaths::locate(QStandardPaths::ApplicationsLocation, file).isEmpty();
        });
    });
}

bool hasHandler(const QString& scheme)
{
    const QStringList folders = QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation) +
                                QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation);
    for (const QString& folder : folders) {
        const QStringList lists = {QStringLiteral("*mimeapps.list"), QStringLiteral("mimeinfo.cache")};
        for (const QString& file : QDir(folder).entryList(lists, QDir::Files)) {
            if (namesHandler(folder + u'/' + file, scheme)) {
                return true;
            }
        }
    }
    return false;
}

class DesktopWorkspace final : public Workspace
{
public:
    bool open(const QUrl& url) override
    {
        // The desktop's own command says it has opened what it hands to a browser that can't.
        const bool canOpen = url.scheme() != u"obsidian" || hasHandler(url.scheme());
        return url.isValid() && canOpen && QDesktopServices::openUrl(url);
    }
};

} // namespace

std::unique_ptr<Workspace> makeWorkspace()
{
    return std::make_unique<DesktopWorkspace>();
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/DailyNoteLocator.h>
#include <daily/MomentFormat.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "Property.h"

namespace flitmark {

namespace {

void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(), "a file can be written");
}

} // namespace

/// The first byte chooses the settings file that the rest is, or a format.
void checkInput(const QByteArray& bytes)
{
    static const QTemporaryDir vault;
    static const QString settings = vault.path() + "/.obsidian/";
    static const bool isMade = QDir().mkpath(settings + "plugins/periodic-notes") && QDir().mkpath(vault.path() + "/a");
    require(isMade, "a vault can be made");
    const int kind = bytes.isEmpty() ? 0 : bytes[0] % 5;
    const QByteArray rest = bytes.mid(1);
    const QDate date(2026, 1, 22);
    if (kind == 4) {
        const QString format = QString::fromUtf8(rest);
        for (const MomentLanguage& language : momentLanguages()) {
            const auto text = formatMoment(format, date, language);
            require(!text || text->size() <= 40 * format.size(), "a format makes no endless name");
        }
        return;
    }
    const char* const names[] = {"daily-notes.json", "core-plugins.json", "community-plugins.json",
                                 "plugins/periodic-notes/data.json"};
    for (const char* name : names) {
        QFile::remove(settings + name);
    }
    if (kind == 3) {
        write(settings + names[2], R"(["periodic-notes"])");
    }
    write(settings + names[kind], rest);
    const DailyNotePlace place = DailyNoteLocator().locate(vault.path(), date, {"de-DE", "C"});
    require(!place.exists && place.path.startsWith(vault.path() + '/'), "nothing is found in an empty vault");
    require(!place.path.contains("/../") && !place.path.contains("/./"), "a place is in the vault");
    require(place.path.endsWith(".md"), "a place is a note's");
}

} // namespace flitmark

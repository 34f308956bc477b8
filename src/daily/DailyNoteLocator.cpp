// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Text.h>
#include <core/VaultPathResolver.h>
#include <daily/DailyNoteLocator.h>
#include <daily/MomentFormat.h>
#include <platform/Print.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

#include <algorithm>

namespace flitmark {

namespace {

// No longer path can be opened.
constexpr qsizetype longestPath = 4096;

/// In ASCII digits whatever the language, as the notes of other programs are named.
QString fixedPlaceOf(QDate date)
{
    return date.toString(u"'Daily/'yyyy'/'yyyy-MM-dd'.md'");
}

/// The path in the vault that `settings` give the note of `date`, or what is wrong with it.
tl::expected<QString, QString> placeBySettings(const DailyNoteSettings& settings, QDate date,
                                               const MomentLanguage& language)
{
    if (settings.folder.size() + settings.format.size() > longestPath) {
        return tl::unexpected(QStringLiteral("its folder and format are too long"));
    }
    const auto name = formatMoment(settings.format, date, language);
    if (!name) {
        return tl::unexpected(QStringLiteral("its format can't be used: ") + name.error());
    }
    const QStringList names = name->split(u'/', Qt::SkipEmptyParts);
    const QStringList path = trimSpacesAndNewlines(settings.folder).toString().split(u'/', Qt::SkipEmptyParts) + names;
    if (names.isEmpty() || path.contains(QStringLiteral(".")) || path.contains(QStringLiteral(".."))) {
        return tl::unexpected(QStringLiteral("its folder and format name no note in the vault"));
    }
    const QString joined = path.join(u'/');
    if (joined.contains(QChar::Null) || !joined.isValidUtf16()) {
        return tl::unexpected(QStringLiteral("its folder and format are no name of a file"));
    }
    return joined.endsWith(QStringLiteral(".md")) ? joined : joined + QStringLiteral(".md");
}

/// The file at `place` in the vault, by whichever form of Unicode its name has; empty when there is none.
QString fileAt(const QString& vault, const QString& place)
{
    for (const QString& name :
         {place, place.normalized(QString::NormalizationForm_C), place.normalized(QString::NormalizationForm_D)}) {
        const QString path = vault + u'/' + name;
        if (QFileInfo(path).isFile()) {
            return path;
        }
    }
    return {};
}

/// The names of Moment's languages for the desktop's, and of English.
QList<QStringView> wantedLanguages(const QStringList& languages)
{
    QList<QStringView> names;
    for (const QString& language : languages) {
        names.append(momentLanguageName(language));
    }
    names.append(u"en");
    return names;
}

} // namespace

DailyNotePlace DailyNoteLocator::locate(const QString& vault, QDate date, const QStringList& languages)
{
    QString folder = QDir::isAbsolutePath(vault) ? vault : QDir::currentPath() + u'/' + vault;
    while (folder.endsWith(u'/')) {
        folder.chop(1);
    }
    DailyNotePlace place;
    place.places = QStringList(fixedPlaceOf(date));
    place.newNote = place.places.first();
    place.path = folder + u'/' + place.newNote;
    place.exists = QFileInfo::exists(place.path);
    if (!place.exists) {
        findBySettings(folder, date, languages, place);
    }
    place.pathInVault = place.path.sliced(folder.size() + 1);
    return place;
}

void DailyNoteLocator::findBySettings(const QString& vault, QDate date, const QStringList& languages,
                                      DailyNotePlace& place)
{
    const auto settings = readDailyNoteSettings(vault);
    if (!settings) {
        reportOnce(settings.error().file, settings.error().message);
        return;
    }
    if (settings->rule == DailyNoteRule::FixedPlace) {
        return;
    }
    QStringList wanted;
    QStringList others;
    const QList<QStringView> wantedNames = wantedLanguages(languages);
    for (const MomentLanguage& language : momentLanguages()) {
        const auto path = placeBySettings(*settings, date, language);
        if (!path) {
            reportOnce(settings->file, path.error());
            return;
        }
        others.append(*path);
    }
    for (const QStringView name : wantedNames) {
        for (qsizetype i = 0; i < momentLanguages().size(); ++i) {
            wanted.append(momentLanguages()[i].name == name ? QStringList(others[i]) : QStringList());
        }
    }
    wanted.removeDuplicates();
    others.removeDuplicates();
    others.removeIf([&](const QString& path) { return wanted.contains(path); });

    const auto find = [&](const QStringList& paths) {
        QStringList found;
        for (const QString& path : paths) {
            const QString file = fileAt(vault, path);
            if (!file.isEmpty() && VaultPathResolver::isContained(file, vault)) {
                found.append(file);
            } else if (!file.isEmpty()) {
                reportOnce(settings->file, QStringLiteral("it names a note outside the vault"));
            }
        }
        return found;
    };
    place.rule = settings->rule;
    place.newNote = wanted.first();
    place.places.append(wanted);
    place.places.removeDuplicates();
    QStringList found = find(wanted);
    if (found.isEmpty()) {
        found = find(others);
        found = found.size() == 1 ? found : QStringList();
    }
    if (!found.isEmpty()) {
        place.path = found.first();
        place.exists = true;
    }
}

void DailyNoteLocator::reportOnce(const QString& file, const QString& problem)
{
    struct stat info = {};
    ::stat(QFile::encodeName(file).constData(), &info);
    QByteArray state = problem.toUtf8();
    for (const auto number :
         {qint64(info.st_ino), qint64(info.st_size), qint64(info.st_mtim.tv_sec), qint64(info.st_mtim.tv_nsec),
          qint64(info.st_ctim.tv_sec), qint64(info.st_ctim.tv_nsec)}) {
        state += ' ' + QByteArray::number(number);
    }
    QByteArray& reported = m_reported[file];
    if (reported != state) {
        reported = state;
        printLine(QStringLiteral("DailyNoteLocator: %1: %2").arg(file, problem));
    }
}

} // namespace flitmark

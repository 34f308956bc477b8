// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/Translations.h>

#include <QFileInfo>
#include <QGuiApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QStandardPaths>

namespace flitmark {

namespace {

bool isEnglish(const QString& language)
{
    return language == u"C" || language == u"en" || language.startsWith(u"en-");
}

std::unique_ptr<QTranslator> load(const QString& catalogue, QString language, const QStringList& folders)
{
    auto translator = std::make_unique<QTranslator>();
    language.replace(u'-', u'_');
    for (const QString& folder : folders) {
        // Of "de_AT" it tries "de" too.
        if (translator->load(catalogue + u'_' + language, folder)) {
            return translator;
        }
    }
    return nullptr;
}

void install(std::unique_ptr<QTranslator> translator)
{
    if (translator) {
        translator->setParent(QCoreApplication::instance());
        QCoreApplication::installTranslator(translator.release());
    }
}

} // namespace

QStringList translationFolders()
{
    const QString program = QCoreApplication::applicationDirPath();
    return QStringList{program + QStringLiteral("/../share/flitmark/translations"),
                       program + QStringLiteral("/translations")} +
           QStandardPaths::locateAll(QStandardPaths::GenericDataLocation, QStringLiteral("flitmark/translations"),
                                     QStandardPaths::LocateDirectory);
}

std::unique_ptr<QTranslator> loadTranslation(const QStringList& languages, const QStringList& folders)
{
    for (const QString& language : languages) {
        if (isEnglish(language)) {
            break;
        }
        if (auto translator = load(QStringLiteral("flitmark"), language, folders)) {
            return translator;
        }
    }
    return nullptr;
}

void installTranslations()
{
    const QStringList languages = QLocale().uiLanguages();
    // Most often there is nothing to look for, and nothing is.
    if (languages.isEmpty() || isEnglish(languages.first())) {
        return;
    }
    auto own = loadTranslation(languages, translationFolders());
    if (!own) {
        // Nor does Qt speak it then: its few texts among English ones would help nobody.
        return;
    }
    const QString found = QFileInfo(own->filePath()).baseName().section(u'_', 1);
    install(load(QStringLiteral("qtbase"), found, {QLibraryInfo::path(QLibraryInfo::TranslationsPath)}));
    install(std::move(own));
    // Without Qt's own catalogue Qt would not know.
    QGuiApplication::setLayoutDirection(QLocale(found).textDirection());
}

} // namespace flitmark

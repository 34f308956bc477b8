// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Directories.h>
#include <support/TestFiles.h>

using namespace flitmark;

class DirectoriesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ofUser_followsTheEnvironment()
    {
        const QTemporaryDir home;
        qputenv("HOME", QFile::encodeName(home.path()));
        qunsetenv("XDG_CACHE_HOME");
        qputenv("XDG_CONFIG_HOME", "relative/is/ignored");
        QCOMPARE(Directories::ofUser().applicationSupport, home.filePath(QStringLiteral(".config")));
        QCOMPARE(Directories::ofUser().cache, home.filePath(QStringLiteral(".cache")));
        qputenv("XDG_CONFIG_HOME", "/elsewhere//config/");
        QCOMPARE(Directories::ofUser().ownFolder(), QStringLiteral("/elsewhere/config/Flitmark"));
        const QString library = home.filePath(QStringLiteral("Library/Application Support"));
        QVERIFY(QDir().mkpath(library));
        QCOMPARE(Directories::ofUser().applicationSupport, library);
        QCOMPARE(Directories::ofUser().configHome, QStringLiteral("/elsewhere/config"));
    }
};

QTEST_GUILESS_MAIN(DirectoriesTest)
#include "DirectoriesTest.moc"

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Directories.h>
#include <support/TestFiles.h>

using namespace flitmark;

class DirectoriesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ofUser_followsTheEnvironment();
};

void DirectoriesTest::ofUser_followsTheEnvironment()
{
    const QTemporaryDir home;
    qputenv("HOME", QFile::encodeName(home.path()));
    qunsetenv("XDG_CACHE_HOME");
    qputenv("XDG_CONFIG_HOME", "relative/is/ignored");
    Directories directories = Directories::ofUser();
    QCOMPARE(directories.home, home.path());
    QCOMPARE(directories.configHome, home.filePath(QStringLiteral(".config")));
    QCOMPARE(directories.applicationSupport, directories.configHome);
    QCOMPARE(directories.cache, home.filePath(QStringLiteral(".cache")));

    qputenv("XDG_CONFIG_HOME", "/elsewhere//config/");
    directories = Directories::ofUser();
    QCOMPARE(directories.configHome, QStringLiteral("/elsewhere/config"));
    QCOMPARE(directories.ownFolder(), QStringLiteral("/elsewhere/config/Flitmark"));

    const QString library = home.filePath(QStringLiteral("Library/Application Support"));
    QVERIFY(QDir().mkpath(library));
    directories = Directories::ofUser();
    QCOMPARE(directories.applicationSupport, library);
    QCOMPARE(directories.configHome, QStringLiteral("/elsewhere/config"));
}

QTEST_GUILESS_MAIN(DirectoriesTest)
#include "DirectoriesTest.moc"

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/AutostartEntry.h>
#include <platform/LoginItemManager.h>
#include <platform/linux/AutostartLoginService.h>
#include <support/TestFiles.h>

using namespace flitmark;

class LoginItemTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anEntryFoundInTheFolder_isReadInWords()
    {
        const QByteArray head("[Desktop Entry]\nType=Application\nExec=/bin/sh -c true\n");
        const char* const approval = "Requires approval in System Settings";
        const char* const notFound = "App bundle not found";
        for (const auto& [entry, status] : {
                 std::pair(QByteArray(), "Not registered"),
                 {head + "X-GNOME-Autostart-enabled=true\nHidden=false\n", "Enabled"},
                 {head + "X-GNOME-Autostart-enabled=false\n", approval},
                 {head + "\r\n Hidden = true \r\n", approval},
                 {"[Desktop Entry]\nHidden=true\n", approval},
                 {head + "[Other]\nHidden=true\nExec=/no/such\n", "Enabled"},
                 {head + "#Hidden=true\n", "Enabled"},
                 {"[Desktop Entry]\nExec=sh\n", "Enabled"},
                 {"[Desktop Entry]\nExec=\"/no/such program\" --x\n", notFound},
                 {"[Desktop Entry]\nExec=/tmp\n", notFound},
                 {head + "TryExec=/no/such\n", notFound},
                 {"#!/bin/sh\n", "Unknown"},
                 {"[Desktop Entry]\nType=Application\n", "Unknown"},
             }) {
            const QTemporaryDir home;
            const QString path = home.filePath(QStringLiteral("autostart/org.flitmark.Flitmark.desktop"));
            if (!entry.isEmpty()) {
                writeTestFile(path, entry);
            }
            AutostartLoginService service(home.path(), QStringLiteral("/bin/sh"));
            LoginItemManager manager(service);
            QVERIFY2(manager.statusText() == QString::fromLatin1(status), entry.constData());
            QCOMPARE(manager.isEnabled(), status == QByteArray("Enabled"));
            QCOMPARE(readTestFile(path), entry);
            // The user's own word counts, whatever was there.
            QVERIFY(manager.setEnabled(true) && manager.isEnabled());
            QVERIFY(manager.setEnabled(false) && !QFile::exists(path));
            QVERIFY(manager.setEnabled(false));
        }
    }

    void anyProgram_isQuotedForTheDesktop()
    {
        for (const QString& program :
             {QStringLiteral("/a/with space"), QStringLiteral("/a/100% \"mine\" $HOME `x`"),
              QStringLiteral("/a/back\\slash \\n s"), QStringLiteral("/a/grüße 🍅"), QStringLiteral("/a/%%f;=[x]")}) {
            const AutostartEntry expected{program, false};
            QByteArray text = autostartEntryText(program);
            QCOMPARE(parseAutostartEntry(text), expected);
            QCOMPARE(parseAutostartEntry(text.replace("TryExec=", "X-Was-TryExec=")), expected);
        }
    }

    void refusedByTheSystem_saysSoInItsWords()
    {
        const QTemporaryDir home;
        const QString folder = home.filePath(QStringLiteral("autostart"));
        writeTestFile(folder, "a file where the folder should be");
        AutostartLoginService service(home.path(), QStringLiteral("/bin/sh"));
        LoginItemManager manager(service);
        QVERIFY(!manager.setEnabled(true) && !manager.isEnabled() && !manager.lastError()->isEmpty());
        QVERIFY(QFile::remove(folder));
        QVERIFY(QDir().mkpath(folder + QStringLiteral("/org.flitmark.Flitmark.desktop")));
        manager.refresh();
        QCOMPARE(manager.statusText(), QStringLiteral("Unknown"));
        QVERIFY(!manager.setEnabled(false) && manager.lastError());
        QVERIFY(QDir(folder).removeRecursively());
        QVERIFY(manager.setEnabled(true) && !manager.lastError());
    }
};

QTEST_GUILESS_MAIN(LoginItemTest)
#include "LoginItemTest.moc"

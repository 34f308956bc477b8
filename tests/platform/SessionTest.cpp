// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/AutostartEntry.h>
#include <platform/LoginItemManager.h>
#include <platform/linux/ApplicationScope.h>
#include <platform/linux/AutostartLoginService.h>
#include <platform/linux/RunningCopy.h>
#include <support/TestFiles.h>

#include <QSignalSpy>

using namespace flitmark;

/// What the session knows of the program: its start at login, and its one running copy.
class SessionTest final : public QObject
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
            const QString path = home.filePath("autostart/org.flitmark.Flitmark.desktop");
            if (!entry.isEmpty()) {
                writeTestFile(path, entry);
            }
            AutostartLoginService service(home.path(), "/bin/sh");
            LoginItemManager manager(service);
            QVERIFY2(manager.statusText() == status, entry.constData());
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
        for (const char* program :
             {"/a/with space", "/a/100% \"mine\" $HOME `x`", "/a/back\\slash \\n s", "/a/grüße 🍅", "/a/%%f;=[x]"}) {
            const AutostartEntry expected{program, false};
            QByteArray text = autostartEntryText(program);
            QCOMPARE(parseAutostartEntry(text), expected);
            QCOMPARE(parseAutostartEntry(text.replace("TryExec=", "X-Was-TryExec=")), expected);
        }
    }

    void refusedByTheSystem_saysSoInItsWords()
    {
        const QTemporaryDir home;
        const QString folder = home.filePath("autostart");
        writeTestFile(folder, "a file where the folder should be");
        AutostartLoginService service(home.path(), "/bin/sh");
        LoginItemManager manager(service);
        QVERIFY(!manager.setEnabled(true) && !manager.isEnabled() && !manager.lastError()->isEmpty());
        QVERIFY(QFile::remove(folder));
        QVERIFY(QDir().mkpath(folder + "/org.flitmark.Flitmark.desktop"));
        manager.refresh();
        QCOMPARE(manager.statusText(), "Unknown");
        QVERIFY(!manager.setEnabled(false) && manager.lastError());
        QVERIFY(QDir(folder).removeRecursively());
        QVERIFY(manager.setEnabled(true) && !manager.lastError());
    }

    void unit_isOursHoweverTheDesktopStartedIt()
    {
        for (const auto& [unit, isOurs] : {std::pair("app-org.flitmark.Flitmark@autostart.service", true),
                                           {"app-gnome-org.flitmark.Flitmark-123.scope", true},
                                           {"dbus-:1.2-org.flitmark.Flitmark@0.service", false},
                                           {"vte-spawn-1.scope", false}}) {
            const QByteArray groups = QByteArray("12:pids:/\n0::/user.slice/app.slice/") + unit + "\n";
            QCOMPARE(ApplicationScope::isOfApplication(groups), isOurs);
        }
    }
    void laterStarts_tellTheFirstOne()
    {
        const QTemporaryDir folder;
        // What lies there by that name gives way.
        writeTestFile(folder.filePath("org.flitmark.Flitmark.running"), "old");
        {
            RunningCopy first(folder.path(), {});
            QCOMPARE(first.claim(), RunningCopy::Claim::First);
            QSignalSpy asked(&first, &RunningCopy::activationAsked);
            for (const QByteArray& token : {QByteArray(), QByteArray("two\nlines"), QByteArray("last")}) {
                QCOMPARE(RunningCopy(folder.path(), token).claim(), RunningCopy::Claim::HandedOver);
            }
            first.listen();
            QTRY_COMPARE(asked.count(), 1);
            QCOMPARE(asked.constFirst().constFirst().toString(), "last");
            QCOMPARE(RunningCopy(folder.path(), QByteArray(1'000'000, 'x')).claim(), RunningCopy::Claim::HandedOver);
            QTRY_COMPARE(asked.count(), 2);
        }
        QCOMPARE(RunningCopy(folder.path(), {}).claim(), RunningCopy::Claim::First);
    }
    void aFirstOneThatDoesNotListen_isNotWaitedFor()
    {
        const QTemporaryDir folder;
        const RunningCopy first(folder.path(), {});
        int told = 0;
        while (RunningCopy(folder.path(), QByteArray(4000, 'x')).claim() == RunningCopy::Claim::HandedOver) {
            QVERIFY(++told < 1000);
        }
        QVERIFY(told > 0);
        // Without a folder it runs all the same.
        QCOMPARE(RunningCopy("/no/such/folder", {}).claim(), RunningCopy::Claim::First);
        QCOMPARE(RunningCopy(QString(), {}).claim(), RunningCopy::Claim::Apart);
    }
};

QTEST_GUILESS_MAIN(SessionTest)
#include "SessionTest.moc"

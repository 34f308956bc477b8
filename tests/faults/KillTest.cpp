// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/DraftManager.h>
#include <capture/NoteManager.h>
#include <config/ConfigManager.h>
#include <daily/DailyNoteManager.h>
#include <signals/SignalManager.h>
#include <support/ManualFileEvents.h>
#include <support/ManualRunLoop.h>
#include <support/RecordingSound.h>
#include <support/TestFiles.h>
#include <support/TestWorkspace.h>

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRandomGenerator>
#include <QThread>

#include <cstdio>

using namespace flitmark;

namespace {

/// The files of a user who types, saves, ticks tasks and changes settings without ever stopping, and what each of them
/// may hold: every text is as long as a real one and can be told from a part of it.
struct Files
{
    static QString text(int number)
    {
        return QStringLiteral("%1 %2 end").arg(number).arg(QString(8000, QChar(u'a' + number % 26)));
    }
    static QByteArray note(int number)
    {
        const QByteArray journal(20000, 'j');
        return "# " + journal + "\n## Tasks\n- [" + (number % 2 == 0 ? " " : "x") + "] Write\n\n" + journal + "\n";
    }

    QString folder;
    Directories directories{.home = folder, .applicationSupport = folder + "/support", .cache = {}};
    QString vault = folder + "/Vault";
    QString daily = vault + "/Daily/2026/2026-01-22.md";
    QString config = directories.ownFolder() + "/config.json";
    QString draft = directories.ownFolder() + "/.draft.json";
};

/// One run of such a user, from `number` on, until the process is killed. Says on standard error what has been done.
[[noreturn]] void liveUntilKilled(const Files& files, int number)
{
    std::freopen("/dev/null", "w", stdout);
    ManualRunLoop loop{QDateTime(QDate(2026, 1, 22), QTime(9, 30))};
    ManualFileEvents events;
    TestWorkspace workspace;
    RecordingSound sound;
    ConfigManager config(files.directories);
    SignalManager signalManager(files.directories, config, loop, events);
    DailyNoteManager daily({config, signalManager, loop, events, workspace});
    DraftManager draft(files.directories, loop);
    NoteManager notes(config, loop, sound);
    daily.loadTodayNote();
    loop.runQueued();
    for (;; ++number) {
        std::fprintf(stderr, "%d\n", number);
        draft.save(Files::text(number), {}, "Fleeting");
        config.update([number](AppConfig& changed) { changed.panelWidth = number; });
        config.save();
        daily.toggleTask(daily.todayNote().tasks.first().lineNumber);
        loop.runQueued();
        if (number % 4 == 0) {
            loop.advance(std::chrono::seconds(1));
            std::ignore = notes.save({}, Files::text(number), "Fleeting");
        }
    }
}

} // namespace

/// Kills the program a thousand times at random moments of typing, saving, editing and configuring.
class KillTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyFileIsWholeAtAnyMoment()
    {
#ifdef FLITMARK_SANITIZED
        constexpr int rounds = 100;
#else
        constexpr int rounds = 1000;
#endif
        QTemporaryDir folder;
        const Files files{folder.path()};
        writeTestFile(files.config,
                      "{\"has_completed_setup\":true,\"panel_width\":0,\"panel_height\":500,\"vault_path\":\"" +
                          files.vault.toUtf8() + "\"}");
        writeTestFile(files.daily, Files::note(0));
        int number = 1;
        for (int round = 0; round < rounds; ++round) {
            const int last = liveAndDie(folder.path(), number);
            const QString draft = objectIn(files.draft).value(u"content").toString();
            const int act = draft.section(u' ', 0, 0).toInt();
            QCOMPARE(draft, act == 0 ? QString() : Files::text(act));
            checkAct(act, m_draft, number, last);
            const QJsonObject config = objectIn(files.config);
            QCOMPARE(config.value(u"vault_path").toString(), files.vault);
            checkAct(config.value(u"panel_width").toInt(), m_width, number, last);
            const QByteArray daily = readTestFile(files.daily);
            QVERIFY2(daily == Files::note(0) || daily == Files::note(1), "half a daily note");
            checkNotes(files);
            if (QTest::currentTestFailed()) {
                return;
            }
            number = std::max(number, last + 1);
        }
        // Most victims came to do something.
        QVERIFY(number > rounds);
    }

private:
    /// Runs a victim and kills it after a moment. Gives the last number it began with, which may be none of this run.
    static int liveAndDie(const QString& folder, int number)
    {
        QProcess victim;
        victim.start(QCoreApplication::applicationFilePath(), {"--victim", folder, QString::number(number)});
        victim.waitForStarted();
        victim.setReadChannel(QProcess::StandardError);
        victim.waitForReadyRead(10000);
        QThread::usleep(QRandomGenerator::global()->bounded(12000U));
        victim.kill();
        victim.waitForFinished();
        const QList<QByteArray> begun = victim.readAllStandardError().trimmed().split('\n');
        return begun.last().toInt();
    }

    /// What is stored is of the last act a victim began with, or of the one before: of this life (which began with
    /// `first`), or what an earlier one left.
    static void checkAct(int stored, int& ofEarlierLife, int first, int last)
    {
        const int before = last > first ? last - 1 : ofEarlierLife;
        QVERIFY2(stored == before || (last >= first && stored == last), qPrintable(QString::number(stored)));
        ofEarlierLife = stored;
    }
    static QJsonObject objectIn(const QString& path)
    {
        return QJsonDocument::fromJson(readTestFile(path)).object();
    }

    static void checkNotes(const Files& files)
    {
        QDir inbox(files.vault + "/Inbox");
        for (const QString& name : inbox.entryList({"*.md"}, QDir::Files)) {
            const QByteArray note = readTestFile(inbox.filePath(name));
            QVERIFY2(note.startsWith("---\n") && note.trimmed().endsWith(" end"), qPrintable(name));
            QFile::remove(inbox.filePath(name));
        }
    }

    /// The acts found after the life before.
    int m_draft = 0;
    int m_width = 0;
};

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (argc == 4 && QByteArray(argv[1]) == "--victim") {
        liveUntilKilled(Files{QString::fromLocal8Bit(argv[2])}, QByteArray(argv[3]).toInt());
    }
    KillTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "KillTest.moc"

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRandomGenerator>
#include <QThread>

#include "Victim.h"

using namespace flitmark;

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
        const Files files(folder.path());
        writeTestFile(files.config,
                      "{\"has_completed_setup\":true,\"panel_width\":0,\"panel_height\":500,\"vault_path\":\"" +
                          files.vault.toUtf8() + "\"}");
        writeTestFile(files.daily, Files::note(0));
        int number = 1;
        for (int round = 0; round < rounds; ++round) {
            const int last = liveAndDie(folder.path(), number);
            checkDraft(files, number, last);
            checkConfig(files, number, last);
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
        victim.start(QCoreApplication::applicationFilePath(),
                     {QStringLiteral("--victim"), folder, QString::number(number)});
        victim.waitForStarted();
        victim.setReadChannel(QProcess::StandardError);
        victim.waitForReadyRead(10000);
        QThread::usleep(QRandomGenerator::global()->bounded(12000U));
        victim.kill();
        victim.waitForFinished();
        const QList<QByteArray> begun = victim.readAllStandardError().trimmed().split('\n');
        return begun.last().toInt();
    }

    /// The draft is that of the last act a victim began with, or of the one before: of this life (which began with
    /// `first`), or what an earlier one left.
    void checkDraft(const Files& files, int first, int last)
    {
        const QString draft = QJsonDocument::fromJson(readTestFile(files.draft)).object().value(u"content").toString();
        const QString before = last > first ? Files::text(last - 1) : std::exchange(m_draft, {});
        QVERIFY2(draft == before || (last >= first && draft == Files::text(last)), qPrintable(draft.left(20)));
        m_draft = draft;
    }

    void checkConfig(const Files& files, int first, int last)
    {
        const QJsonObject config = QJsonDocument::fromJson(readTestFile(files.config)).object();
        QCOMPARE(config.value(u"vault_path").toString(), files.vault);
        const int width = config.value(u"panel_width").toInt();
        const int before = last > first ? last - 1 : m_width;
        QVERIFY2(width == before || (last >= first && width == last), qPrintable(QString::number(width)));
        m_width = width;
    }

    static void checkNotes(const Files& files)
    {
        QDir inbox(files.vault + QStringLiteral("/Inbox"));
        for (const QString& name : inbox.entryList({QStringLiteral("*.md")}, QDir::Files)) {
            const QByteArray note = readTestFile(inbox.filePath(name));
            QVERIFY2(note.startsWith("---\n") && note.trimmed().endsWith(" end"), qPrintable(name));
            QFile::remove(inbox.filePath(name));
        }
    }

    /// As they were after the life before.
    QString m_draft;
    int m_width = 0;
};

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (argc == 4 && QByteArray(argv[1]) == "--victim") {
        liveUntilKilled(Files(QString::fromLocal8Bit(argv[2])), QByteArray(argv[3]).toInt());
    }
    KillTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "KillTest.moc"

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/linux/RunningCopy.h>
#include <support/TestFiles.h>

#include <QSignalSpy>

using namespace flitmark;

class RunningCopyTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void laterStarts_tellTheFirstOne()
    {
        const QTemporaryDir folder;
        // What lies there by that name gives way.
        writeTestFile(folder.filePath(QStringLiteral("org.flitmark.Flitmark.running")), "old");
        {
            RunningCopy first(folder.path(), {});
            QCOMPARE(first.claim(), RunningCopy::Claim::First);
            QSignalSpy asked(&first, &RunningCopy::activationAsked);
            for (const QByteArray& token : {QByteArray(), QByteArray("two\nlines"), QByteArray("last")}) {
                QCOMPARE(RunningCopy(folder.path(), token).claim(), RunningCopy::Claim::HandedOver);
            }
            first.listen();
            QTRY_COMPARE(asked.count(), 1);
            QCOMPARE(asked.constFirst().constFirst().toString(), QStringLiteral("last"));
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
        QCOMPARE(RunningCopy(QStringLiteral("/no/such/folder"), {}).claim(), RunningCopy::Claim::First);
        QCOMPARE(RunningCopy(QString(), {}).claim(), RunningCopy::Claim::Apart);
    }
};

QTEST_GUILESS_MAIN(RunningCopyTest)
#include "RunningCopyTest.moc"

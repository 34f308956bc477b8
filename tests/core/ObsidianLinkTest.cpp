// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/ObsidianLink.h>

#include <QtTest/QTest>

using namespace flitmark;

class ObsidianLinkTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void link_data()
    {
        QTest::addColumn<QStringList>("paths");
        QTest::addColumn<QByteArray>("expected");
        const auto row = [](const char* vault, const char* note, const QByteArray& query) {
            const QStringList paths{QString::fromUtf8(vault), QString::fromUtf8(note)};
            QTest::newRow(note) << paths << "obsidian://open?vault=" + query;
        };
        row("/u/Notes Vault", "/u/Notes Vault/Daily/2026-01-22.md", "Notes%20Vault&file=Daily/2026-01-22");
        row("/v/R&D #1?", "/v/R&D #1?/a+b=c/100% (x).md", "R%26D%20%231%3F&file=a%2Bb%3Dc/100%25%20%28x%29");
        row("/v/A-b.c_d~e", "/v/A-b.c_d~e/f.md.md", "A-b.c_d~e&file=f.md");
        row("/v/Bücher", "/v/Bücher/漢/🍅.md", "B%C3%BCcher&file=%E6%BC%A2/%F0%9F%8D%85");
        row("/v/Notes/", "/v/Notes/md", "Notes&file=md");
        row("/v/Notes", "/v/Notes2/a.md", "Notes&file=/v/Notes2/a");
    }
    void link()
    {
        QFETCH(QStringList, paths);
        QTEST(obsidianLink(paths[0], paths[1]).value().toEncoded(), "expected");
    }
    void brokenText_givesNoLink()
    {
        const QString halfEmoji(QChar(0xD83C));
        QVERIFY(!obsidianLink(QStringLiteral("/v/N"), QStringLiteral("/v/N/") + halfEmoji));
        QVERIFY(!obsidianLink(QStringLiteral("/v/") + halfEmoji, QStringLiteral("/v/a.md")));
    }
};

QTEST_APPLESS_MAIN(ObsidianLinkTest)
#include "ObsidianLinkTest.moc"

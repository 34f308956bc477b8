// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/ObsidianLink.h>

#include <QtTest/QTest>

namespace flitmark {

class ObsidianLinkTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void link_data();
    void link();
    void brokenText_givesNoLink();
};

void ObsidianLinkTest::link_data()
{
    QTest::addColumn<QString>("vault");
    QTest::addColumn<QString>("note");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("space in the vault's name")
        << "/Users/ann/Notes Vault"
        << "/Users/ann/Notes Vault/Daily/2026/2026-01-22.md"
        << QByteArray("obsidian://open?vault=Notes%20Vault&file=Daily/2026/2026-01-22");
    QTest::newRow("signs of links") << "/v/R&D #1?"
                                    << "/v/R&D #1?/a+b=c/100% (x).md"
                                    << QByteArray(
                                           "obsidian://open?vault=R%26D%20%231%3F&file=a%2Bb%3Dc/100%25%20%28x%29");
    QTest::newRow("signs that stay") << "/v/A-b.c_d~e"
                                     << "/v/A-b.c_d~e/f.g.md" << QByteArray("obsidian://open?vault=A-b.c_d~e&file=f.g");
    QTest::newRow("letters of any script, emoji") << "/v/Bücher"
                                                  << "/v/Bücher/漢字/🍅.md"
                                                  << QByteArray("obsidian://open?vault=B%C3%BCcher&file="
                                                                "%E6%BC%A2%E5%AD%97/%F0%9F%8D%85");
    QTest::newRow("slash after the vault") << "/v/Notes/"
                                           << "/v/Notes/a.md" << QByteArray("obsidian://open?vault=Notes&file=a");
    QTest::newRow("outside the vault") << "/v/Notes"
                                       << "/v/Notes2/a.md"
                                       << QByteArray("obsidian://open?vault=Notes&file=/v/Notes2/a");
    QTest::newRow("only the last ending goes") << "/v/N"
                                               << "/v/N/a.md.md" << QByteArray("obsidian://open?vault=N&file=a.md");
    QTest::newRow("no ending") << "/v/N"
                               << "/v/N/md" << QByteArray("obsidian://open?vault=N&file=md");
}

void ObsidianLinkTest::link()
{
    QFETCH(QString, vault);
    QFETCH(QString, note);
    const auto url = obsidianLink(vault, note);
    QVERIFY(url);
    QTEST(url->toEncoded(), "expected");
}

void ObsidianLinkTest::brokenText_givesNoLink()
{
    const QString halfEmoji(QChar(0xD83C));
    QVERIFY(!obsidianLink(QStringLiteral("/v/N"), QStringLiteral("/v/N/") + halfEmoji));
    QVERIFY(!obsidianLink(QStringLiteral("/v/") + halfEmoji, QStringLiteral("/v/a.md")));
}

} // namespace flitmark

QTEST_APPLESS_MAIN(flitmark::ObsidianLinkTest)
#include "ObsidianLinkTest.moc"

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Text.h>

#include <QtTest/QTest>

using namespace flitmark;

class TextTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void splitLines_cutsAtEveryBreak_data();
    void splitLines_cutsAtEveryBreak();
    void trimming_tellsSpacesFromBreaks();
};

void TextTest::splitLines_cutsAtEveryBreak_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("empty") << QString() << QStringList{QString()};
    QTest::newRow("no break") << QStringLiteral("a") << QStringList{QStringLiteral("a")};
    QTest::newRow("CR LF is one") << QStringLiteral("a\r\nb\n\rc") << QStringLiteral("a|b||c").split(u'|');
    QTest::newRow("at the end") << QStringLiteral("a\n") << QStringLiteral("a|").split(u'|');
    QTest::newRow("alone") << QStringLiteral("\r\n") << QStringLiteral("|").split(u'|');
    QTest::newRow("every kind") << QStringLiteral(u"a\u000bb\u000cc\u0085d\u2028e\u2029f")
                                << QStringLiteral("a|b|c|d|e|f").split(u'|');
}

void TextTest::splitLines_cutsAtEveryBreak()
{
    QFETCH(const QString, text);
    QFETCH(const QStringList, lines);
    QStringList found;
    for (const QStringView line : splitLines(text)) {
        found.append(line.toString());
    }
    QCOMPARE(found, lines);
}

void TextTest::trimming_tellsSpacesFromBreaks()
{
    const QString text = QStringLiteral(u"\u00a0\t\n a b\u200b \u3000");
    QCOMPARE(trimSpaces(text).toString(), QStringLiteral(u"\n a b\u200b"));
    QCOMPARE(trimSpacesAndNewlines(text).toString(), QStringLiteral(u"a b\u200b"));
    QVERIFY(trimSpacesAndNewlines(QStringLiteral(" \r\n\t ")).isEmpty());
}

QTEST_GUILESS_MAIN(TextTest)
#include "TextTest.moc"

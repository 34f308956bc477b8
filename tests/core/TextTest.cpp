// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Text.h>

#include <QtTest/QTest>

#include <limits>

namespace flitmark {

class TextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void splitLines_cutsAtEveryBreak_data();
    void splitLines_cutsAtEveryBreak();
    void splitLines_findsABreakAtEveryPlace();
    void trim_takesWhatItShould_data();
    void trim_takesWhatItShould();
    void parseInteger_isStrict_data();
    void parseInteger_isStrict();
};

void TextTest::splitLines_cutsAtEveryBreak_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("lines");

    QTest::newRow("empty") << QString() << QStringList{QString()};
    QTest::newRow("break at the end") << QStringLiteral("a\n") << QStringList{QStringLiteral("a"), QString()};
    QTest::newRow("only breaks") << QStringLiteral("\r\n\n\r")
                                 << QStringList{QString(), QString(), QString(), QString()};
    QTest::newRow("CR LF is one") << QStringLiteral("a\r\nb\n\rc")
                                  << QStringList{QStringLiteral("a"), QStringLiteral("b"), QString(),
                                                 QStringLiteral("c")};
    QTest::newRow("every kind") << QStringLiteral(u"a\nb\vc\fd\re\u0085f\u2028g\u2029h")
                                << QStringLiteral("abcdefgh").split(QString(), Qt::SkipEmptyParts);
    QTest::newRow("no breaks") << QStringLiteral(u"a\tb\u00a0\u200b\u2027\u202a\u0084\u0086\u001f")
                               << QStringList{QStringLiteral(u"a\tb\u00a0\u200b\u2027\u202a\u0084\u0086\u001f")};
    const QString nul = QStringLiteral("a") + QChar(u'\0') + u'b';
    QTest::newRow("NUL") << nul + u'\n' + nul << QStringList{nul, nul};
}

void TextTest::splitLines_cutsAtEveryBreak()
{
    QFETCH(QString, text);
    QStringList lines;
    for (const QStringView line : splitLines(text)) {
        lines.append(line.toString());
    }
    QTEST(lines, "lines");
}

void TextTest::splitLines_findsABreakAtEveryPlace()
{
    // Long lines are searched in blocks: a break must be found at any place in one, and in what is left after the last.
    const QString breaks = QStringLiteral(u"\n\v\f\r\u0085\u2028\u2029");
    for (const QChar lineBreak : breaks) {
        for (qsizetype before = 0; before < 70; ++before) {
            const QString text = QString(before, u'a') + lineBreak + QString(70 - before, u'b');
            const QList<QStringView> lines = splitLines(text);
            QCOMPARE(lines.size(), 2);
            QCOMPARE(lines[0].size(), before);
            QCOMPARE(lines[1].size(), 70 - before);
        }
    }
}

void TextTest::trim_takesWhatItShould_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("spaces");
    QTest::addColumn<QString>("spacesAndNewlines");

    const auto row = [](const char* name, const char16_t* text, const char16_t* spaces, const char16_t* newlines) {
        QTest::newRow(name) << QString::fromUtf16(text) << QString::fromUtf16(spaces) << QString::fromUtf16(newlines);
    };
    row("spaces of every width", u" \t\u00a0\u2003\u3000a b\u202f\u205f ", u"a b", u"a b");
    row("breaks", u" \n a\r\n", u"\n a\r\n", u"a");
    row("nothing but", u" \t ", u"", u"");
    row("not spaces", u"\u200b\ufeffa\u200b", u"\u200b\ufeffa\u200b", u"\u200b\ufeffa\u200b");
}

void TextTest::trim_takesWhatItShould()
{
    QFETCH(QString, text);
    QTEST(trimSpaces(text).toString(), "spaces");
    QTEST(trimSpacesAndNewlines(text).toString(), "spacesAndNewlines");
}

void TextTest::parseInteger_isStrict_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isNumber");
    QTest::addColumn<qint64>("value");

    const auto number = [](const char* text, qint64 value) {
        QTest::newRow(text) << QString::fromUtf8(text) << true << value;
    };
    number("0", 0);
    number("007", 7);
    number("+12", 12);
    number("-12", -12);
    number("9223372036854775807", std::numeric_limits<qint64>::max());
    number("-9223372036854775808", std::numeric_limits<qint64>::min());
    for (const char* text : {"", "+", "-", "--1", "+-1", " 1", "1 ", "1.0", "1e2", "0x1", "1,000", "٣", "1a",
                             "9223372036854775808", "-9223372036854775809", "99999999999999999999999999"}) {
        QTest::newRow(qPrintable(QStringLiteral("\"%1\"").arg(QString::fromUtf8(text))))
            << QString::fromUtf8(text) << false << qint64(0);
    }
}

void TextTest::parseInteger_isStrict()
{
    QFETCH(QString, text);
    const std::optional<qint64> value = parseInteger(text);
    QTEST(value.has_value(), "isNumber");
    QTEST(value.value_or(0), "value");
}

} // namespace flitmark

QTEST_APPLESS_MAIN(flitmark::TextTest)
#include "TextTest.moc"

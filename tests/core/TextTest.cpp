// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Text.h>

#include <QtTest/QTest>

#include <limits>

using namespace flitmark;

class TextTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void splitLines_cutsAtEveryBreak()
    {
        const auto joined = [](const char16_t* text) {
            const QString whole = QString::fromUtf16(text);
            QStringList lines;
            for (const QStringView line : splitLines(whole)) {
                lines.append(line.toString());
            }
            return lines.join(u'|');
        };
        QCOMPARE(joined(u""), QString());
        QCOMPARE(joined(u"a\r\nb\n\rc\n"), QStringLiteral("a|b||c|"));
        QCOMPARE(joined(u"a\nb\vc\fd\re\u0085f\u2028g\u2029h"), QStringLiteral("a|b|c|d|e|f|g|h"));
        QCOMPARE(joined(u"\t\u00a0\u200b\u2027\u202a\u0084\u001f"),
                 QStringLiteral("\t\u00a0\u200b\u2027\u202a\u0084\u001f"));
        // Long lines are searched in blocks: a break must be found anywhere in one, and in what is left after the last.
        for (const QChar lineBreak : QStringLiteral(u"\n\v\f\r\u0085\u2028\u2029")) {
            for (qsizetype before = 0; before < 70; ++before) {
                const QString text = QString(before, u'\0') + lineBreak + QString(70 - before, u'b');
                const QList<QStringView> lines = splitLines(text);
                QVERIFY(lines.size() == 2 && lines[0].size() == before && lines[1].size() == 70 - before);
            }
        }
    }
    void trim_takesWhatItShould()
    {
        const auto check = [](const QString& text, const QString& spaces, const QString& spacesAndNewlines) {
            QCOMPARE(trimSpaces(text).toString(), spaces);
            QCOMPARE(trimSpacesAndNewlines(text).toString(), spacesAndNewlines);
        };
        const QString inner = QStringLiteral(u"\u200b\ufeffa \tb\u200b");
        check(QStringLiteral(u" \t\u00a0\u2003\u3000") + inner + QStringLiteral(u"\u202f\u205f "), inner, inner);
        check(QStringLiteral(" \n a\r\n"), QStringLiteral("\n a\r\n"), QStringLiteral("a"));
        check(QStringLiteral(" \t "), QString(), QString());
    }
    void parseInteger_isStrict()
    {
        const QList<qint64> edges = {0, -12, std::numeric_limits<qint64>::max(), std::numeric_limits<qint64>::min()};
        for (const qint64 value : edges) {
            QCOMPARE(parseInteger(QString::number(value)), std::optional(value));
        }
        QCOMPARE(parseInteger(QStringLiteral("+007")), std::optional<qint64>(7));
        for (const char* text : {"", "+", "-", "--1", "+-1", " 1", "1 ", "1.0", "1e2", "0x1", "1,000", "٣", "1a",
                                 "9223372036854775808", "-9223372036854775809", "99999999999999999999999999"}) {
            QVERIFY2(!parseInteger(QString::fromUtf8(text)), text);
        }
    }
};

QTEST_APPLESS_MAIN(TextTest)
#include "TextTest.moc"

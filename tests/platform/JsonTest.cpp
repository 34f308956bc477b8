// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Json.h>

#include <QtTest/QTest>

#include <limits>

using namespace flitmark;

class JsonTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void encodeJson_writesOneMemberPerLineSorted()
    {
        // In the order of bytes the emoji comes last; in UTF-16 it would come before the full-width tilde.
        const auto object =
            parseJsonObject("{\"b\":[1,{\"z\":1,\"Z\":2}],\"a_b\":{},\"aB\":[],\"\U0001F525\":1,\"\uFF5E\":2}");
        QCOMPARE(encodeJson(object.value()).replace('\n', '|').replace("  ", "."),
                 QByteArray("{|.\"aB\": [],|.\"a_b\": {},|.\"b\": [|..1,|..{|...\"Z\": 2,|...\"z\": 1|..}|.],|"
                            ".\"\uFF5E\": 2,|.\"\U0001F525\": 1|}|"));
        for (const auto& [value, written] : {
                 std::pair<QJsonValue, QByteArray>("/\"\\\n\r\t\b\u001f\U0001F4A1",
                                                   "\"\\/\\\"\\\\\\n\\r\\t\\b\\u001f\U0001F4A1\""),
                 {440.0, "440"},
                 {0.95, "0.95"},
                 {1e-7, "1e-07"},
                 {std::numeric_limits<qint64>::max(), "9223372036854775807"},
                 {-std::numeric_limits<double>::infinity(), "null"},
                 {true, "true"},
             }) {
            QCOMPARE(encodeJson(value), written + '\n');
            const auto again = parseJsonObject("{\"x\":" + written + '}');
            QCOMPARE(again.value().value(u"x"), written == "null" ? QJsonValue() : value);
        }
    }
    void parse_readsWhatIsThere()
    {
        const QByteArray bytes =
            "\xEF\xBB\xBF \t\r\n{\"list\":[-0,20.0,0.1e+5,9223372036854775807,9007199254740993,1.5,[],"
            "true,null],\"\\u0061\":1,\"a\":{},\"\xEF\xBB\xBF\":\"\xEF\xBB\xBF\\u00e9\\/\\u0000\"}\n";
        const QJsonArray list{
            0,    20,          10000, std::numeric_limits<qint64>::max(), qint64{9007199254740993}, 1.5, QJsonArray(),
            true, QJsonValue()};
        const QString mark(QChar(0xFEFF));
        // The last of equal keys counts.
        const QJsonObject object{{"list", list}, {"a", QJsonObject()}, {mark, mark + "é/" + QChar::Null}};
        QCOMPARE(parseJsonObject(bytes), object);
        QCOMPARE(parseJsonObject(encodeJson(object)), object);
    }
    void parse_isStrict()
    {
        for (const char* bytes : {"",         " \n",        "{",           "}",
                                  "[1,]",     "{\"a\":1,}", "{\"a\"}",     "{\"a\" 1}",
                                  "{a:1}",    "[1 2]",      "[]]",         "nul",
                                  "nulll",    "+1",         "01",          "1.",
                                  ".5",       "1e",         "1e+",         "-",
                                  "0x1",      "NaN",        "'a'",         "\"a",
                                  "\"\\",     "\"\\x\"",    "\"\\u12g4\"", "\"\\u12",
                                  "\"a\nb\"", "\"\x01\"",   "\"\xFF\"",    "\"\xED\xA0\x80\"",
                                  "[1] // x", "{\"a\":}",   "\"\\ud800\"", "[1]\xEF\xBB\xBF"}) {
            const auto json = parseJson(bytes);
            QVERIFY2(!json && json.error().startsWith("The data is "), bytes);
        }
        QVERIFY(!parseJson(QByteArray("{}\0", 3)));
        for (const char* number : {"9223372036854775808", "-9223372036854775809", "123456789012345678901", "-1e400"}) {
            const auto json = parseJson(QByteArray("{\"a\":[0,{\"b\":") + number + "}]}");
            QCOMPARE(json.error(), "The value of \"a.1.b\" is too large a number.");
        }
        const auto nested = [](qsizetype depth) { return QByteArray(depth, '[') + QByteArray(depth, ']'); };
        QCOMPARE(encodeJson(parseJson(nested(512)).value()).replace('\n', "").replace(' ', ""), nested(512));
        for (const QByteArray& bytes : {nested(513), nested(1'000'000), QByteArray("{\"a\":").repeated(1'000'000)}) {
            QCOMPARE(parseJson(bytes).error(), "The data is nested too deeply.");
        }
    }
};

QTEST_APPLESS_MAIN(JsonTest)
#include "JsonTest.moc"

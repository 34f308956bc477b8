// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Json.h>
#include <platform/RawJson.h>

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
                                                   "\"\\/\\\"\\\\\\n\\r\\t\\u0008\\u001f\U0001F4A1\""),
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
    void raw_isWrittenAgain()
    {
        // Line breaks are shown as "|", and each step of indentation as ".".
        for (const auto& [bytes, expected] : {
                 std::pair("[0,-0,1.10,-1E-400,123456789012345678901,0.1e+5,true,false,null]",
                           "[|.0,|.-0,|.1.10,|.-1E-400,|.123456789012345678901,|.0.1e+5,|.true,|.false,|.null|]|"),
                 {"\xEF\xBB\xBF \t\r\n{ \"b\" : [ ] , \"a\" : { } } \n", "{|.\"a\": {},|.\"b\": []|}|"},
                 {R"({"b":{"z":1,"y":2},"a":[{"d":1,"c":2}]})",
                  "{|.\"a\": [|..{|...\"c\": 2,|...\"d\": 1|..}|.],|.\"b\": {|..\"y\": 2,|..\"z\": 1|.}|}|"},
                 {"{\"\U0001F345\":1,\"\uFF21\":2,\"a\":3,\"Z\":4}",
                  "{|.\"Z\": 4,|.\"a\": 3,|.\"\uFF21\": 2,|.\"\U0001F345\": 1|}|"},
                 // The last of equal keys counts; keys that are no text stay apart.
                 {R"({"a":1,"b":2,"\u0061":3})", "{|.\"\\u0061\": 3,|.\"b\": 2|}|"},
                 {R"({"\ud800":1,"\ud801":2,"":3})", "{|.\"\": 3,|.\"\\ud800\": 1,|.\"\\ud801\": 2|}|"},
                 // Strings stay as written, but slashes are escaped once.
                 {"[\"\\u00e9é\\\"\\\\\\n\\ud800a/b\\/c\\\\/d\"]",
                  "[|.\"\\u00e9é\\\"\\\\\\n\\ud800a\\/b\\/c\\\\\\/d\"|]|"},
             }) {
            const QByteArray written = RawJson::parse(bytes).value().encode();
            QCOMPARE(QByteArray(written).replace('\n', '|').replace("  ", "."), QByteArray(expected));
            QCOMPARE(RawJson::parse(written)->encode(), written);
        }
    }
    void raw_invalid_isRefused()
    {
        for (const char* bytes :
             {"",         " \n",     "{",           "}",       "[1,]",     "{\"a\":1,}", "{\"a\"}",  "{\"a\" 1}",
              "{a:1}",    "[1 2]",   "[]]",         "nul",     "nulll",    "+1",         "01",       "1.",
              ".5",       "1e",      "1e+",         "-",       "0x1",      "NaN",        "'a'",      "\"a",
              "\"\\",     "\"\\x\"", "\"\\u12g4\"", "\"\\u12", "\"a\nb\"", "\"\x01\"",   "\"\xFF\"", "\"\xED\xA0\x80\"",
              "[1] // x", "{\"a\":}"}) {
            const auto json = RawJson::parse(bytes);
            QVERIFY2(!json && json.error().startsWith("The data "), bytes);
        }
        const auto nested = [](qsizetype depth) { return QByteArray(depth, '[') + QByteArray(depth, ']'); };
        QVERIFY(RawJson::parse(nested(512)));
        for (const QByteArray& bytes : {nested(513), nested(1'000'000), QByteArray("{\"a\":").repeated(1'000'000)}) {
            QCOMPARE(RawJson::parse(bytes).error(), "The data is nested too deeply.");
        }
    }
    void raw_isReadAndChanged()
    {
        const auto list = RawJson::parse(R"([{"s":"\u00e9"},9007199254740993,1.5,true,null,[]])");
        const QJsonObject object{{"s", "é"}};
        QCOMPARE(list->toValue().toArray(),
                 QJsonArray({object, qint64{9007199254740993}, 1.5, true, QJsonValue(), QJsonArray()}));
        auto json = RawJson::parse(R"({"a":1,"\u0073tatus":[1],"z":2})");
        json->setString("status", "x\"/");
        QCOMPARE(json->encode(), QByteArray("{\n  \"a\": 1,\n  \"\\u0073tatus\": \"x\\\"\\/\",\n  \"z\": 2\n}\n"));
    }
};

QTEST_APPLESS_MAIN(JsonTest)
#include "JsonTest.moc"

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/RawJson.h>

#include <QJsonArray>
#include <QJsonObject>
#include <QtTest/QTest>

using namespace flitmark;

class RawJsonTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void valid_isWrittenAgain_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QByteArray>("expected");
        const auto row = [](const char* name, const QByteArray& bytes, const QByteArray& expected) {
            QTest::newRow(name) << bytes << expected;
        };
        // Line breaks are shown as "|", and each step of indentation as ".".
        row("numbers and words", "[0,-0,1.10,-1E-400,123456789012345678901,0.1e+5,true,false,null]",
            "[|.0,|.-0,|.1.10,|.-1E-400,|.123456789012345678901,|.0.1e+5,|.true,|.false,|.null|]|");
        row("space everywhere", "\xEF\xBB\xBF \t\r\n{ \"b\" : [ ] , \"a\" : { } } \n", "{|.\"a\": {},|.\"b\": []|}|");
        row("sorted at every level", R"({"b":{"z":1,"y":2},"a":[{"d":1,"c":2}]})",
            "{|.\"a\": [|..{|...\"c\": 2,|...\"d\": 1|..}|.],|.\"b\": {|..\"y\": 2,|..\"z\": 1|.}|}|");
        row("sorted by bytes", "{\"\U0001F345\":1,\"\uFF21\":2,\"a\":3,\"Z\":4}",
            "{|.\"Z\": 4,|.\"a\": 3,|.\"\uFF21\": 2,|.\"\U0001F345\": 1|}|");
        row("the last of equal keys counts", R"({"a":1,"b":2,"\u0061":3})", "{|.\"\\u0061\": 3,|.\"b\": 2|}|");
        row("keys that are no text stay apart", R"({"\ud800":1,"\ud801":2,"":3})",
            "{|.\"\": 3,|.\"\\ud800\": 1,|.\"\\ud801\": 2|}|");
        row("strings as written, slashes escaped once", "[\"\\u00e9é\\\"\\\\\\n\\ud800a/b\\/c\\\\/d\"]",
            "[|.\"\\u00e9é\\\"\\\\\\n\\ud800a\\/b\\/c\\\\\\/d\"|]|");
    }
    void valid_isWrittenAgain()
    {
        QFETCH(QByteArray, bytes);
        const QByteArray written = RawJson::parse(bytes).value().encode();
        QTEST(QByteArray(written).replace('\n', '|').replace("  ", "."), "expected");
        QCOMPARE(RawJson::parse(written)->encode(), written);
    }
    void invalid_isRefused()
    {
        for (const char* bytes :
             {"",         " \n",     "{",           "}",       "[1,]",     "{\"a\":1,}", "{\"a\"}",  "{\"a\" 1}",
              "{a:1}",    "[1 2]",   "[]]",         "nul",     "nulll",    "+1",         "01",       "1.",
              ".5",       "1e",      "1e+",         "-",       "0x1",      "NaN",        "'a'",      "\"a",
              "\"\\",     "\"\\x\"", "\"\\u12g4\"", "\"\\u12", "\"a\nb\"", "\"\x01\"",   "\"\xFF\"", "\"\xED\xA0\x80\"",
              "[1] // x", "{\"a\":}"}) {
            const auto json = RawJson::parse(bytes);
            QVERIFY2(!json && json.error().startsWith(QStringLiteral("The data ")), bytes);
        }
        QVERIFY(!RawJson::parse(QByteArray("\"\0\"", 3)));
    }
    void deepNesting_isRefusedWithoutHarm()
    {
        const auto nested = [](qsizetype depth) { return QByteArray(depth, '[') + QByteArray(depth, ']'); };
        QVERIFY(RawJson::parse(nested(512)));
        for (const QByteArray& bytes : {nested(513), nested(1'000'000), QByteArray("{\"a\":").repeated(1'000'000)}) {
            QCOMPARE(RawJson::parse(bytes).error(), QStringLiteral("The data is nested too deeply."));
        }
    }
    void toValue_readsEveryKind()
    {
        const auto json = RawJson::parse(R"([{"s":"\u00e9"},9007199254740993,1.5,true,null,[],1e400])");
        QJsonArray list = json->toValue().toArray();
        QVERIFY(qIsInf(list.takeAt(6).toDouble()));
        const QJsonObject object{{QStringLiteral("s"), QStringLiteral("é")}};
        QCOMPARE(list, QJsonArray({object, qint64{9007199254740993}, 1.5, true, QJsonValue(), QJsonArray()}));
    }
    void setString_replacesOrAdds()
    {
        auto json = RawJson::parse(R"({"a":1,"\u0073tatus":[1],"z":2})");
        json->setString(QStringLiteral("status"), QStringLiteral("x\"/"));
        json->setString(QStringLiteral("m"), QStringLiteral("é"));
        QCOMPARE(json->encode(),
                 QByteArray("{\n  \"a\": 1,\n  \"m\": \"é\",\n  \"\\u0073tatus\": \"x\\\"\\/\",\n  \"z\": 2\n}\n"));
    }
};

QTEST_APPLESS_MAIN(RawJsonTest)
#include "RawJsonTest.moc"

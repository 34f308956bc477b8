// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/RawJson.h>

#include <QJsonArray>
#include <QJsonObject>
#include <QtTest/QTest>

namespace flitmark {

class RawJsonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void valid_isWrittenAgain_data();
    void valid_isWrittenAgain();
    void invalid_isRefused_data();
    void invalid_isRefused();
    void deepNesting_isRefusedWithoutHarm();
    void toValue_readsEveryKind();
    void setString_replacesOrAdds();
};

void RawJsonTest::valid_isWrittenAgain_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char* name, const QByteArray& bytes, const QByteArray& expected) {
        QTest::newRow(name) << bytes << expected;
    };
    for (const char* number : {"0", "-0", "1.10", "1e400", "-1E-400", "123456789012345678901234567890", "0.1e+5"}) {
        QTest::newRow(number) << QByteArray(number) << QByteArray(number) + '\n';
    }
    row("words", "[true,false,null]", "[\n  true,\n  false,\n  null\n]\n");
    row("space everywhere", " \t\r\n{ \"b\" : [ ] , \"a\" : { } } \n", "{\n  \"a\": {},\n  \"b\": []\n}\n");
    row("sorted at every level", R"({"b":{"z":1,"y":2},"a":[{"d":1,"c":2}]})",
        "{\n  \"a\": [\n    {\n      \"c\": 2,\n      \"d\": 1\n    }\n  ],\n  \"b\": {\n    \"y\": 2,\n    \"z\": 1\n "
        " }\n}\n");
    row("sorted by bytes", "{\"\xF0\x9F\x8D\x85\":1,\"\xEF\xBC\xA1\":2,\"a\":3,\"Z\":4}",
        "{\n  \"Z\": 4,\n  \"a\": 3,\n  \"\xEF\xBC\xA1\": 2,\n  \"\xF0\x9F\x8D\x85\": 1\n}\n");
    row("the last of equal keys counts", R"({"a":1,"b":2,"\u0061":3})", "{\n  \"\\u0061\": 3,\n  \"b\": 2\n}\n");
    row("keys that are no text stay apart", R"({"\ud800":1,"\ud801":2,"":3})",
        "{\n  \"\": 3,\n  \"\\ud800\": 1,\n  \"\\ud801\": 2\n}\n");
    row("strings as written", R"(["\u00e9é\"\\\n\ud800"])", "[\n  \"\\u00e9\xC3\xA9\\\"\\\\\\n\\ud800\"\n]\n");
    row("slashes are escaped once", R"(["a/b\/c\\/d"])", "[\n  \"a\\/b\\/c\\\\\\/d\"\n]\n");
    row("byte-order mark", "\xEF\xBB\xBF[]", "[]\n");
}

void RawJsonTest::valid_isWrittenAgain()
{
    QFETCH(QByteArray, bytes);
    const auto json = RawJson::parse(bytes);
    QVERIFY2(json, qPrintable(json ? QString() : json.error()));
    const QByteArray written = json->encode();
    QTEST(written, "expected");
    QCOMPARE(RawJson::parse(written)->encode(), written);
}

void RawJsonTest::invalid_isRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QList<QByteArray> all = {"",
                                   " \n",
                                   "{",
                                   "}",
                                   "[1,]",
                                   "{\"a\":1,}",
                                   "{\"a\"}",
                                   "{\"a\" 1}",
                                   "{a:1}",
                                   "[1 2]",
                                   "[]]",
                                   "nul",
                                   "nulll",
                                   "+1",
                                   "01",
                                   "1.",
                                   ".5",
                                   "1e",
                                   "1e+",
                                   "-",
                                   "0x1",
                                   "NaN",
                                   "'a'",
                                   "\"a",
                                   "\"\\",
                                   "\"\\x\"",
                                   "\"\\u12g4\"",
                                   "\"\\u12",
                                   "\"a\nb\"",
                                   QByteArray("\"\0\"", 3),
                                   "\"\xFF\"",
                                   "\"\xED\xA0\x80\"",
                                   "[1] // x",
                                   "{\"a\":}"};
    for (const QByteArray& bytes : all) {
        QTest::newRow(bytes.toPercentEncoding().constData()) << bytes;
    }
}

void RawJsonTest::invalid_isRefused()
{
    QFETCH(QByteArray, bytes);
    const auto json = RawJson::parse(bytes);
    QVERIFY(!json);
    QVERIFY(json.error().startsWith(QStringLiteral("The data ")));
}

void RawJsonTest::deepNesting_isRefusedWithoutHarm()
{
    const auto nested = [](qsizetype depth) { return QByteArray(depth, '[') + QByteArray(depth, ']'); };
    QVERIFY(RawJson::parse(nested(512)));
    for (const QByteArray& bytes :
         {nested(513), nested(1'000'000), QByteArray(1'000'000, '['), QByteArray("{\"a\":").repeated(1'000'000)}) {
        const auto json = RawJson::parse(bytes);
        QVERIFY(!json);
        QCOMPARE(json.error(), QStringLiteral("The data is nested too deeply."));
    }
}

void RawJsonTest::toValue_readsEveryKind()
{
    const auto json =
        RawJson::parse(R"({"s":"\u00e9","i":9007199254740993,"d":1.5,"huge":1e400,"b":true,"n":null,"a":[1,{}]})");
    const QJsonObject object = json->toValue().toObject();
    QCOMPARE(object.value(u"s").toString(), QStringLiteral("é"));
    QCOMPARE(object.value(u"i").toInteger(), 9007199254740993);
    QCOMPARE(object.value(u"d").toDouble(), 1.5);
    QVERIFY(qIsInf(object.value(u"huge").toDouble()));
    QCOMPARE(object.value(u"b"), QJsonValue(true));
    QVERIFY(object.value(u"n").isNull());
    QCOMPARE(object.value(u"a"), QJsonValue(QJsonArray({1, QJsonObject()})));
}

void RawJsonTest::setString_replacesOrAdds()
{
    auto json = RawJson::parse(R"({"a":1,"\u0073tatus":[1],"z":2})");
    json->setString(QStringLiteral("status"), QStringLiteral("x\"/"));
    json->setString(QStringLiteral("m"), QStringLiteral("é"));
    QCOMPARE(json->encode(),
             QByteArray("{\n  \"a\": 1,\n  \"m\": \"\xC3\xA9\",\n  \"\\u0073tatus\": \"x\\\"\\/\",\n  \"z\": 2\n}\n"));
}

} // namespace flitmark

QTEST_APPLESS_MAIN(flitmark::RawJsonTest)
#include "RawJsonTest.moc"

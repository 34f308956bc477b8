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
    void encodeJson_writesOneMemberPerLineSorted();
    void encodeJson_values_data();
    void encodeJson_values();
    void parseJsonObject_saysWhatIsWrong_data();
    void parseJsonObject_saysWhatIsWrong();
    void wholeNumbers_mayHaveAnEmptyFraction_data();
    void wholeNumbers_mayHaveAnEmptyFraction();
    void fields_nameTheKeyAtFault_data();
    void fields_nameTheKeyAtFault();
    void fields_absentAndNull_areNothing();
    void fields_keepTheFirstError();
};

void JsonTest::encodeJson_writesOneMemberPerLineSorted()
{
    const QJsonObject object{
        {QStringLiteral("b"), QJsonArray{1, QJsonObject{{QStringLiteral("z"), 1}, {QStringLiteral("Z"), 2}}}},
        {QStringLiteral("a_b"), QJsonObject()},
        {QStringLiteral("aB"), QJsonArray()},
        // In the order of bytes the emoji comes last; in UTF-16 it would come before the full-width tilde.
        {QStringLiteral(u"\U0001F525"), 1},
        {QStringLiteral(u"\uFF5E"), 2},
    };
    QCOMPARE(QString::fromUtf8(encodeJson(object)), QStringLiteral(u"{\n"
                                                                   "  \"aB\": [],\n"
                                                                   "  \"a_b\": {},\n"
                                                                   "  \"b\": [\n"
                                                                   "    1,\n"
                                                                   "    {\n"
                                                                   "      \"Z\": 2,\n"
                                                                   "      \"z\": 1\n"
                                                                   "    }\n"
                                                                   "  ],\n"
                                                                   "  \"\uFF5E\": 2,\n"
                                                                   "  \"\U0001F525\": 1\n"
                                                                   "}\n"));
}

void JsonTest::encodeJson_values_data()
{
    QTest::addColumn<QJsonValue>("value");
    QTest::addColumn<QByteArray>("written");
    QTest::newRow("slash") << QJsonValue(QStringLiteral("/a/b")) << QByteArray(R"("\/a\/b")");
    QTest::newRow("escapes") << QJsonValue(QStringLiteral("\"\\\n\r\t\b\u001f"))
                             << QByteArray(R"("\"\\\n\r\t\u0008\u001f")");
    QTest::newRow("emoji") << QJsonValue(QStringLiteral(u"\U0001F4A1")) << QByteArray("\"\xF0\x9F\x92\xA1\"");
    QTest::newRow("whole double") << QJsonValue(440.0) << QByteArray("440");
    QTest::newRow("fraction") << QJsonValue(0.95) << QByteArray("0.95");
    QTest::newRow("tiny") << QJsonValue(1e-7) << QByteArray("1e-07");
    QTest::newRow("biggest integer") << QJsonValue(std::numeric_limits<qint64>::max())
                                     << QByteArray("9223372036854775807");
    QTest::newRow("no number") << QJsonValue(std::numeric_limits<double>::quiet_NaN()) << QByteArray("null");
    QTest::newRow("infinite") << QJsonValue(-std::numeric_limits<double>::infinity()) << QByteArray("null");
    QTest::newRow("true") << QJsonValue(true) << QByteArray("true");
    QTest::newRow("null") << QJsonValue() << QByteArray("null");
}

void JsonTest::encodeJson_values()
{
    QFETCH(const QJsonValue, value);
    QFETCH(const QByteArray, written);
    QCOMPARE(encodeJson(value), written + '\n');
    // What is written is read back as it was.
    const auto again = parseJsonObject("{\"x\":" + written + '}');
    QVERIFY(again);
    if (written != "null") {
        QCOMPARE(again->value(u"x"), value);
    }
}

void JsonTest::parseJsonObject_saysWhatIsWrong_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("hint");
    QTest::newRow("empty") << QByteArray() << QStringLiteral("not valid JSON");
    QTest::newRow("cut off") << QByteArray("{\"a\": \"b") << QStringLiteral("not valid JSON");
    QTest::newRow("half a character") << QByteArray("{\"a\": \"\xC3\"}") << QStringLiteral("not valid JSON");
    QTest::newRow("list") << QByteArray("[]") << QStringLiteral("not an object");
    QTest::newRow("two objects") << QByteArray("{}{}") << QStringLiteral("at byte");
    QTest::newRow("deep") << QByteArray(100'000, '[') << QStringLiteral("not valid JSON");
}

void JsonTest::parseJsonObject_saysWhatIsWrong()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, hint);
    const auto object = parseJsonObject(bytes);
    QVERIFY(!object);
    QVERIFY2(object.error().contains(hint), qPrintable(object.error()));
}

void JsonTest::wholeNumbers_mayHaveAnEmptyFraction_data()
{
    QTest::addColumn<QByteArray>("number");
    QTest::addColumn<bool>("isWhole");
    QTest::addColumn<qint64>("value");
    QTest::newRow("plain") << QByteArray("20") << true << qint64(20);
    QTest::newRow("empty fraction") << QByteArray("20.0") << true << qint64(20);
    QTest::newRow("exponent") << QByteArray("2e1") << true << qint64(20);
    QTest::newRow("fraction") << QByteArray("20.5") << false << qint64(0);
    QTest::newRow("biggest") << QByteArray("9223372036854775807") << true << std::numeric_limits<qint64>::max();
    QTest::newRow("smallest") << QByteArray("-9223372036854775808") << true << std::numeric_limits<qint64>::min();
    QTest::newRow("too big") << QByteArray("9223372036854775808") << false << qint64(0);
    QTest::newRow("string") << QByteArray("\"20\"") << false << qint64(0);
    QTest::newRow("true") << QByteArray("true") << false << qint64(0);
}

void JsonTest::wholeNumbers_mayHaveAnEmptyFraction()
{
    QFETCH(const QByteArray, number);
    QFETCH(const bool, isWhole);
    QFETCH(const qint64, value);
    QString error;
    JsonFields fields(parseJsonObject("{\"n\": " + number + "}").value(), QString(), error);
    QCOMPARE(fields.required<qint64>(QStringLiteral("n")), value);
    QCOMPARE(error.isEmpty(), isWhole);
}

void JsonTest::fields_nameTheKeyAtFault_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("message");
    QTest::newRow("missing") << QByteArray("{}") << QStringLiteral("The value of \"outer.key\" is missing.");
    QTest::newRow("number") << QByteArray("{\"key\": 1}")
                            << QStringLiteral("The value of \"outer.key\" is not a list of strings.");
    QTest::newRow("mixed list") << QByteArray("{\"key\": [\"a\", 1]}")
                                << QStringLiteral("The value of \"outer.key\" is not a list of strings.");
    QTest::newRow("null") << QByteArray("{\"key\": null}")
                          << QStringLiteral("The value of \"outer.key\" is not a list of strings.");
}

void JsonTest::fields_nameTheKeyAtFault()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, message);
    QString error;
    JsonFields fields(parseJsonObject(bytes).value(), QStringLiteral("outer"), error);
    QVERIFY(fields.required<QStringList>(QStringLiteral("key")).isEmpty());
    QCOMPARE(error, message);
}

void JsonTest::fields_absentAndNull_areNothing()
{
    QString error;
    JsonFields fields(parseJsonObject("{\"null\": null, \"wrong\": 1, \"right\": false}").value(), QString(), error);
    QVERIFY(!fields.optional<bool>(QStringLiteral("null")));
    QVERIFY(!fields.optional<bool>(QStringLiteral("absent")));
    QCOMPARE(fields.optional<bool>(QStringLiteral("right")), false);
    QVERIFY(error.isEmpty());
    fields.optional<bool>(QStringLiteral("wrong"));
    QCOMPARE(error, QStringLiteral("The value of \"wrong\" is not true or false."));
}

void JsonTest::fields_keepTheFirstError()
{
    QString error;
    JsonFields fields(QJsonObject(), QString(), error);
    JsonFields nested(QJsonObject(), QStringLiteral("nested"), error);
    nested.required<QString>(QStringLiteral("first"));
    fields.required<QString>(QStringLiteral("second"));
    QCOMPARE(error, QStringLiteral("The value of \"nested.first\" is missing."));
}

QTEST_GUILESS_MAIN(JsonTest)
#include "JsonTest.moc"

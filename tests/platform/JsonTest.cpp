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
    }
    void encodeJson_values_data()
    {
        QTest::addColumn<QJsonValue>("value");
        QTest::addColumn<QByteArray>("written");
        const auto row = [](const QJsonValue& value, const QByteArray& written) {
            QTest::newRow(written.constData()) << value << written;
        };
        row(QStringLiteral(u"/\"\\\n\r\t\b\u001f\U0001F4A1"), "\"\\/\\\"\\\\\\n\\r\\t\\u0008\\u001f\U0001F4A1\"");
        row(440.0, "440");
        row(0.95, "0.95");
        row(1e-7, "1e-07");
        row(std::numeric_limits<qint64>::max(), "9223372036854775807");
        row(-std::numeric_limits<double>::infinity(), "null");
        row(true, "true");
    }
    void encodeJson_values()
    {
        QFETCH(const QJsonValue, value);
        QFETCH(const QByteArray, written);
        QCOMPARE(encodeJson(value), written + '\n');
        const auto again = parseJsonObject("{\"x\":" + written + '}');
        QCOMPARE(again.value().value(u"x"), written == "null" ? QJsonValue() : value);
    }
    void parseJsonObject_saysWhatIsWrong()
    {
        const auto error = [](const QByteArray& bytes) { return parseJsonObject(bytes).error(); };
        for (const QByteArray& bytes :
             {QByteArray(), QByteArray("{\"a\": \"b"), QByteArray("{\"a\": \"\xC3\"}"), QByteArray(100'000, '[')}) {
            QVERIFY(error(bytes).contains(u"not valid JSON"));
        }
        QVERIFY(error("[]").contains(u"not an object"));
        QVERIFY(error("{}{}").contains(u"at byte"));
    }
    void wholeNumbers_mayHaveAnEmptyFraction()
    {
        const auto read = [](const QByteArray& number) {
            QString error;
            JsonFields fields(parseJsonObject("{\"n\": " + number + "}").value(), QString(), error);
            const qint64 value = fields.required<qint64>(QStringLiteral("n"));
            return error.isEmpty() ? QByteArray::number(value) : QByteArray("refused");
        };
        for (const char* twenty : {"20", "20.0", "2e1"}) {
            QCOMPARE(read(twenty), QByteArray("20"));
        }
        for (const char* edge : {"9223372036854775807", "-9223372036854775808"}) {
            QCOMPARE(read(edge), QByteArray(edge));
        }
        for (const char* bad : {"20.5", "9223372036854775808", "\"20\"", "true"}) {
            QCOMPARE(read(bad), QByteArray("refused"));
        }
    }
    void fields_nameTheFirstKeyAtFault()
    {
        const auto check = [](const QByteArray& bytes, const QString& message) {
            QString error;
            JsonFields fields(parseJsonObject(bytes).value(), QStringLiteral("outer"), error);
            QVERIFY(fields.required<QStringList>(QStringLiteral("key")).isEmpty());
            JsonFields(QJsonObject(), QString(), error).required<QString>(QStringLiteral("second"));
            QCOMPARE(error, QStringLiteral("The value of \"outer.key\" is ") + message);
        };
        check("{}", QStringLiteral("missing."));
        for (const char* bad : {"{\"key\": 1}", "{\"key\": [\"a\", 1]}", "{\"key\": null}"}) {
            check(bad, QStringLiteral("not a list of strings."));
        }
    }
    void fields_absentAndNull_areNothing()
    {
        QString error;
        JsonFields fields(parseJsonObject("{\"null\": null, \"wrong\": 1, \"right\": false}").value(), {}, error);
        QVERIFY(!fields.optional<bool>(QStringLiteral("null")) && !fields.optional<bool>(QStringLiteral("absent")));
        QCOMPARE(fields.optional<bool>(QStringLiteral("right")), false);
        QVERIFY(error.isEmpty());
        fields.optional<bool>(QStringLiteral("wrong"));
        QCOMPARE(error, QStringLiteral("The value of \"wrong\" is not true or false."));
    }
};

QTEST_GUILESS_MAIN(JsonTest)
#include "JsonTest.moc"

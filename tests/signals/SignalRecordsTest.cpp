// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Directories.h>
#include <platform/Json.h>
#include <signals/CoachConfig.h>
#include <signals/SignalRecords.h>

#include <QtTest/QTest>

namespace flitmark {

namespace {

const Directories directories{.home = QStringLiteral("/nowhere"), .applicationSupport = {}, .cache = {}};

tl::expected<CoachConfig, QString> config(const QByteArray& bytes)
{
    return parseSignal(bytes).and_then(
        [](const QJsonObject& object) { return CoachConfig::fromJson(object, directories); });
}

/// Decodes `record` without each of its keys and with each of them wrong: every error names the key.
template<typename Record>
void checkKeys(const Record& record)
{
    const QJsonObject full = record.toJson();
    QCOMPARE(parseSignal(encodeJson(full)).and_then(&Record::fromJson), record);
    for (const QString& key : full.keys()) {
        const QJsonValue other = full.value(key).isString() ? QJsonValue(1) : QJsonValue(QStringLiteral("1"));
        for (const QJsonValue& wrong : {QJsonValue(QJsonValue::Undefined), QJsonValue(), other, QJsonValue(1.5)}) {
            QJsonObject broken = full;
            broken.insert(key, wrong);
            const auto read = Record::fromJson(broken);
            QVERIFY2(!read && read.error().contains(u'"' + key + u'"'), qPrintable(key));
        }
    }
}

} // namespace

class SignalRecordsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void records()
    {
        const auto text = QStringLiteral("a/b \"é\" 🍅\n");
        checkKeys(DailyFocusSignal{text, text, QString(), std::numeric_limits<qint64>::max()});
        checkKeys(CoachAlert{text, text, text, QString(), std::numeric_limits<qint64>::min(), text});
        checkKeys(UserResponse{text, text, QString(), text});
        CoachConfig changed = CoachConfig::makeDefault(directories);
        changed.dataSources = {false, false, true, true, true};
        changed.misalignmentThreshold = -1;
        changed.vaultPath = text;
        QCOMPARE(config(encodeJson(changed.toJson())), changed);
        QVERIFY(encodeJson(CoachConfig::makeDefault(directories).toJson())
                    .contains("\"vault_path\": \"\\/nowhere\\/Documents\""));
    }

    void config_defaultsByKey_data()
    {
        QTest::addColumn<QString>("error");
        QTest::addColumn<QString>("style");
        QTest::newRow("{}") << ""
                            << "supportive";
        QTest::newRow(R"({"coach_style": "stoic", "data_sources": null, "unknown": 1e400})") << ""
                                                                                             << "stoic";
        QTest::newRow(R"({"data_sources": {"pieces_summaries": false}})") << "\"data_sources.manual_checkins\""
                                                                          << "";
        QTest::newRow(R"({"coach_style": 1})") << "\"coach_style\""
                                               << "";
        QTest::newRow(R"({"pomodoro_interval_minutes": 20.5})") << "\"pomodoro_interval_minutes\""
                                                                << "";
        QTest::newRow(R"({"misalignment_threshold": 1e400})") << "\"misalignment_threshold\""
                                                              << "";
        QTest::newRow(R"({"misalignment_threshold": 9223372036854775808})") << "\"misalignment_threshold\""
                                                                            << "";
        QTest::newRow("[]") << "not an object"
                            << "";
    }

    void config_defaultsByKey()
    {
        QFETCH(QString, error);
        QFETCH(QString, style);
        CoachConfig expected = CoachConfig::makeDefault(directories);
        expected.coachStyle = style;
        const auto read = config(QTest::currentDataTag());
        QVERIFY(read ? error.isEmpty() && *read == expected : !error.isEmpty() && read.error().contains(error));
    }

    void acknowledgedAlert_keepsAllElse()
    {
        QCOMPARE(acknowledgedAlert(R"({"status":{"a":1},"id":12345678901234567890123,"x":[1.10,1e400,"\u00e9/"]})"),
                 QByteArray("{\n  \"id\": 12345678901234567890123,\n  \"status\": \"acknowledged\",\n"
                            "  \"x\": [\n    1.10,\n    1e400,\n    \"\\u00e9\\/\"\n  ]\n}\n"));
        QCOMPARE(acknowledgedAlert("[1, 2]"), QByteArray("{\n  \"status\": \"acknowledged\"\n}\n"));
    }

    void window()
    {
        const auto isInside = [](const char* start, const char* end, int minute) {
            return isWithinWindow(QString::fromUtf8(start), QString::fromUtf8(end), minute);
        };
        for (const auto& [start, end] : {std::pair("07:30", "18:00"),
                                         {"7:30", "18:0"},
                                         {"07::30", ":18:00:"},
                                         {"+7:30", "18:+00"},
                                         {"8:-30", "17:60"}}) {
            QVERIFY2(!isInside(start, end, 449) && isInside(start, end, 450), start);
            QVERIFY2(isInside(start, end, 1080) && !isInside(start, end, 1081), end);
        }
        for (const char* unreadable : {"", ":", "0730", "07:30:00", " 7:30", "7:3o", "٧:٣٠", "9223372036854775807:0",
                                       "99999999999999999999:0", "153722867280912930:60"}) {
            QVERIFY2(isInside(unreadable, "00:00", 720) && isInside("23:59", unreadable, 720), unreadable);
        }
        QVERIFY(!isInside("22:00", "06:00", 0) && !isInside("22:00", "06:00", 1439) && isInside("0:0", "99:99", 1439));
    }
};

} // namespace flitmark

QTEST_APPLESS_MAIN(flitmark::SignalRecordsTest)
#include "SignalRecordsTest.moc"

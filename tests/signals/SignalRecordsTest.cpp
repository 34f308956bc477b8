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

template<typename Record>
QString decodingError(const QByteArray& bytes)
{
    const auto record = parseSignal(bytes).and_then(&Record::fromJson);
    return record ? QString() : record.error();
}

} // namespace

class SignalRecordsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void records_areReadBack();
    void missingOrWrongKey_isNamed_data();
    void missingOrWrongKey_isNamed();
    void config_defaultsByKey_data();
    void config_defaultsByKey();
    void config_wrongTypeFailsAsAWhole_data();
    void config_wrongTypeFailsAsAWhole();
    void config_hasSortedEscapedKeys();
    void acknowledgedAlert_keepsAllElse_data();
    void acknowledgedAlert_keepsAllElse();
    void window_data();
    void window();
};

void SignalRecordsTest::records_areReadBack()
{
    const auto text = QStringLiteral("a/b \"é\" 🍅\n");
    const DailyFocusSignal focus{text, QStringLiteral("active"), QStringLiteral("t"),
                                 std::numeric_limits<qint64>::max()};
    QCOMPARE(parseSignal(encodeJson(focus.toJson())).and_then(&DailyFocusSignal::fromJson).value(), focus);
    const CoachAlert alert{text, text, text, QString(), std::numeric_limits<qint64>::min(), QStringLiteral("pending")};
    QCOMPARE(parseSignal(encodeJson(alert.toJson())).and_then(&CoachAlert::fromJson).value(), alert);
    const UserResponse answer{text, QStringLiteral("snooze"), QString(), text};
    QCOMPARE(parseSignal(encodeJson(answer.toJson())).and_then(&UserResponse::fromJson).value(), answer);
    CoachConfig config = CoachConfig::makeDefault(directories);
    config.dataSources.gitCommits = true;
    config.dataSources.piecesSummaries = false;
    config.misalignmentThreshold = -1;
    config.vaultPath = text;
    const auto read = parseSignal(encodeJson(config.toJson())).and_then([](const QJsonObject& object) {
        return CoachConfig::fromJson(object, directories);
    });
    QCOMPARE(*read, config);
}

void SignalRecordsTest::missingOrWrongKey_isNamed_data()
{
    QTest::addColumn<QByteArray>("record");
    QTest::addColumn<QString>("key");
    const auto rows = [](const char* record, const QStringList& keys) {
        for (const QString& key : keys) {
            QTest::addRow("%s %s", record, qPrintable(key)) << QByteArray(record) << key;
        }
    };
    rows("focus", {QStringLiteral("focus"), QStringLiteral("status"), QStringLiteral("timestamp"),
                   QStringLiteral("pomodoro_count")});
    rows("alert", {QStringLiteral("alert_id"), QStringLiteral("triggered_at"), QStringLiteral("planned"),
                   QStringLiteral("actual"), QStringLiteral("misalignment_count"), QStringLiteral("status")});
    rows("response",
         {QStringLiteral("alert_id"), QStringLiteral("response"), QStringLiteral("note"), QStringLiteral("timestamp")});
}

void SignalRecordsTest::missingOrWrongKey_isNamed()
{
    QFETCH(QByteArray, record);
    QFETCH(QString, key);
    const QJsonObject full = record == "focus"   ? DailyFocusSignal().toJson()
                             : record == "alert" ? CoachAlert().toJson()
                                                 : UserResponse().toJson();
    const auto errorOf = [&](const QJsonObject& object) {
        const QByteArray bytes = encodeJson(object);
        return record == "focus"   ? decodingError<DailyFocusSignal>(bytes)
               : record == "alert" ? decodingError<CoachAlert>(bytes)
                                   : decodingError<UserResponse>(bytes);
    };
    QCOMPARE(errorOf(full), QString());
    QJsonObject broken = full;
    broken.remove(key);
    QCOMPARE(errorOf(broken), QStringLiteral("The value of \"%1\" is missing.").arg(key));
    const QList<QJsonValue> wrong = {QJsonValue(QJsonValue::Null), QJsonValue(true), QJsonValue(QJsonArray()),
                                     full.value(key).isString() ? QJsonValue(1) : QJsonValue(QStringLiteral("1")),
                                     QJsonValue(1.5)};
    for (const QJsonValue& value : wrong) {
        broken.insert(key, value);
        QVERIFY2(errorOf(broken).contains(u'"' + key + u'"'), qPrintable(errorOf(broken)));
    }
}

void SignalRecordsTest::config_defaultsByKey_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QJsonObject>("changed");
    const auto row = [](const char* bytes, const QJsonObject& changed) {
        QTest::newRow(bytes) << QByteArray(bytes) << changed;
    };
    row("{}", {});
    row(R"({"coach_style": "stoic"})", {{QStringLiteral("coach_style"), QStringLiteral("stoic")}});
    row(R"({"vault_path": "", "unknown": 1e400})", {{QStringLiteral("vault_path"), QString()}});
    row(R"({"pomodoro_interval_minutes": 25.0, "data_sources": null, "coach_prompt": null})",
        {{QStringLiteral("pomodoro_interval_minutes"), 25}});
}

void SignalRecordsTest::config_defaultsByKey()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QJsonObject, changed);
    const auto config = parseSignal(bytes).and_then(
        [](const QJsonObject& object) { return CoachConfig::fromJson(object, directories); });
    QVERIFY(config);
    QJsonObject expected = CoachConfig::makeDefault(directories).toJson();
    for (auto it = changed.begin(); it != changed.end(); ++it) {
        expected.insert(it.key(), it.value());
    }
    QCOMPARE(config->toJson(), expected);
}

void SignalRecordsTest::config_wrongTypeFailsAsAWhole_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("key");
    const auto row = [](const char* bytes, const char* key) {
        QTest::newRow(bytes) << QByteArray(bytes) << QString::fromUtf8(key);
    };
    row(R"({"data_sources": {"pieces_summaries": false}})", "\"data_sources.manual_checkins\"");
    row(R"({"data_sources": []})", "\"data_sources\"");
    row(R"({"coach_style": 1})", "\"coach_style\"");
    row(R"({"pomodoro_interval_minutes": "20"})", "\"pomodoro_interval_minutes\"");
    row(R"({"pomodoro_interval_minutes": 20.5})", "\"pomodoro_interval_minutes\"");
    row(R"({"misalignment_threshold": 1e400})", "\"misalignment_threshold\"");
    row(R"({"misalignment_threshold": 9223372036854775808})", "\"misalignment_threshold\"");
    row("[]", "not an object");
}

void SignalRecordsTest::config_wrongTypeFailsAsAWhole()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, key);
    const auto config = parseSignal(bytes).and_then(
        [](const QJsonObject& object) { return CoachConfig::fromJson(object, directories); });
    QVERIFY(!config);
    QVERIFY2(config.error().contains(key), qPrintable(config.error()));
}

void SignalRecordsTest::config_hasSortedEscapedKeys()
{
    const QByteArray bytes = encodeJson(CoachConfig::makeDefault(directories).toJson());
    qsizetype last = 0;
    for (const char* line :
         {"\"checkin_end_time\": \"18:00\"", "\"checkin_start_time\": \"07:30\"", "\"coach_prompt\": \"You are my",
          "\"coach_style\": \"supportive\"", "\"daily_note_pattern\": \"Daily\\/{year}\\/{date}.md\"",
          "\"data_sources\": {", "\"calendar_current\": false", "\"file_activity\": false", "\"git_commits\": false",
          "\"manual_checkins\": true", "\"pieces_summaries\": true", "\"detection_mode\": \"pieces\"",
          "\"misalignment_threshold\": 2", "\"pomodoro_interval_minutes\": 20",
          "\"vault_path\": \"\\/nowhere\\/Documents\""}) {
        const qsizetype at = bytes.indexOf(line);
        QVERIFY2(at > last, line);
        last = at;
    }
}

void SignalRecordsTest::acknowledgedAlert_keepsAllElse_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char* name, const char* bytes, const char* expected) {
        QTest::newRow(name) << QByteArray(bytes) << QByteArray(expected);
    };
    row("unknown keys, exact numbers",
        R"({"status":"pending","id":12345678901234567890123,"x":[1.10,1e400,-0,{"b":null,"a":"\u00e9/"}]})",
        "{\n  \"id\": 12345678901234567890123,\n  \"status\": \"acknowledged\",\n  \"x\": [\n    1.10,\n    1e400,\n"
        "    -0,\n    {\n      \"a\": \"\\u00e9\\/\",\n      \"b\": null\n    }\n  ]\n}\n");
    row("a status of another type", R"({"status":{"a":1}})", "{\n  \"status\": \"acknowledged\"\n}\n");
    row("no object", "[1, 2]", "{\n  \"status\": \"acknowledged\"\n}\n");
    row("a single value", "null", "{\n  \"status\": \"acknowledged\"\n}\n");
}

void SignalRecordsTest::acknowledgedAlert_keepsAllElse()
{
    QFETCH(QByteArray, bytes);
    QTEST(acknowledgedAlert(bytes).value_or(QByteArray()), "expected");
}

void SignalRecordsTest::window_data()
{
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("end");
    QTest::addColumn<QList<int>>("outside");
    QTest::addColumn<QList<int>>("inside");
    const auto row = [](const char* start, const char* end, const QList<int>& outside, const QList<int>& inside) {
        QTest::addRow("%s - %s", start, end) << QString::fromUtf8(start) << QString::fromUtf8(end) << outside << inside;
    };
    const QList<int> all = {0, 720, 1439};
    row("07:30", "18:00", {449, 1081}, {450, 1080});
    row("7:30", "18:0", {449, 1081}, {450, 1080});
    row("07::30", ":18:00:", {449, 1081}, {450, 1080});
    row("+7:30", "18:+00", {449, 1081}, {450, 1080});
    row("8:-30", "17:60", {449, 1081}, {450, 1080});
    row("22:00", "06:00", all, {});
    row("00:00", "99:99", {}, all);
    for (const char* unreadable :
         {"", ":", "0730", "07:30:00", " 7:30", "7:30 ", "7:3o", "٧:٣٠", "0x7:30", "9223372036854775807:0",
          "153722867280912931:0", "99999999999999999999:0", "153722867280912930:60"}) {
        row(unreadable, "00:00", {}, all);
        row("23:59", unreadable, {}, all);
    }
    row("-153722867280912930:-60", "-1:0", {}, all);
}

void SignalRecordsTest::window()
{
    QFETCH(QString, start);
    QFETCH(QString, end);
    QFETCH(QList<int>, outside);
    QFETCH(QList<int>, inside);
    for (const int minute : outside) {
        QVERIFY2(!isWithinWindow(start, end, minute), qPrintable(QString::number(minute)));
    }
    for (const int minute : inside) {
        QVERIFY2(isWithinWindow(start, end, minute), qPrintable(QString::number(minute)));
    }
}

} // namespace flitmark

QTEST_APPLESS_MAIN(flitmark::SignalRecordsTest)
#include "SignalRecordsTest.moc"

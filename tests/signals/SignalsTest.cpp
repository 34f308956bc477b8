// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Json.h>
#include <support/TestServices.h>

#include <QSignalSpy>

using namespace flitmark;

namespace {

const Directories directories{.home = "/nowhere", .applicationSupport = {}, .cache = {}};

tl::expected<CoachConfig, QString> config(const QByteArray& bytes)
{
    return parseJsonObject(bytes).and_then(
        [](const QJsonObject& object) { return CoachConfig::fromJson(object, directories); });
}

/// Decodes `record` without each of its keys and with each of them wrong: every error names the key.
template<typename Record>
void checkKeys(const Record& record)
{
    const QJsonObject full = record.toJson();
    QCOMPARE(parseJsonObject(encodeJson(full)).and_then(&Record::fromJson), record);
    for (const QString& key : full.keys()) {
        const QJsonValue other = full.value(key).isString() ? QJsonValue(1) : QJsonValue("1");
        for (const QJsonValue& wrong : {QJsonValue(QJsonValue::Undefined), QJsonValue(), other, QJsonValue(1.5)}) {
            QJsonObject broken = full;
            broken.insert(key, wrong);
            const auto read = Record::fromJson(broken);
            QVERIFY2(!read && read.error().contains(u'"' + key + u'"'), qPrintable(key));
        }
    }
}

QByteArray alertBytes(const char* status = "pending")
{
    return encodeJson(CoachAlert{"a1", {}, {}, {}, 3, status}.toJson());
}

} // namespace

class SignalsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_services = std::make_unique<TestServices>(); }
    void cleanup()
    {
        m_manager.reset();
        m_services.reset();
    }

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
    }

    void config_defaultsByKey()
    {
        CoachConfig expected = CoachConfig::makeDefault(directories);
        QCOMPARE(config("{}"), expected);
        expected.coachStyle = "stoic";
        QCOMPARE(config(R"({"coach_style": "stoic", "data_sources": null, "unknown": 1})"), expected);
        for (const auto& [bytes, error] : {
                 std::pair(R"({"data_sources": {"pieces_summaries": false}})", "\"data_sources.manual_checkins\""),
                 {R"({"coach_style": 1})", "\"coach_style\""},
                 {R"({"pomodoro_interval_minutes": 20.5})", "\"pomodoro_interval_minutes\""},
                 {R"({"misalignment_threshold": 1e400})", "\"misalignment_threshold\""},
                 {R"({"misalignment_threshold": 9223372036854775808})", "\"misalignment_threshold\""},
                 {R"({"unknown": [1e400]})", "\"unknown.0\""},
                 {"[]", "not an object"},
             }) {
            QVERIFY2(config(bytes).error().contains(error), bytes);
        }
    }

    void window()
    {
        for (const auto& [start, end] : {std::pair("07:30", "18:00"),
                                         {"7:30", "18:0"},
                                         {"07::30", ":18:00:"},
                                         {"+7:30", "18:+00"},
                                         {"8:-30", "17:60"}}) {
            QVERIFY2(!isWithinWindow(start, end, 449) && isWithinWindow(start, end, 450), start);
            QVERIFY2(isWithinWindow(start, end, 1080) && !isWithinWindow(start, end, 1081), end);
        }
        for (const char* unreadable : {"", ":", "0730", "07:30:00", " 7:30", "7:3o", "٧:٣٠", "9223372036854775807:0",
                                       "99999999999999999999:0", "153722867280912930:60"}) {
            QVERIFY2(isWithinWindow(unreadable, "00:00", 720) && isWithinWindow("23:59", unreadable, 720), unreadable);
        }
        QVERIFY(!isWithinWindow("22:00", "06:00", 0) && !isWithinWindow("22:00", "06:00", 1439) &&
                isWithinWindow("0:0", "99:99", 1439));
    }

    void directory_isChosenOnce()
    {
        QVERIFY(QDir(m_services->folder.path()).mkdir("vault"));
        for (const auto& [hasCompletedSetup, vault, isInVault] :
             {std::tuple(true, "vault/", true), {false, "vault", false}, {true, "none", false}, {true, "", false}}) {
            m_services->config.update([&, &set = hasCompletedSetup, &path = vault](AppConfig& config) {
                config.hasCompletedSetup = set;
                config.vaultPath = *path == 0 ? QString() : m_services->folder.filePath(path);
            });
            start();
            m_services->config.update([](AppConfig& config) { config.hasCompletedSetup = !config.hasCompletedSetup; });
            const QString inVault = m_services->folder.filePath("vault/.vault-state/flit-mark");
            QCOMPARE(m_manager->signalDirectory(), isInVault ? inVault : QFileInfo(own("x")).path());
            QCOMPARE(readTestFile(m_manager->coachConfigURL()),
                     encodeJson(CoachConfig::makeDefault(m_services->directories).toJson()));
        }
    }
    void brokenConfig_givesDefaultsAndStays()
    {
        for (const QByteArray& bytes :
             {QByteArray(), encodeJson(CoachConfig().toJson()).left(200), QByteArray("{\"a\":").repeated(1'000'000),
              QByteArray("{\"coach_style\": \"\xFF\"}")}) {
            cleanup();
            init();
            writeTestFile(own("coach-config.json"), bytes);
            start();
            QVERIFY(m_services->output->lines().first().startsWith("SignalManager: Failed to load config: The "));
            QCOMPARE(m_manager->coachConfig(), CoachConfig::makeDefault(m_services->directories));
            QCOMPARE(readTestFile(own("coach-config.json")), bytes);

            CoachConfig config = m_manager->coachConfig();
            config.pomodoroIntervalMinutes = 45;
            m_manager->setCoachConfig(config);
            m_manager->saveConfig();
            QCOMPARE(readTestFile(own("coach-config.json.unreadable")), bytes);
            start();
            QCOMPARE(m_manager->coachConfig(), config);
        }
    }
    void alerts()
    {
        start();
        for (const auto& [bytes, line] : {
                 std::pair(alertBytes("Pending"), ""),
                 {QByteArray(), "Failed to read coach alert: The data is empty."},
                 {alertBytes().left(50), "Failed to read coach alert: The data is not valid JSON"},
                 {QByteArray(1'000'000, '['), "Failed to read coach alert: The data is nested too deeply."},
                 {QByteArray("{}"), "Failed to read coach alert: The value of \"alert_id\" is"},
                 {alertBytes(), "Found pending alert: a1"},
             }) {
            const qsizetype before = m_services->output->lines().size();
            report(bytes);
            QCOMPARE(m_manager->currentAlert().has_value(), bytes == alertBytes());
            QVERIFY2(m_services->output->lines().sliced(before).join(u'\n').contains(line), line);
        }
        // The same alert again is published again; one that is withdrawn stays.
        QSignalSpy changes(m_manager.get(), &SignalManager::currentAlertChanged);
        report(alertBytes());
        QCOMPARE(changes.size(), 1);
        report(alertBytes("gone"));
        QVERIFY(m_manager->currentAlert().has_value());
    }
    void answer_acknowledgesItsAlert()
    {
        QByteArray bytes = alertBytes();
        writeTestFile(own("coach-alert.json"), bytes.replace("{\n", "{\n  \"a\": 1.10,\n"));
        start();
        m_manager->writeUserResponse("other", "snooze", {});
        QCOMPARE(readTestFile(own("coach-alert.json")), bytes);
        m_services->loop.runQueued();
        QVERIFY(m_manager->currentAlert());
        QFile watched(own("coach-alert.json"));
        QVERIFY(watched.open(QIODevice::ReadOnly));
        m_manager->writeUserResponse("a1", "snooze", {});
        QCOMPARE(readTestFile(own("user-response.json")),
                 QByteArray("{\n  \"alert_id\": \"a1\",\n  \"note\": \"\",\n  \"response\": \"snooze\",\n"
                            "  \"timestamp\": \"2026-01-22T08:30:00Z\"\n}\n"));
        bytes = watched.readAll();
        QVERIFY(bytes.contains("\"a\": 1.1,") && bytes.contains("\"status\": \"acknowledged\""));
        QVERIFY(m_manager->currentAlert());
        report(bytes);
        QVERIFY(!m_manager->currentAlert());

        QCOMPARE(acknowledgedAlert("[1, 2]"), QByteArray("{\n  \"status\": \"acknowledged\"\n}\n"));

        // The next alert may come in the moment of an answer.
        report(alertBytes());
        const QByteArray next = alertBytes().replace("a1", "a2");
        writeTestFile(own("coach-alert.json"), next);
        m_services->events.report(own("coach-alert.json"), FileEventSource::Event::Written);
        m_manager->writeUserResponse("a1", "snooze", {});
        m_services->loop.runQueued();
        QCOMPARE(m_manager->currentAlert().value_or(CoachAlert()).alertId, "a2");
        QCOMPARE(readTestFile(own("coach-alert.json")), next);

        // An answer that can't be written keeps the alert.
        report(alertBytes());
        QVERIFY(QFile::remove(own("user-response.json")) && QDir().mkpath(own("user-response.json")));
        m_manager->writeUserResponse("a1", "snooze", {});
        m_services->loop.runQueued();
        QVERIFY(m_manager->currentAlert());
        QCOMPARE(readTestFile(own("coach-alert.json")), alertBytes());
    }
    void noFolder_everyOperationSaysSo()
    {
        const QString state = m_services->directories.ownFolder() + "/state";
        QVERIFY(QDir(state).removeRecursively());
        writeTestFile(state, "a file in the folder's place");
        start();
        m_manager->writeDailyFocus("f", "active", 0);
        m_manager->writeUserResponse("a", "snooze", {});
        QCOMPARE(m_services->output->lines().join(u'\n').remove("SignalManager: Failed to "),
                 "save config: Not a directory\nopen file for monitoring\n"
                 "write daily focus: Not a directory\nwrite user response: Not a directory");
    }

private:
    QString own(const char* name) const
    {
        return m_services->directories.ownFolder() + QStringLiteral("/state/flit-mark/") + name;
    }
    void start()
    {
        TestServices& s = *m_services;
        m_manager = std::make_unique<SignalManager>(s.directories, s.config, s.loop, s.events);
    }
    /// Writes `bytes` into the alert's file, whose event is reported then.
    void report(const QByteArray& bytes)
    {
        writeTestFile(own("coach-alert.json"), bytes);
        m_services->events.report(own("coach-alert.json"), FileEventSource::Event::Written);
        m_services->loop.runQueued();
    }

    std::unique_ptr<TestServices> m_services;
    std::unique_ptr<SignalManager> m_manager;
};

QTEST_GUILESS_MAIN(SignalsTest)
#include "SignalsTest.moc"

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <config/ConfigManager.h>
#include <platform/Files.h>
#include <platform/Json.h>
#include <platform/RunLoop.h>
#include <platform/linux/InotifyFileEventSource.h>
#include <signals/SignalManager.h>
#include <support/ManualFileEvents.h>
#include <support/ManualRunLoop.h>
#include <support/OutputCapture.h>
#include <support/TestFiles.h>

#include <QSignalSpy>

#include <fcntl.h>

namespace flitmark {

using Event = FileEventSource::Event;

namespace {

QByteArray alertBytes(const char* id = "a1", const char* status = "pending")
{
    const CoachAlert alert{
        QString::fromUtf8(id),    QStringLiteral("whenever"), QStringLiteral("plan"), QStringLiteral("other"), 3,
        QString::fromUtf8(status)};
    return encodeJson(alert.toJson());
}

const QString unreadableAlert = QStringLiteral("SignalManager: Failed to read coach alert: The data is empty.");

} // namespace

class SignalManagerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void firstStart_makesTheFiles();
    void directory_isChosenOnce_data();
    void directory_isChosenOnce();
    void brokenConfig_givesDefaultsAndStays_data();
    void brokenConfig_givesDefaultsAndStays();
    void savedConfig_isReadAtTheNextStart();
    void dailyFocus_isWrittenInPlace();
    void alerts_arePublished_data();
    void alerts_arePublished();
    void alertReplacedByRename_isSeenAtTheNextStart();
    void answer_acknowledgesTheAlert();
    void answerToAnotherAlert_leavesTheFile();
    void answer_thatCannotBeWrittenKeepsTheAlert();
    void noFolder_everyOperationSaysSo();
    void brokenWatch_isSaid();
    void realWatch_publishesFromTheMainThreadAndCloses();
    void window_followsTheClock();

private:
    QString own(const char* name) const
    {
        return m_directories.ownFolder() + QStringLiteral("/state/flit-mark/") + QString::fromUtf8(name);
    }
    void start() { m_manager = std::make_unique<SignalManager>(m_directories, *m_config, m_loop, m_events); }

    std::unique_ptr<QTemporaryDir> m_folder;
    Directories m_directories;
    std::unique_ptr<ConfigManager> m_config;
    ManualRunLoop m_loop;
    ManualFileEvents m_events;
    std::unique_ptr<SignalManager> m_manager;
    std::unique_ptr<OutputCapture> m_output;
};

void SignalManagerTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_directories = {.home = m_folder->filePath(QStringLiteral("home")),
                     .applicationSupport = m_folder->filePath(QStringLiteral("support")),
                     .cache = m_folder->filePath(QStringLiteral("cache"))};
    m_config = std::make_unique<ConfigManager>(m_directories);
    m_output = std::make_unique<OutputCapture>();
}

void SignalManagerTest::cleanup()
{
    m_manager.reset();
    m_output.reset();
    m_events.isBroken = false;
}

void SignalManagerTest::firstStart_makesTheFiles()
{
    start();
    QCOMPARE(m_output->lines(),
             QStringList({QStringLiteral("SignalManager: Started watching for coach alerts"), unreadableAlert}));
    QCOMPARE(readTestFile(own("coach-config.json")), encodeJson(CoachConfig::makeDefault(m_directories).toJson()));
    QVERIFY(QFile::exists(own("coach-alert.json")));
    QCOMPARE(readTestFile(own("coach-alert.json")), QByteArray());
    QVERIFY(!m_manager->currentAlert());
    QVERIFY(m_manager->monitoredFileDescriptor() >= 0);
    m_manager.reset();
    QCOMPARE(m_events.paths(), QStringList());
}

void SignalManagerTest::directory_isChosenOnce_data()
{
    QTest::addColumn<bool>("hasCompletedSetup");
    QTest::addColumn<QString>("vault");
    QTest::addColumn<bool>("isInVault");
    QTest::newRow("set up") << true << QStringLiteral("vault") << true;
    QTest::newRow("set up, slash at the end") << true << QStringLiteral("vault/") << true;
    QTest::newRow("not set up") << false << QStringLiteral("vault") << false;
    QTest::newRow("vault gone") << true << QStringLiteral("none") << false;
    QTest::newRow("no vault") << true << QString() << false;
}

void SignalManagerTest::directory_isChosenOnce()
{
    QFETCH(bool, hasCompletedSetup);
    QFETCH(QString, vault);
    QFETCH(bool, isInVault);
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("vault")));
    m_config->update([&](AppConfig& config) {
        config.hasCompletedSetup = hasCompletedSetup;
        config.vaultPath = vault.isEmpty() ? vault : m_folder->filePath(vault);
    });
    start();
    const QString expected = isInVault ? m_folder->filePath(QStringLiteral("vault/.vault-state/flit-mark"))
                                       : m_directories.ownFolder() + QStringLiteral("/state/flit-mark");
    QCOMPARE(m_manager->signalDirectory(), expected);
    QVERIFY(QFile::exists(expected + QStringLiteral("/coach-config.json")));
    m_config->update([&](AppConfig& config) { config.hasCompletedSetup = !hasCompletedSetup; });
    QCOMPARE(m_manager->signalDirectory(), expected);
}

void SignalManagerTest::brokenConfig_givesDefaultsAndStays_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("half-written") << encodeJson(CoachConfig().toJson()).left(200);
    QTest::newRow("wrong type") << QByteArray(R"({"coach_style": 1})");
    QTest::newRow("a data source missing") << QByteArray(R"({"data_sources": {"pieces_summaries": false}})");
    QTest::newRow("deep") << QByteArray("{\"a\":").repeated(1'000'000);
    QTest::newRow("not UTF-8") << QByteArray("{\"coach_style\": \"\xFF\"}");
}

void SignalManagerTest::brokenConfig_givesDefaultsAndStays()
{
    QFETCH(QByteArray, bytes);
    writeTestFile(own("coach-config.json"), bytes);
    start();
    QVERIFY2(m_output->lines().first().startsWith(QStringLiteral("SignalManager: Failed to load config: The ")),
             qPrintable(m_output->lines().first()));
    QCOMPARE(m_manager->coachConfig(), CoachConfig::makeDefault(m_directories));
    QCOMPARE(readTestFile(own("coach-config.json")), bytes);

    m_manager->saveConfig();
    QCOMPARE(readTestFile(own("coach-config.json")), encodeJson(m_manager->coachConfig().toJson()));
    QCOMPARE(readTestFile(own("coach-config.json.unreadable")), bytes);
}

void SignalManagerTest::savedConfig_isReadAtTheNextStart()
{
    start();
    QSignalSpy changes(m_manager.get(), &SignalManager::coachConfigChanged);
    CoachConfig config = m_manager->coachConfig();
    config.pomodoroIntervalMinutes = 45;
    config.coachStyle = QStringLiteral("direct");
    m_manager->setCoachConfig(config);
    m_manager->setCoachConfig(config);
    QCOMPARE(changes.size(), 1);
    m_manager->saveConfig();
    QVERIFY(QFile::remove(own("coach-alert.json")));
    start();
    QCOMPARE(m_manager->coachConfig(), config);
}

void SignalManagerTest::dailyFocus_isWrittenInPlace()
{
    start();
    writeTestFile(own("daily-focus.json"), QByteArray(1000, 'x'));
    QFile open(own("daily-focus.json"));
    QVERIFY(open.open(QIODevice::ReadOnly));
    m_manager->writeDailyFocus(QStringLiteral("Ship it"), QStringLiteral("active"), 4);
    QCOMPARE(open.readAll(),
             QByteArray("{\n  \"focus\": \"Ship it\",\n  \"pomodoro_count\": 4,\n  \"status\": \"active\",\n"
                        "  \"timestamp\": \"2026-01-22T13:03:05Z\"\n}\n"));
    QCOMPARE(m_output->lines().last(), QStringLiteral("SignalManager: Wrote daily focus signal"));
}

void SignalManagerTest::alerts_arePublished_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("line");
    QTest::newRow("pending") << alertBytes() << QStringLiteral("SignalManager: Found pending alert: a1");
    QTest::newRow("Pending") << alertBytes("a1", "Pending") << QString();
    QTest::newRow("acknowledged") << alertBytes("a1", "acknowledged") << QString();
    QTest::newRow("empty") << QByteArray() << unreadableAlert;
    QTest::newRow("half-written") << alertBytes().left(50)
                                  << QStringLiteral(
                                         "SignalManager: Failed to read coach alert: The data is not valid JSON");
    QTest::newRow("list") << QByteArray("[]")
                          << QStringLiteral(
                                 "SignalManager: Failed to read coach alert: The data is JSON, but not an object.");
    QTest::newRow("deep") << QByteArray(1'000'000, '[')
                          << QStringLiteral(
                                 "SignalManager: Failed to read coach alert: The data is nested too deeply.");
    QTest::newRow("no id") << QByteArray(R"({"status": "pending"})")
                           << QStringLiteral(
                                  "SignalManager: Failed to read coach alert: The value of \"alert_id\" is missing.");
}

void SignalManagerTest::alerts_arePublished()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, line);
    const bool isFound = line.contains(QStringLiteral("Found"));
    start();
    QSignalSpy changes(m_manager.get(), &SignalManager::currentAlertChanged);
    const qsizetype before = m_output->lines().size();
    writeTestFile(own("coach-alert.json"), bytes);
    m_events.report(own("coach-alert.json"), Event::Written);
    QCOMPARE(changes.size(), 0);
    m_loop.runQueued();
    QCOMPARE(m_manager->currentAlert().has_value(), isFound);
    QCOMPARE(changes.size(), isFound ? 1 : 0);
    const QStringList lines = m_output->lines().sliced(before);
    QCOMPARE(lines.size(), line.isEmpty() ? 0 : 1);
    QVERIFY2(line.isEmpty() || lines.first().startsWith(line), qPrintable(lines.join(u'\n')));

    // The same alert again is published again; one that is withdrawn stays.
    m_events.report(own("coach-alert.json"), Event::Grown);
    m_loop.runQueued();
    QCOMPARE(changes.size(), isFound ? 2 : 0);
    writeTestFile(own("coach-alert.json"), alertBytes("a1", "gone"));
    m_events.report(own("coach-alert.json"), Event::Written);
    m_loop.runQueued();
    QCOMPARE(m_manager->currentAlert().has_value(), isFound);
}

void SignalManagerTest::alertReplacedByRename_isSeenAtTheNextStart()
{
    start();
    writeTestFile(own("new"), alertBytes());
    QCOMPARE(::rename(qPrintable(own("new")), qPrintable(own("coach-alert.json"))), 0);
    m_events.report(own("coach-alert.json"), Event::Renamed);
    m_loop.runQueued();
    QVERIFY(!m_manager->currentAlert());
    start();
    QVERIFY(m_manager->currentAlert());
}

void SignalManagerTest::answer_acknowledgesTheAlert()
{
    QByteArray bytes = alertBytes();
    bytes.replace("{\n", "{\n  \"confidence\": 1.10, \"trace\": 98765432109876543210, \"huge\": 1e400,\n");
    writeTestFile(own("coach-alert.json"), bytes);
    start();
    QVERIFY(m_manager->currentAlert());
    QFile watched(own("coach-alert.json"));
    QVERIFY(watched.open(QIODevice::ReadOnly));

    m_manager->writeUserResponse(QStringLiteral("a1"), QStringLiteral("snooze"), QString());
    QCOMPARE(readTestFile(own("user-response.json")),
             QByteArray("{\n  \"alert_id\": \"a1\",\n  \"note\": \"\",\n  \"response\": \"snooze\",\n"
                        "  \"timestamp\": \"2026-01-22T13:03:05Z\"\n}\n"));
    QCOMPARE(watched.readAll(),
             QByteArray("{\n  \"actual\": \"other\",\n  \"alert_id\": \"a1\",\n  \"confidence\": 1.10,\n"
                        "  \"huge\": 1e400,\n  \"misalignment_count\": 3,\n  \"planned\": \"plan\",\n"
                        "  \"status\": \"acknowledged\",\n  \"trace\": 98765432109876543210,\n"
                        "  \"triggered_at\": \"whenever\"\n}\n"));
    QCOMPARE(m_output->lines().last(), QStringLiteral("SignalManager: Wrote user response for alert a1"));
    QVERIFY(m_manager->currentAlert());
    m_events.report(own("coach-alert.json"), Event::Written);
    m_loop.runQueued();
    QVERIFY(!m_manager->currentAlert());
}

void SignalManagerTest::answerToAnotherAlert_leavesTheFile()
{
    writeTestFile(own("coach-alert.json"), alertBytes("a2"));
    start();
    m_manager->writeUserResponse(QStringLiteral("a1"), QStringLiteral("refocusing"), QStringLiteral("n"));
    QCOMPARE(readTestFile(own("coach-alert.json")), alertBytes("a2"));
    QVERIFY(readTestFile(own("user-response.json")).contains("\"alert_id\": \"a1\""));
    m_loop.runQueued();
    QVERIFY(!m_manager->currentAlert());
}

void SignalManagerTest::answer_thatCannotBeWrittenKeepsTheAlert()
{
    writeTestFile(own("coach-alert.json"), alertBytes());
    start();
    QVERIFY(QDir().mkpath(own("user-response.json")));
    m_manager->writeUserResponse(QStringLiteral("a1"), QStringLiteral("snooze"), QString());
    QCOMPARE(m_output->lines().last(), QStringLiteral("SignalManager: Failed to write user response: Is a directory"));
    m_loop.runQueued();
    QVERIFY(m_manager->currentAlert());
    QCOMPARE(readTestFile(own("coach-alert.json")), alertBytes());
}

void SignalManagerTest::noFolder_everyOperationSaysSo()
{
    writeTestFile(m_directories.ownFolder() + QStringLiteral("/state"), "a file in the folder's place");
    m_events.isBroken = true;
    start();
    m_manager->writeDailyFocus(QStringLiteral("f"), QStringLiteral("active"), 0);
    m_manager->writeUserResponse(QStringLiteral("a"), QStringLiteral("snooze"), QString());
    const QString reason = QStringLiteral("Not a directory");
    QCOMPARE(m_output->lines(),
             QStringList({QStringLiteral("SignalManager: Failed to save config: ") + reason,
                          QStringLiteral("SignalManager: Failed to open file for monitoring"),
                          QStringLiteral("SignalManager: Failed to write daily focus: ") + reason,
                          QStringLiteral("SignalManager: Failed to write user response: ") + reason}));
}

void SignalManagerTest::brokenWatch_isSaid()
{
    writeTestFile(own("coach-alert.json"), alertBytes());
    m_events.isBroken = true;
    start();
    QCOMPARE(m_output->lines(), QStringList({QStringLiteral("SignalManager: Failed to open file for monitoring")}));
    QVERIFY(!m_manager->currentAlert());
    QCOMPARE(m_manager->monitoredFileDescriptor(), -1);
}

void SignalManagerTest::realWatch_publishesFromTheMainThreadAndCloses()
{
    InotifyFileEventSources events;
    auto manager = std::make_unique<SignalManager>(m_directories, *m_config, RunLoop::shared(), events);
    const int descriptor = manager->monitoredFileDescriptor();
    bool isMainThread = true;
    connect(
        manager.get(), &SignalManager::currentAlertChanged, this,
        [&] { isMainThread = isMainThread && QThread::currentThread() == thread(); }, Qt::DirectConnection);
    QVERIFY(overwriteFile(own("coach-alert.json"), alertBytes("b7")));
    QTRY_VERIFY(manager->currentAlert());
    QCOMPARE(manager->currentAlert()->alertId, QStringLiteral("b7"));
    manager->writeUserResponse(QStringLiteral("b7"), QStringLiteral("snooze"), QString());
    QTRY_VERIFY(!manager->currentAlert());
    QVERIFY(overwriteFile(own("coach-alert.json"), alertBytes("b8")));
    QTRY_VERIFY(manager->currentAlert());
    QVERIFY(isMainThread);
    manager.reset();
    QCOMPARE(::fcntl(descriptor, F_GETFD), -1);
}

void SignalManagerTest::window_followsTheClock()
{
    start();
    const auto isInsideAt = [this](int hour, int minute) {
        m_loop.setWallClock(QDateTime(QDate(2026, 1, 22), QTime(hour, minute, 59)));
        return m_manager->isWithinCheckinWindow();
    };
    QVERIFY(!isInsideAt(7, 29));
    QVERIFY(isInsideAt(7, 30));
    QVERIFY(isInsideAt(18, 0));
    QVERIFY(!isInsideAt(18, 1));
}

} // namespace flitmark

QTEST_GUILESS_MAIN(flitmark::SignalManagerTest)
#include "SignalManagerTest.moc"

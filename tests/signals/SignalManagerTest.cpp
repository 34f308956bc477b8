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

namespace flitmark {

namespace {

QByteArray alertBytes(const char* status = "pending")
{
    return encodeJson(CoachAlert{QStringLiteral("a1"), {}, {}, {}, 3, QString::fromUtf8(status)}.toJson());
}

} // namespace

class SignalManagerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_directories = {.home = m_folder->filePath(QStringLiteral("home")),
                         .applicationSupport = m_folder->filePath(QStringLiteral("support")),
                         .cache = {}};
        m_config = std::make_unique<ConfigManager>(m_directories);
        m_output = std::make_unique<OutputCapture>();
    }
    void cleanup()
    {
        m_manager.reset();
        m_output.reset();
        m_events.isBroken = false;
    }

    void directory_isChosenOnce_data()
    {
        QTest::addColumn<bool>("hasCompletedSetup");
        QTest::addColumn<QString>("vault");
        QTest::addColumn<bool>("isInVault");
        QTest::newRow("set up, slash at the end") << true << "vault/" << true;
        QTest::newRow("not set up") << false << "vault" << false;
        QTest::newRow("vault gone") << true << "none" << false;
        QTest::newRow("no vault") << true << "" << false;
    }

    void directory_isChosenOnce()
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
        m_config->update([&](AppConfig& config) { config.hasCompletedSetup = !hasCompletedSetup; });
        const QString inVault = m_folder->filePath(QStringLiteral("vault/.vault-state/flit-mark"));
        QCOMPARE(m_manager->signalDirectory(), isInVault ? inVault : QFileInfo(own("x")).path());
        QCOMPARE(readTestFile(m_manager->coachConfigURL()),
                 encodeJson(CoachConfig::makeDefault(m_directories).toJson()));
    }

    void brokenConfig_givesDefaultsAndStays_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("half-written") << encodeJson(CoachConfig().toJson()).left(200);
        QTest::newRow("deep") << QByteArray("{\"a\":").repeated(1'000'000);
        QTest::newRow("not UTF-8") << QByteArray("{\"coach_style\": \"\xFF\"}");
    }

    void brokenConfig_givesDefaultsAndStays()
    {
        QFETCH(QByteArray, bytes);
        writeTestFile(own("coach-config.json"), bytes);
        start();
        QVERIFY(m_output->lines().first().startsWith(QStringLiteral("SignalManager: Failed to load config: The ")));
        QCOMPARE(m_manager->coachConfig(), CoachConfig::makeDefault(m_directories));
        QCOMPARE(readTestFile(own("coach-config.json")), bytes);

        CoachConfig config = m_manager->coachConfig();
        config.pomodoroIntervalMinutes = 45;
        m_manager->setCoachConfig(config);
        m_manager->saveConfig();
        QCOMPARE(readTestFile(own("coach-config.json.unreadable")), bytes);
        start();
        QCOMPARE(m_manager->coachConfig(), config);
    }

    void dailyFocus_isWrittenInPlace()
    {
        start();
        writeTestFile(own("daily-focus.json"), QByteArray(1000, 'x'));
        QFile open(own("daily-focus.json"));
        QVERIFY(open.open(QIODevice::ReadOnly));
        m_manager->writeDailyFocus(QStringLiteral("Ship it"), QStringLiteral("active"), 4);
        QCOMPARE(open.readAll(),
                 QByteArray("{\n  \"focus\": \"Ship it\",\n  \"pomodoro_count\": 4,\n  \"status\": \"active\",\n"
                            "  \"timestamp\": \"2026-01-22T13:03:05Z\"\n}\n"));
    }

    void alerts_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("line");
        QTest::newRow("pending") << alertBytes() << "Found pending alert: a1";
        QTest::newRow("Pending") << alertBytes("Pending") << "";
        QTest::newRow("empty") << QByteArray() << "Failed to read coach alert: The data is empty.";
        QTest::newRow("half") << alertBytes().left(50) << "Failed to read coach alert: The data is not valid JSON";
        QTest::newRow("deep") << QByteArray(1'000'000, '[')
                              << "Failed to read coach alert: The data is nested too deeply.";
        QTest::newRow("no id") << QByteArray("{}") << "Failed to read coach alert: The value of \"alert_id\" is";
    }

    void alerts()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, line);
        const bool isFound = bytes == alertBytes();
        start();
        QSignalSpy changes(m_manager.get(), &SignalManager::currentAlertChanged);
        const qsizetype before = m_output->lines().size();
        report(bytes);
        QCOMPARE(m_manager->currentAlert().has_value(), isFound);
        const QStringList lines = m_output->lines().sliced(before);
        QCOMPARE(lines.size(), line.isEmpty() ? 0 : 1);
        QVERIFY2(line.isEmpty() || lines.first().contains(line), qPrintable(lines.join(u'\n')));
        // The same alert again is published again; one that is withdrawn stays.
        report(bytes);
        QCOMPARE(changes.size(), isFound ? 2 : 0);
        report(alertBytes("gone"));
        QCOMPARE(m_manager->currentAlert().has_value(), isFound);
    }

    void answer_acknowledgesItsAlert()
    {
        QByteArray bytes = alertBytes();
        writeTestFile(own("coach-alert.json"), bytes.replace("{\n", "{\n  \"a\": 1.10,\n"));
        start();
        m_manager->writeUserResponse(QStringLiteral("other"), QStringLiteral("snooze"), QString());
        QCOMPARE(readTestFile(own("coach-alert.json")), bytes);
        m_loop.runQueued();
        QVERIFY(!m_manager->currentAlert());
        start();
        QFile watched(own("coach-alert.json"));
        QVERIFY(watched.open(QIODevice::ReadOnly));
        m_manager->writeUserResponse(QStringLiteral("a1"), QStringLiteral("snooze"), QString());
        QCOMPARE(readTestFile(own("user-response.json")),
                 QByteArray("{\n  \"alert_id\": \"a1\",\n  \"note\": \"\",\n  \"response\": \"snooze\",\n"
                            "  \"timestamp\": \"2026-01-22T13:03:05Z\"\n}\n"));
        bytes = watched.readAll();
        QVERIFY(bytes.contains("\"a\": 1.10") && bytes.contains("\"status\": \"acknowledged\""));
        QVERIFY(m_manager->currentAlert());
        report(bytes);
        QVERIFY(!m_manager->currentAlert());

        // An answer that can't be written keeps the alert.
        report(alertBytes());
        QVERIFY(QFile::remove(own("user-response.json")) && QDir().mkpath(own("user-response.json")));
        m_manager->writeUserResponse(QStringLiteral("a1"), QStringLiteral("snooze"), QString());
        m_loop.runQueued();
        QVERIFY(m_manager->currentAlert());
        QCOMPARE(readTestFile(own("coach-alert.json")), alertBytes());
    }

    void noFolder_everyOperationSaysSo()
    {
        writeTestFile(m_directories.ownFolder() + QStringLiteral("/state"), "a file in the folder's place");
        m_events.isBroken = true;
        start();
        m_manager->writeDailyFocus(QStringLiteral("f"), QStringLiteral("active"), 0);
        m_manager->writeUserResponse(QStringLiteral("a"), QStringLiteral("snooze"), QString());
        QCOMPARE(m_output->lines().join(u'\n').remove(QStringLiteral("SignalManager: Failed to ")),
                 QStringLiteral("save config: Not a directory\nopen file for monitoring\n"
                                "write daily focus: Not a directory\nwrite user response: Not a directory"));
    }

    void realWatch_publishesFromTheMainThread()
    {
        InotifyFileEventSources events;
        SignalManager manager(m_directories, *m_config, RunLoop::shared(), events);
        bool isMainThread = true;
        connect(
            &manager, &SignalManager::currentAlertChanged, this,
            [&] { isMainThread = isMainThread && QThread::currentThread() == thread(); }, Qt::DirectConnection);
        for (int i = 0; i < 2; ++i) {
            QVERIFY(overwriteFile(own("coach-alert.json"), alertBytes()));
            QTRY_VERIFY(manager.currentAlert());
            manager.writeUserResponse(QStringLiteral("a1"), QStringLiteral("snooze"), QString());
            QTRY_VERIFY(!manager.currentAlert());
        }
        QVERIFY(isMainThread);
    }

private:
    QString own(const char* name) const
    {
        return m_directories.ownFolder() + QStringLiteral("/state/flit-mark/") + QString::fromUtf8(name);
    }
    void start() { m_manager = std::make_unique<SignalManager>(m_directories, *m_config, m_loop, m_events); }
    /// Writes `bytes` into the alert's file, whose event is reported then.
    void report(const QByteArray& bytes)
    {
        writeTestFile(own("coach-alert.json"), bytes);
        m_events.report(own("coach-alert.json"), FileEventSource::Event::Written);
        m_loop.runQueued();
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    Directories m_directories;
    std::unique_ptr<ConfigManager> m_config;
    ManualRunLoop m_loop;
    ManualFileEvents m_events;
    std::unique_ptr<SignalManager> m_manager;
    std::unique_ptr<OutputCapture> m_output;
};

} // namespace flitmark

QTEST_GUILESS_MAIN(flitmark::SignalManagerTest)
#include "SignalManagerTest.moc"

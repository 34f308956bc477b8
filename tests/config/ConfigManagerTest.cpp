// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <config/ConfigManager.h>
#include <support/OutputCapture.h>
#include <support/TestFiles.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QSignalSpy>

using namespace flitmark;

class ConfigManagerTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_home = std::make_unique<QTemporaryDir>();
        m_directories = {
            .home = m_home->path(), .applicationSupport = m_home->filePath(QStringLiteral("conf")), .cache = {}};
    }
    void firstRun_writesTheDefaults()
    {
        const ConfigManager manager(m_directories);
        QCOMPARE(manager.configURL(), configPath());
        const QByteArrayList lines = readTestFile(configPath()).split('\n');
        QCOMPARE(lines[1], QByteArray("  \"checkin_end_time\": \"18:00\","));
        QCOMPARE(lines[lines.size() - 3], QByteArray("  \"window_opacity\": 0.95"));
        QVERIFY(lines.join().contains("\\/Documents\""));
        QCOMPARE(stored().size(), 20);
        const AppConfig& config = manager.config();
        QVERIFY(!config.hasCompletedSetup && config.panelWidth == 440 && config.panelHeight == 560);
        QVERIFY(config.playSoundOnSave && config.pomodoroEnabled && config.coachEnabled && config.dailyReviewEnabled);
        QString texts;
        for (const auto& [name, type] : config.noteTypes.asKeyValueRange()) {
            texts += name + u':' + type.prefix + u'|';
        }
        for (const QuickTag& tag : config.quickTags) {
            texts += tag.icon + tag.appendText + (tag.isDefault ? u'!' : u'|');
        }
        QCOMPARE(texts, QStringLiteral("Fleeting:|Idea:💡 |Task:TODO |🔥#priority/high|📌#status/pinned|💡#type/idea|"
                                       "✅#type/task|"));
        QVERIFY(AppConfig::makeDefault(m_directories).quickTags[0].id != config.quickTags[0].id);
    }
    void save_load_keepsEverySetting()
    {
        ConfigManager manager(m_directories);
        // Every setting differs from its default, so that one that is not stored shows.
        manager.update([](AppConfig& config) {
            config.vaultPath = QStringLiteral(u"/v\u00e4/\"q\"/\U0001F4A1");
            config.saveSubfolder = QStringLiteral("A/B");
            config.defaultTags = {QStringLiteral("x"), QString()};
            config.playSoundOnSave = false;
            config.windowMode = QStringLiteral("any string");
            config.windowOpacity = 0.1 + 0.2;
            config.noteTypes = {
                {QStringLiteral("N"), {QStringLiteral("s"), {QStringLiteral("t")}, QStringLiteral("p\n")}}};
            config.quickTags = {{QUuid::createUuid(), QStringLiteral("i"), QStringLiteral("a"), true}};
            config.hasCompletedSetup = true;
            config.panelWidth = 380;
            config.panelHeight = 480.5;
            config.colorPalette = ColorPalette::warmMinimal;
            config.pomodoroEnabled = false;
            config.coachEnabled = false;
            config.pomodoroIntervalMinutes = std::numeric_limits<qint64>::max();
            config.checkinStartTime = QStringLiteral("x");
            config.checkinEndTime = QString();
            config.detectionMode = QStringLiteral("manual");
            config.dailyReviewEnabled = false;
            config.dailyReviewTimes.clear();
        });
        manager.save();
        QVERIFY(ConfigManager(m_directories).config() == manager.config());
        const QString id = manager.config().quickTags[0].id.toString(QUuid::WithoutBraces).toUpper();
        QCOMPARE(stored()[u"quick_tags"][0][u"id"].toString(), id);
    }
    void missingKeys_takeTheirDefaults_data()
    {
        QTest::addColumn<QByteArray>("rest");
        QTest::newRow("one key") << QByteArray();
        const QByteArray keys =
            "quick_tags,panel_width,note_types,color_palette,pomodoro_interval_minutes,window_opacity";
        QTest::newRow("null") << ",\"" + QByteArray(keys).replace(",", "\":null,\"") + "\":null";
        QTest::newRow("unknown key") << QByteArray(R"(, "from_the_future": {"x": []})");
    }
    void missingKeys_takeTheirDefaults()
    {
        QFETCH(const QByteArray, rest);
        writeTestFile(configPath(), R"({"save_subfolder": "Mine")" + rest + '}');
        const ConfigManager manager(m_directories);
        QVERIFY(manager.config() == defaultsBut(QStringLiteral("Mine"), manager));
        // The panel's size was the old one, so the file has been written anew.
        QCOMPARE(stored().size(), 20);
    }
    void oldPanelSize_isMigratedOnlyWhenExact_data()
    {
        QTest::addColumn<QByteArray>("size");
        QTest::addColumn<QSizeF>("loaded");
        QTest::newRow("old") << QByteArray(R"("panel_width": 380, "panel_height": 480.0)") << QSizeF(440, 560);
        QTest::newRow("old, width missing") << QByteArray(R"("panel_height": 480)") << QSizeF(440, 560);
        QTest::newRow("wider") << QByteArray(R"("panel_width": 381, "panel_height": 480)") << QSizeF(381, 480);
        QTest::newRow("higher") << QByteArray(R"("panel_width": 380, "panel_height": 480.1)") << QSizeF(380, 480.1);
    }
    void oldPanelSize_isMigratedOnlyWhenExact()
    {
        QFETCH(const QByteArray, size);
        QFETCH(const QSizeF, loaded);
        writeTestFile(configPath(), '{' + size + '}');
        const ConfigManager manager(m_directories);
        QCOMPARE(QSizeF(manager.config().panelWidth, manager.config().panelHeight), loaded);
        QCOMPARE(readTestFile(configPath()) == '{' + size + '}', loaded != QSizeF(440, 560));
    }
    void badFile_yieldsDefaultsAndIsKept_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("hint");
        const auto row = [](const char* file, const char* hint) {
            QTest::newRow(file) << QByteArray(file) << QString::fromLatin1(hint);
        };
        row("", "not valid JSON");
        row(R"({"vault_path": "/years/of/settings", "save_sub")", "not valid JSON");
        row("[1]", "not an object");
        row(R"({"color_palette": "pink"})", "\"color_palette\"");
        row(R"({"color_palette": 1})", "\"color_palette\"");
        row(R"({"pomodoro_interval_minutes": 20.5})", "\"pomodoro_interval_minutes\"");
        row(R"({"coach_enabled": 1})", "\"coach_enabled\"");
        row(R"({"window_opacity": "1"})", "\"window_opacity\"");
        row(R"({"daily_review_times": ["19:00", 20]})", "\"daily_review_times\"");
        row(R"({"note_types": {"A": {"subfolder": "x", "tags": []}}})", "\"note_types.A.prefix\"");
        row(R"({"note_types": {"A": null}})", "\"note_types.A\"");
        row(R"({"quick_tags": [{"id": "E621E1F8-C36C-495A-93FC-0C247A3E6E5F", "appendText": ""}]})", "s.0.icon\"");
        row(R"({"quick_tags": [{"id": "{E621E1F8-C36C-495A-93FC-0C247A3E6E5F}", "icon": "", "appendText": ""}]})",
            "\"quick_tags.0.id\" is not a UUID");
        row(R"({"quick_tags": ["x"]})", "\"quick_tags.0\" is not an object");
    }
    void badFile_yieldsDefaultsAndIsKept()
    {
        QFETCH(const QByteArray, file);
        QFETCH(const QString, hint);
        writeTestFile(configPath(), file);
        OutputCapture output;
        ConfigManager manager(m_directories);
        const QString line = output.lines().join(u'|');
        QVERIFY2(line.startsWith(QStringLiteral("Failed to load config: ")) && line.contains(hint), qPrintable(line));
        QVERIFY(manager.config() == defaultsBut(QStringLiteral("Inbox"), manager));
        QCOMPARE(readTestFile(configPath()), file);
        manager.save();
        manager.save();
        QCOMPARE(stored().size(), 20);
        QCOMPARE(readTestFile(configPath() + QStringLiteral(".unreadable")), file);
    }
    void unusablePlace_printsAndKeepsMemory()
    {
        makeTestLink(QStringLiteral("/nonexistent/config.json"), configPath());
        OutputCapture output;
        ConfigManager manager(m_directories);
        manager.update([](AppConfig& config) { config.saveSubfolder = QStringLiteral("Mine"); });
        manager.save();
        QCOMPARE(output.lines().size(), 2);
        QVERIFY(output.lines()[0].startsWith(QStringLiteral("Failed to load config: ")));
        QVERIFY(output.lines()[1].startsWith(QStringLiteral("Failed to save config: ")));
        QCOMPARE(manager.config().saveSubfolder, QStringLiteral("Mine"));
    }
    void foreignShapes_areRead()
    {
        writeTestFile(configPath(),
                      "{\"pomodoro_interval_minutes\": 25.0, \"vault_path\": \"\\/a/b\", \"note_types\": {},"
                      R"("quick_tags": [{"id": "e621e1f8-c36c-495a-93fc-0c247a3e6e5f", "icon": "",)"
                      R"("appendText": "", "isDefault": null}]})");
        const AppConfig config = ConfigManager(m_directories).config();
        QCOMPARE(config.pomodoroIntervalMinutes, qint64(25));
        QCOMPARE(config.vaultPath, QStringLiteral("/a/b"));
        QVERIFY(config.noteTypes.isEmpty() && config.quickTags.size() == 1 && !config.quickTags[0].isDefault);
    }
    void vaultGuess_takesTheFirstThatExists()
    {
        // From the last candidate to the first: each outdoes the one before. A file counts too.
        for (const char* name : {"/Notes", "/Vault", "/Obsidian", "/Documents/Obsidian Vault", "/Documents/Obsidian"}) {
            const QString candidate = m_home->path() + QString::fromLatin1(name);
            writeTestFile(candidate, "");
            QCOMPARE(AppConfig::makeDefault(m_directories).vaultPath, candidate);
        }
    }
    void update_notifiesOncePerChange()
    {
        ConfigManager manager(m_directories);
        QSignalSpy changed(&manager, &ConfigManager::configChanged);
        const QByteArray before = readTestFile(configPath());
        for (int i = 0; i < 2; ++i) {
            manager.update([](AppConfig& config) {
                config.saveSubfolder = QStringLiteral("A");
                config.windowOpacity = 0.5;
            });
            QCOMPARE(changed.count(), 1);
        }
        QCOMPARE(readTestFile(configPath()), before);
        manager.load();
        QCOMPARE(changed.count(), 2);
        QCOMPARE(manager.config().saveSubfolder, QStringLiteral("Inbox"));
    }
    void getSaveDirectory()
    {
        const auto check = [this](const char* vault, const char* noteType, const char* subfolder,
                                  const char* expected) {
            ConfigManager manager(m_directories);
            manager.update([&](AppConfig& config) {
                config.vaultPath = QString::fromUtf8(vault);
                config.saveSubfolder = QString::fromUtf8(subfolder);
            });
            QCOMPARE(manager.getSaveDirectory(QString::fromUtf8(noteType)), QString::fromUtf8(expected));
        };
        check("/V/x/..", "Task", "Mine", "/V/Inbox");
        check("/V", "Other", "Mine/x", "/V/Mine/x");
        check("/V", "task", "Mine", "/V/Mine");
        check("/V", "Other", "../x", "/V/Inbox");
        for (const char* notAbsolute : {"", "Vault", "~/Vault", " /Vault", ":/Vault"}) {
            check(notAbsolute, "Fleeting", "Mine", "");
        }
    }
    void palettes_areStoredByName()
    {
        QStringList names;
        for (const ColorPalette palette : allColorPalettes()) {
            names.append(rawValue(palette));
            QCOMPARE(colorPaletteFromRawValue(names.last()), palette);
        }
        QCOMPARE(names.join(u','),
                 QStringLiteral("obsidian_native,calm_productivity,forest_focus,midnight_clarity,warm_minimal"));
        QVERIFY(!colorPaletteFromRawValue(QStringLiteral("Obsidian_native")));
    }

private:
    QString configPath() const { return m_directories.ownFolder() + QStringLiteral("/config.json"); }
    QJsonObject stored() const { return QJsonDocument::fromJson(readTestFile(configPath())).object(); }
    /// The defaults with another subfolder. The ids of quick tags are always new: they are those of `manager`.
    AppConfig defaultsBut(const QString& subfolder, const ConfigManager& manager) const
    {
        AppConfig expected = AppConfig::makeDefault(m_directories);
        expected.saveSubfolder = subfolder;
        for (qsizetype i = 0; i < std::min(expected.quickTags.size(), manager.config().quickTags.size()); ++i) {
            expected.quickTags[i].id = manager.config().quickTags[i].id;
        }
        return expected;
    }

    std::unique_ptr<QTemporaryDir> m_home;
    Directories m_directories;
};

QTEST_GUILESS_MAIN(ConfigManagerTest)
#include "ConfigManagerTest.moc"

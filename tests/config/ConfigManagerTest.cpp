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
    void init();
    void firstRun_writesTheDefaults();
    void save_load_keepsEverySetting();
    void missingKeys_takeTheirDefaults_data();
    void missingKeys_takeTheirDefaults();
    void oldPanelSize_isMigratedOnlyWhenExact_data();
    void oldPanelSize_isMigratedOnlyWhenExact();
    void badFile_yieldsDefaultsAndStays_data();
    void badFile_yieldsDefaultsAndStays();
    void badFile_isKeptWhenOverwritten();
    void unreadableFile_yieldsDefaults_data();
    void unreadableFile_yieldsDefaults();
    void save_failure_printsAndKeepsMemory();
    void foreignShapes_areRead();
    void defaults_areMadeAnew();
    void vaultGuess_takesTheFirstThatExists();
    void setConfig_notifiesOncePerChange();
    void getSaveDirectory_byNoteType_data();
    void getSaveDirectory_byNoteType();
    void getSaveDirectory_vaultNotAbsolute_isNowhere_data();
    void getSaveDirectory_vaultNotAbsolute_isNowhere();
    void palettes_areStoredByName();

private:
    QString configPath() const { return m_directories.ownFolder() + QStringLiteral("/config.json"); }
    QJsonObject stored() const { return QJsonDocument::fromJson(readTestFile(configPath())).object(); }

    std::unique_ptr<QTemporaryDir> m_home;
    Directories m_directories;
};

void ConfigManagerTest::init()
{
    m_home = std::make_unique<QTemporaryDir>();
    m_directories = {
        .home = m_home->path(), .applicationSupport = m_home->filePath(QStringLiteral("conf")), .cache = {}};
}

void ConfigManagerTest::firstRun_writesTheDefaults()
{
    QVERIFY(QDir().mkpath(m_home->filePath(QStringLiteral("Vault"))));
    const ConfigManager manager(m_directories);
    QCOMPARE(manager.configURL(), configPath());
    const QString text = QString::fromUtf8(readTestFile(configPath()));
    const QStringList lines = text.split(u'\n');
    QCOMPARE(lines[1], QStringLiteral("  \"checkin_end_time\": \"18:00\","));
    QCOMPARE(lines[lines.size() - 3], QStringLiteral("  \"window_opacity\": 0.95"));
    QVERIFY(text.contains(QStringLiteral("\\/Vault\"")));
    QCOMPARE(stored().size(), 20);

    const AppConfig& config = manager.config();
    QCOMPARE(config.vaultPath, m_home->filePath(QStringLiteral("Vault")));
    QCOMPARE(config.panelWidth, 440.0);
    QCOMPARE(config.panelHeight, 560.0);
    QVERIFY(!config.hasCompletedSetup);
    QVERIFY(config.playSoundOnSave && config.pomodoroEnabled && config.coachEnabled && config.dailyReviewEnabled);
    QCOMPARE(config.noteTypes.keys(), QStringLiteral("Fleeting,Idea,Task").split(u','));
    QCOMPARE(config.noteTypes[QStringLiteral("Task")].prefix, QStringLiteral("TODO "));
    QCOMPARE(config.noteTypes[QStringLiteral("Idea")].prefix, QStringLiteral(u"\U0001F4A1 "));
    QStringList tags;
    for (const QuickTag& tag : config.quickTags) {
        QVERIFY(!tag.isDefault);
        tags.append(tag.icon + tag.appendText);
    }
    QCOMPARE(tags, QStringLiteral(u"\U0001F525#priority/high,\U0001F4CC#status/pinned,\U0001F4A1#type/idea,"
                                  u"\u2705#type/task")
                       .split(u','));
}

void ConfigManagerTest::save_load_keepsEverySetting()
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
        config.noteTypes = {{QStringLiteral("N"), {QStringLiteral("s"), {QStringLiteral("t")}, QStringLiteral("p\n")}}};
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
    const ConfigManager again(m_directories);
    QVERIFY(again.config() == manager.config());
    const QJsonObject tag = stored()[u"quick_tags"].toArray()[0].toObject();
    QCOMPARE(tag.keys(), QStringLiteral("appendText,icon,id,isDefault").split(u','));
    QCOMPARE(tag[u"id"].toString(), manager.config().quickTags[0].id.toString(QUuid::WithoutBraces).toUpper());
}

void ConfigManagerTest::missingKeys_takeTheirDefaults_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::newRow("one key") << QByteArray(R"({"save_subfolder": "Mine"})");
    QTest::newRow("null") << QByteArray(R"({"save_subfolder": "Mine", "quick_tags": null, "panel_width": null,
        "note_types": null, "color_palette": null, "pomodoro_interval_minutes": null, "window_opacity": null})");
    QTest::newRow("unknown key") << QByteArray(R"({"save_subfolder": "Mine", "from_the_future": {"x": []}})");
}

void ConfigManagerTest::missingKeys_takeTheirDefaults()
{
    QFETCH(const QByteArray, file);
    writeTestFile(configPath(), file);
    const ConfigManager manager(m_directories);
    AppConfig expected = AppConfig::makeDefault(m_directories);
    expected.saveSubfolder = QStringLiteral("Mine");
    expected.quickTags = manager.config().quickTags;
    QVERIFY(manager.config() == expected);
    QCOMPARE(expected.quickTags.size(), 4);
    // The panel's size was the old one, so the file has been written anew.
    QCOMPARE(stored().size(), 20);
    QCOMPARE(stored()[u"panel_width"].toDouble(), 440.0);
}

void ConfigManagerTest::oldPanelSize_isMigratedOnlyWhenExact_data()
{
    QTest::addColumn<QByteArray>("size");
    QTest::addColumn<QSizeF>("loaded");
    QTest::newRow("old") << QByteArray(R"("panel_width": 380, "panel_height": 480)") << QSizeF(440, 560);
    QTest::newRow("old, with fractions") << QByteArray(R"("panel_width": 380.0, "panel_height": 480.0)")
                                         << QSizeF(440, 560);
    QTest::newRow("old, width missing") << QByteArray(R"("panel_height": 480)") << QSizeF(440, 560);
    QTest::newRow("wider") << QByteArray(R"("panel_width": 381, "panel_height": 480)") << QSizeF(381, 480);
    QTest::newRow("higher") << QByteArray(R"("panel_width": 380, "panel_height": 480.1)") << QSizeF(380, 480.1);
    QTest::newRow("height missing") << QByteArray(R"("panel_width": 500)") << QSizeF(500, 480);
}

void ConfigManagerTest::oldPanelSize_isMigratedOnlyWhenExact()
{
    QFETCH(const QByteArray, size);
    QFETCH(const QSizeF, loaded);
    const QByteArray file = '{' + size + '}';
    writeTestFile(configPath(), file);
    const ConfigManager manager(m_directories);
    QCOMPARE(QSizeF(manager.config().panelWidth, manager.config().panelHeight), loaded);
    const bool isMigrated = loaded == QSizeF(440, 560);
    QCOMPARE(readTestFile(configPath()) == file, !isMigrated);
}

void ConfigManagerTest::badFile_yieldsDefaultsAndStays_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("hint");
    const auto row = [](const char* name, const char* file, const char* hint) {
        QTest::newRow(name) << QByteArray(file) << QString::fromLatin1(hint);
    };
    row("empty", "", "not valid JSON");
    row("cut off", R"({"vault_path": "/v", "save_sub)", "not valid JSON");
    row("list", "[1]", "not an object");
    row("palette", R"({"color_palette": "pink"})", "\"color_palette\"");
    row("palette of another type", R"({"color_palette": 1})", "\"color_palette\"");
    row("interval a string", R"({"pomodoro_interval_minutes": "20"})", "\"pomodoro_interval_minutes\"");
    row("interval a fraction", R"({"pomodoro_interval_minutes": 20.5})", "\"pomodoro_interval_minutes\"");
    row("switch a number", R"({"coach_enabled": 1})", "\"coach_enabled\"");
    row("opacity a string", R"({"window_opacity": "1"})", "\"window_opacity\"");
    row("tags a string", R"({"default_tags": "a, b"})", "\"default_tags\"");
    row("time of another type", R"({"daily_review_times": ["19:00", 20]})", "\"daily_review_times\"");
    row("note type without prefix", R"({"note_types": {"A": {"subfolder": "x", "tags": []}}})",
        "\"note_types.A.prefix\"");
    row("note type null", R"({"note_types": {"A": null}})", "\"note_types.A\"");
    row("quick tag without icon",
        R"({"quick_tags": [{"id": "E621E1F8-C36C-495A-93FC-0C247A3E6E5F", "appendText": ""}]})",
        "\"quick_tags.0.icon\"");
    row("quick tag with a bad id", R"({"quick_tags": [{"id": "E621E1F8", "icon": "", "appendText": ""}]})",
        "\"quick_tags.0.id\" is not a UUID");
    row("quick tag with braces",
        R"({"quick_tags": [{"id": "{E621E1F8-C36C-495A-93FC-0C247A3E6E5F}", "icon": "", "appendText": ""}]})",
        "\"quick_tags.0.id\" is not a UUID");
    row("quick tag a string", R"({"quick_tags": ["#x"]})", "\"quick_tags.0\" is not an object");
}

void ConfigManagerTest::badFile_yieldsDefaultsAndStays()
{
    QFETCH(const QByteArray, file);
    QFETCH(const QString, hint);
    writeTestFile(configPath(), file);
    QStringList lines;
    std::optional<ConfigManager> manager;
    {
        OutputCapture output;
        manager.emplace(m_directories);
        lines = output.lines();
    }
    QCOMPARE(lines.size(), 1);
    QVERIFY2(lines[0].startsWith(QStringLiteral("Failed to load config: ")) && lines[0].contains(hint),
             qPrintable(lines[0]));
    AppConfig expected = AppConfig::makeDefault(m_directories);
    expected.quickTags = manager->config().quickTags;
    QVERIFY(manager->config() == expected);
    QCOMPARE(readTestFile(configPath()), file);
}

void ConfigManagerTest::badFile_isKeptWhenOverwritten()
{
    const QByteArray file = "{ \"vault_path\": \"/years/of/settings\", }";
    writeTestFile(configPath(), file);
    {
        const OutputCapture output;
        ConfigManager manager(m_directories);
        manager.save();
        manager.save();
    }
    QCOMPARE(stored().size(), 20);
    QCOMPARE(readTestFile(configPath() + QStringLiteral(".unreadable")), file);
}

void ConfigManagerTest::unreadableFile_yieldsDefaults_data()
{
    QTest::addColumn<QString>("target");
    QTest::newRow("folder in its place") << QString();
    QTest::newRow("link to nothing") << QStringLiteral("/nonexistent/config.json");
}

void ConfigManagerTest::unreadableFile_yieldsDefaults()
{
    QFETCH(const QString, target);
    if (target.isEmpty()) {
        QVERIFY(QDir().mkpath(configPath()));
    } else {
        makeTestLink(target, configPath());
    }
    OutputCapture output;
    ConfigManager manager(m_directories);
    manager.save();
    QCOMPARE(output.lines().size(), 2);
    QVERIFY(output.lines()[0].startsWith(QStringLiteral("Failed to load config: ")));
    QVERIFY(output.lines()[1].startsWith(QStringLiteral("Failed to save config: ")));
    QCOMPARE(manager.config().saveSubfolder, QStringLiteral("Inbox"));
}

void ConfigManagerTest::save_failure_printsAndKeepsMemory()
{
    writeTestFile(m_home->filePath(QStringLiteral("conf")), "a file where the folder should be");
    OutputCapture output;
    ConfigManager manager(m_directories);
    manager.update([](AppConfig& config) { config.saveSubfolder = QStringLiteral("Mine"); });
    manager.save();
    QCOMPARE(output.lines().last(), QStringLiteral("Failed to save config: Not a directory"));
    QCOMPARE(manager.config().saveSubfolder, QStringLiteral("Mine"));
}

void ConfigManagerTest::foreignShapes_areRead()
{
    writeTestFile(configPath(), R"({"pomodoro_interval_minutes": 25.0, "vault_path": "\/a/b", "note_types": {},
        "quick_tags": [{"id": "e621e1f8-c36c-495a-93fc-0c247a3e6e5f", "icon": "", "appendText": "#x"},
                       {"id": "00000000-0000-0000-0000-000000000000", "icon": "y", "appendText": "", "isDefault": null}]})");
    const ConfigManager manager(m_directories);
    QCOMPARE(manager.config().pomodoroIntervalMinutes, qint64(25));
    QCOMPARE(manager.config().vaultPath, QStringLiteral("/a/b"));
    QVERIFY(manager.config().noteTypes.isEmpty());
    QCOMPARE(manager.config().quickTags.size(), 2);
    QVERIFY(!manager.config().quickTags[0].isDefault);
}

void ConfigManagerTest::defaults_areMadeAnew()
{
    const AppConfig first = AppConfig::makeDefault(m_directories);
    const AppConfig second = AppConfig::makeDefault(m_directories);
    QSet<QUuid> ids;
    for (const QuickTag& tag : first.quickTags + second.quickTags) {
        ids.insert(tag.id);
    }
    QCOMPARE(ids.size(), 8);
}

void ConfigManagerTest::vaultGuess_takesTheFirstThatExists()
{
    const auto guess = [this] { return AppConfig::makeDefault(m_directories).vaultPath.mid(m_home->path().size()); };
    QCOMPARE(guess(), QStringLiteral("/Documents"));
    // From the last candidate to the first: each outdoes the one before. A file counts too.
    for (const char* name : {"/Notes", "/Vault", "/Obsidian", "/Documents/Obsidian Vault", "/Documents/Obsidian"}) {
        const QString candidate = QString::fromLatin1(name);
        writeTestFile(m_home->path() + candidate, "");
        QCOMPARE(guess(), candidate);
    }
}

void ConfigManagerTest::setConfig_notifiesOncePerChange()
{
    ConfigManager manager(m_directories);
    QSignalSpy changed(&manager, &ConfigManager::configChanged);
    const QByteArray before = readTestFile(configPath());
    manager.update([](AppConfig& config) {
        config.saveSubfolder = QStringLiteral("A");
        config.windowOpacity = 0.5;
    });
    QCOMPARE(changed.count(), 1);
    manager.update([](AppConfig& config) { config.windowOpacity = 0.5; });
    QCOMPARE(changed.count(), 1);
    QCOMPARE(readTestFile(configPath()), before);
    manager.load();
    QCOMPARE(changed.count(), 2);
    QCOMPARE(manager.config().saveSubfolder, QStringLiteral("Inbox"));
}

void ConfigManagerTest::getSaveDirectory_byNoteType_data()
{
    QTest::addColumn<QString>("noteType");
    QTest::addColumn<QString>("subfolder");
    QTest::addColumn<QString>("expected");
    QTest::newRow("configured") << QStringLiteral("Task") << QStringLiteral("Mine") << QStringLiteral("/V/Inbox");
    QTest::newRow("not configured") << QStringLiteral("Other") << QStringLiteral("Mine/x")
                                    << QStringLiteral("/V/Mine/x");
    QTest::newRow("name in another case")
        << QStringLiteral("task") << QStringLiteral("Mine") << QStringLiteral("/V/Mine");
    QTest::newRow("parent") << QStringLiteral("Other") << QStringLiteral("../x") << QStringLiteral("/V/Inbox");
}

void ConfigManagerTest::getSaveDirectory_byNoteType()
{
    QFETCH(const QString, noteType);
    QFETCH(const QString, subfolder);
    QFETCH(const QString, expected);
    ConfigManager manager(m_directories);
    manager.update([&](AppConfig& config) {
        config.vaultPath = QStringLiteral("/V/x/..");
        config.saveSubfolder = subfolder;
    });
    QCOMPARE(manager.getSaveDirectory(noteType), expected);
}

void ConfigManagerTest::getSaveDirectory_vaultNotAbsolute_isNowhere_data()
{
    QTest::addColumn<QString>("vault");
    QTest::newRow("empty") << QString();
    QTest::newRow("relative") << QStringLiteral("Vault");
    QTest::newRow("home") << QStringLiteral("~/Vault");
    QTest::newRow("blank") << QStringLiteral(" /Vault");
    QTest::newRow("resource") << QStringLiteral(":/Vault");
}

void ConfigManagerTest::getSaveDirectory_vaultNotAbsolute_isNowhere()
{
    QFETCH(const QString, vault);
    ConfigManager manager(m_directories);
    manager.update([&](AppConfig& config) { config.vaultPath = vault; });
    QCOMPARE(manager.getSaveDirectory(QStringLiteral("Fleeting")), QString());
}

void ConfigManagerTest::palettes_areStoredByName()
{
    QStringList names;
    for (const ColorPalette palette : allColorPalettes()) {
        names.append(rawValue(palette));
        QCOMPARE(colorPaletteFromRawValue(names.last()), palette);
    }
    QCOMPARE(
        names,
        QStringLiteral("obsidian_native,calm_productivity,forest_focus,midnight_clarity,warm_minimal").split(u','));
    QVERIFY(!colorPaletteFromRawValue(QStringLiteral("Obsidian_native")));
    QVERIFY(background(ColorPalette::calmProductivity) == (Rgb{1, 1, 1}));
}

QTEST_GUILESS_MAIN(ConfigManagerTest)
#include "ConfigManagerTest.moc"

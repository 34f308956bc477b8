// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <config/ConfigManager.h>
#include <config/VaultDiscovery.h>
#include <support/OutputCapture.h>
#include <support/TestFiles.h>

#include <QJsonArray>
#include <QJsonDocument>

using namespace flitmark;

class ConfigTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_home = std::make_unique<QTemporaryDir>();
        m_directories = {.home = m_home->path(), .applicationSupport = m_home->filePath("conf"), .cache = {}};
    }
    void save_load_keepsExtremes()
    {
        ConfigManager manager(m_directories);
        manager.update([](AppConfig& config) {
            config.vaultPath = "/v\u00e4/\"q\"/\U0001F4A1";
            config.defaultTags = {"x", QString()};
            config.windowMode = "any string";
            config.windowOpacity = 0.1 + 0.2;
            config.noteTypes = {{"N", {"s", {"t"}, "p\n"}}};
            config.quickTags = {{QUuid::createUuid(), "i", "a", true}};
            config.pomodoroIntervalMinutes = std::numeric_limits<qint64>::max();
        });
        manager.save();
        QVERIFY(ConfigManager(m_directories).config() == manager.config());
        const QString id = manager.config().quickTags[0].id.toString(QUuid::WithoutBraces).toUpper();
        QCOMPARE(stored()[u"quick_tags"][0][u"id"].toString(), id);
        for (const ColorPalette palette : allColorPalettes()) {
            QCOMPARE(colorPaletteFromRawValue(rawValue(palette)), palette);
        }
    }
    void missingKeys_takeTheirDefaults()
    {
        const QByteArray keys =
            "quick_tags,panel_width,note_types,color_palette,pomodoro_interval_minutes,window_opacity";
        for (const QByteArray& rest : {QByteArray(), ",\"" + QByteArray(keys).replace(",", "\":null,\"") + "\":null",
                                       QByteArray(R"(, "from_the_future": {"x": []})")}) {
            writeTestFile(configPath(), R"({"save_subfolder": "Mine")" + rest + '}');
            const ConfigManager manager(m_directories);
            QVERIFY2(manager.config() == defaultsBut("Mine", manager), rest.constData());
            // The panel's size was the old one, so the file has been written anew.
            QCOMPARE(stored().size(), 20);
        }
    }
    void oldPanelSize_isMigratedOnlyWhenExact()
    {
        for (const auto& [size, loaded] : {
                 std::pair<QByteArray, QSizeF>(R"({"panel_width": 380, "panel_height": 480.0})", {440, 560}),
                 {R"({"panel_height": 480})", {440, 560}},
                 {R"({"panel_width": 381, "panel_height": 480})", {381, 480}},
                 {R"({"panel_width": 380, "panel_height": 480.1})", {380, 480.1}},
             }) {
            writeTestFile(configPath(), size);
            const ConfigManager manager(m_directories);
            QCOMPARE(QSizeF(manager.config().panelWidth, manager.config().panelHeight), loaded);
            QCOMPARE(readTestFile(configPath()) == size, loaded != QSizeF(440, 560));
        }
    }
    void badFile_yieldsDefaultsAndIsKept()
    {
        for (const auto& [bytes, hint] : {
                 std::pair("", "empty"),
                 {R"({"window_opacity": .5})", "not valid JSON"},
                 {R"({"save_subfolder": "\x"})", "not valid JSON"},
                 {R"({"vault_path": "/years/of/settings", "save_sub")", "not valid JSON"},
                 {"[1]", "not an object"},
                 {R"({"color_palette": "pink"})", "\"color_palette\""},
                 {R"({"pomodoro_interval_minutes": 20.5})", "\"pomodoro_interval_minutes\""},
                 {R"({"coach_enabled": 1})", "\"coach_enabled\""},
                 {R"({"window_opacity": "1"})", "\"window_opacity\""},
                 {R"({"daily_review_times": ["19:00", 20]})", "\"daily_review_times\""},
                 {R"({"note_types": {"A": {"subfolder": "x", "tags": []}}})", "\"note_types.A.prefix\""},
                 {R"({"note_types": {"A": null}})", "\"note_types.A\""},
                 {R"({"quick_tags": [{"id": "{E621E1F8-C36C-495A-93FC-0C247A3E6E5F}", "icon": "", "appendText": ""}]})",
                  "\"quick_tags.0.id\" is not a UUID"},
                 {R"({"quick_tags": ["x"]})", "\"quick_tags.0\" is not an object"},
             }) {
            const QByteArray file(bytes);
            writeTestFile(configPath(), file);
            OutputCapture output;
            ConfigManager manager(m_directories);
            const QString line = output.lines().join(u'|');
            QVERIFY2(line.startsWith("Failed to load config: "), bytes);
            QVERIFY2(line.contains(hint), qPrintable(line));
            QVERIFY(manager.config() == defaultsBut("Inbox", manager));
            QCOMPARE(readTestFile(configPath()), file);
            manager.save();
            manager.save();
            QCOMPARE(stored().size(), 20);
            QCOMPARE(readTestFile(configPath() + ".unreadable"), file);
        }
    }
    void foreignShapes_areRead()
    {
        writeTestFile(configPath(), R"({"pomodoro_interval_minutes": 25.0, "vault_path": "\/a\/b", "quick_tags": [
            {"id": "e621e1f8-c36c-495a-93fc-0c247a3e6e5f", "icon": "", "appendText": "", "isDefault": null}]})");
        const AppConfig config = ConfigManager(m_directories).config();
        QVERIFY(config.pomodoroIntervalMinutes == 25 && config.vaultPath == "/a/b");
        QVERIFY(config.quickTags.size() == 1 && !config.quickTags[0].isDefault);
    }
    void vaultGuess_takesTheFirstThatExists()
    {
        // From the last candidate to the first: each outdoes the one before. A file counts too.
        for (const char* name : {"/Notes", "/Vault", "/Obsidian", "/Documents/Obsidian Vault", "/Documents/Obsidian"}) {
            const QString candidate = m_home->path() + name;
            writeTestFile(candidate, "");
            QCOMPARE(AppConfig::makeDefault(m_directories).vaultPath, candidate);
        }
    }
    void getSaveDirectory()
    {
        ConfigManager manager(m_directories);
        manager.update([](AppConfig& config) {
            config.vaultPath = "/V/x/..";
            config.saveSubfolder = "Mine/x";
        });
        QCOMPARE(manager.getSaveDirectory("Task"), "/V/Inbox");
        OutputCapture output;
        QCOMPARE(manager.getSaveDirectory("Other"), "/V/Mine/x");
        QCOMPARE(output.lines(), QStringList());
        manager.update([this](AppConfig& config) {
            config.vaultPath = m_home->path();
            config.saveSubfolder = QString(256, u'x');
        });
        QCOMPARE(manager.getSaveDirectory("Other"), m_home->path() + "/Inbox");
        QVERIFY(output.lines().join(u'|').endsWith("notes go to \"Inbox\": File name too long"));
        for (const char* noVault : {"", "Vault", "~/Vault", ":/Vault"}) {
            manager.update([noVault](AppConfig& config) { config.vaultPath = noVault; });
            QCOMPARE(manager.getSaveDirectory("Task"), QString());
        }
    }

    void vaults_areReadAndSorted()
    {
        QVERIFY(!detect());
        for (const auto& [list, names] : {
                 std::pair(R"({"1": {"path": "/u/Notes", "ts": 1, "open": true}, "2": {"path": "/u/A"}})", "A|Notes"),
                 {"{}", ""},
                 {R"({"1": {"path": "/archive"}, "2": {"path": "/Zettel"}})", "Zettel|archive"},
                 // By code point, not by UTF-16 unit.
                 {"{\"1\": {\"path\": \"/\U0001F4A1\"}, \"2\": {\"path\": \"/\uFF5E\"}}", "\uFF5E|\U0001F4A1"},
                 {R"({"1": 1, "2": null, "3": {}, "4": {"path": 7}, "5": ["path"]})", ""},
                 {R"({"1": {"path": "/u/A/"}, "2": {"path": "/u/A"}})", "A|A"},
                 {R"([{"path": "/u"}])", "no list"},
                 {R"({"1": {"path": "/u")", "no list"},
                 {"{\"1\": {\"path\": \"/a\nb\"}}", "no list"},
             }) {
            writeList("xdg", QByteArray("{\"x\": 1, \"vaults\": ") + list + '}');
            QStringList found;
            const auto vaults = detect();
            for (const DetectedVault& vault : vaults.value_or(QList<DetectedVault>())) {
                found.append(vault.name);
            }
            QCOMPARE(vaults ? found.join(u'|') : "no list", names);
        }
    }
    void vaults_comeFromTheFirstPlaceThatHasSome()
    {
        // From the last place to the first: each outdoes the one before.
        for (const char* place : {"snap/obsidian/common/.config", "snap/obsidian/current/.config",
                                  ".var/app/md.obsidian.Obsidian/config", "xdg", "Library/Application Support"}) {
            writeList(place, R"({"vaults": {"1": {"path": ")" + QByteArray(place) + R"("}}})");
            QCOMPARE(detect().value().at(0).path, place);
        }
        // What another way of installing Obsidian has left behind hides nothing.
        for (const char* leftOver : {"oops", "{}", R"({"vaults": {}})", R"({"vaults": {"1": {"path": 7}}})"}) {
            writeList("Library/Application Support", leftOver);
            QCOMPARE(detect().value().at(0).path, "xdg");
        }
    }

private:
    std::optional<QList<DetectedVault>> detect() const
    {
        return detectObsidianVaults(m_home->path(), m_home->filePath("xdg"));
    }
    void writeList(const char* place, const QByteArray& bytes) const
    {
        writeTestFile(m_home->filePath(QString::fromUtf8(place) + "/obsidian/obsidian.json"), bytes);
    }

    QString configPath() const { return m_directories.ownFolder() + "/config.json"; }
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

QTEST_GUILESS_MAIN(ConfigTest)
#include "ConfigTest.moc"

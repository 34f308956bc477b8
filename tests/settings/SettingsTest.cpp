// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <settings/CoachPreset.h>
#include <settings/HelpServices.h>
#include <settings/SettingsWindow.h>
#include <support/Accessible.h>
#include <ui/ComboBox.h>
#include <ui/Slider.h>
#include <ui/TextArea.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalSpy>

#include "SettingsStage.h"

using namespace flitmark;

class SettingsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        motion::set(motion::Setting::Never);
        m_stage = std::make_unique<SettingsStage>();
        m_stage->config.update([](AppConfig& config) { config.windowMode = QStringLiteral("made up"); });
        m_stage->changeCoach([](CoachConfig& coach) { coach.misalignmentThreshold = 7; }); // not among the controls
        open();
    }
    void cleanup()
    {
        m_window.reset();
        m_stage.reset();
        QApplication::setFont(m_font);
    }

    void everyControl_reachesItsFieldOnDone()
    {
        AppConfig config = m_stage->settings();
        CoachConfig coach = m_stage->coach();
        click("Vault");
        type("Obsidian Vault Path", "/no/such");
        QVERIFY(shows("There is no folder at this path."));
        m_dialogs.answer = m_stage->folder.path();
        click("Browse");
        type("Default Save Subfolder", "Ideas");
        click("Notes");
        for (const char* mode : {"Normal", "Desktop (behind windows)", "Floating (always on top)"}) {
            QVERIFY2(!named<QRadioButton>(*m_window, QString::fromUtf8(mode))->isChecked(), "an unknown mode");
        }
        click("Play sound on save");
        type("Default Tags (comma-separated)", "a, \t, b c ,,d\t");
        named<Slider>(*m_window, QStringLiteral("Window Opacity"))->setFocus();
        press(Qt::Key_Left);
        click("Appearance");
        click("Forest Focus");
        click("Pomodoro");
        click("Enable Pomodoro Timer");
        click("Enable Productivity Coach");
        auto* interval = named<Slider>(*m_window, QStringLiteral("Check-in Interval"));
        QTest::mouseClick(interval, Qt::LeftButton, {}, QPoint(interval->width() - 1, 10));
        type("Start Time", "8.00");
        QVERIFY(shows("Start Time is not a 24-hour time such as 07:30."));
        type("End Time", "20:00");
        click("Hybrid");
        named<ComboBox>(*m_window, QStringLiteral("Coach Style"))->setCurrentIndex(1);
        click("Use this style's prompt");
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Hm. "));

        click("Remind me to review my daily note");
        click("Remove time 2");
        click("Add Time");
        type("Reminder time 2", " \t");
        type("Reminder time 3", " 21:30\t");
        QVERIFY(m_stage->settings() == config && m_stage->coach() == coach);

        QTest::keyClick(named<TextArea>(*m_window, QStringLiteral("Coach Prompt")), Qt::Key_Return,
                        Qt::ControlModifier);
        config.vaultPath = m_stage->folder.path();
        config.saveSubfolder = QStringLiteral("Ideas");
        config.playSoundOnSave = false;
        config.defaultTags = listOf("a,b c,d");
        config.windowOpacity = 0.9;
        config.colorPalette = ColorPalette::forestFocus;
        config.pomodoroEnabled = config.coachEnabled = config.dailyReviewEnabled = false;
        config.pomodoroIntervalMinutes = coach.pomodoroIntervalMinutes = 60;
        config.checkinStartTime = coach.checkinStartTime = QStringLiteral("8.00");
        config.checkinEndTime = coach.checkinEndTime = QStringLiteral("20:00");
        config.detectionMode = coach.detectionMode = QStringLiteral("hybrid");
        config.dailyReviewTimes = listOf("19:00,21:30");
        coach.coachStyle = QStringLiteral("tough");
        coach.coachPrompt = QStringLiteral("Hm. ") + coachPresets().at(1).prompt;
        QVERIFY(m_stage->settings() == config && ConfigManager(m_stage->directories).config() == config);
        m_stage->signalManager.loadConfig();
        QVERIFY(m_stage->coach() == coach);
    }

    void app_switchSpringsBackWhereItFails()
    {
        auto* login = named<QCheckBox>(*m_window, QStringLiteral("Start Flitmark at login"));
        const QString inTheWay = m_stage->folder.filePath(QStringLiteral("autostart"));
        writeTestFile(inTheWay, "");
        QTest::mouseClick(login->parentWidget(), Qt::LeftButton);
        QVERIFY(!login->isChecked() && shows("Not a directory"));
        QVERIFY(QFile::remove(inTheWay));
        QTest::keyClick(login, Qt::Key_Space);
        QVERIFY(login->isChecked() && shows("Status: Enabled") && !shows("Not a directory"));
    }

    void quickTags_areEditedInTheirRows()
    {
        const auto tags = [this] { return m_stage->settings().quickTags; };
        click("Quick Tags");
        auto* second = named<QWidget>(*m_window, QStringLiteral("#status/pinned"));
        QCOMPARE(QAccessible::queryAccessibleInterface(second)->role(), QAccessible::Grouping);
        flitmark::click(*second, QStringLiteral("Set as default"));
        QVERIFY(tags()[1].isDefault && shows("Default"));
        flitmark::click(*second, QStringLiteral("Edit"));
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("-now"));
        press(Qt::Key_Escape);
        QVERIFY(m_window->isVisible() && spoken(QApplication::focusWidget()) == QStringLiteral("Edit"));
        QVERIFY(shows("#status/pinned-now"));
    }

    void nothingIsCut()
    {
        m_stage->config.update([](AppConfig& config) {
            config.vaultPath = QStringLiteral("/long").repeated(300);
            config.quickTags[0].appendText = QStringLiteral("#long").repeated(300);
            config.dailyReviewTimes = QStringList(40, QStringLiteral("x"));
        });
        for (const double points : {10.0, 16.5}) {
            QFont font = m_font;
            font.setPointSizeF(points);
            QApplication::setFont(font);
            open();
            for (const char* tab : {"App", "Quick Tags", "Vault", "Notes", "Appearance", "Pomodoro", "Shortcuts"}) {
                click(tab);
                QCOMPARE(cutOff(*m_window), QStringList());
            }
        }
    }

    void load_fillsGaps()
    {
        for (const auto& [style, prompt, shownStyle, shownPrompt] : {
                 std::tuple("stoic", "mine", "stoic", QStringLiteral("mine")),
                 {"stoic", "", "stoic", coachPresets().at(3).prompt},
                 {"drill", "mine", "custom", QStringLiteral("mine")},
                 {"drill", "", "custom", QString()},
             }) {
            SettingsStage stage;
            stage.config.update([](AppConfig& config) { config.dailyReviewTimes.clear(); });
            stage.changeCoach([&style = style, &prompt = prompt](CoachConfig& coach) {
                coach.coachStyle = QString::fromLatin1(style);
                coach.coachPrompt = QString::fromLatin1(prompt);
            });
            stage.model.loadSettings();
            QCOMPARE(stage.model.state().coachStyle, QString::fromLatin1(shownStyle));
            QCOMPARE(stage.model.state().coachPrompt, shownPrompt);
            QCOMPARE(stage.model.state().dailyReviewTimes, (listOf("19:00,21:00,23:00")));
            QVERIFY(stage.settings().dailyReviewTimes.isEmpty());
        }
    }

    void timers_followTheSwitches()
    {
        for (const auto& [pomodoro, coach] : {std::pair(false, true), {true, false}, {true, true}}) {
            SettingsStage stage;
            stage.model.loadSettings();
            stage.model.set(&SettingsState::pomodoroEnabled, pomodoro);
            stage.model.set(&SettingsState::coachEnabled, coach);
            QSignalSpy rings(&stage.notifications, &NotificationCenter::pomodoroTimerUpdated);
            stage.controller.startPomodoroTimer();
            stage.model.saveSettings();
            QCOMPARE(stage.controller.isRunning(), pomodoro && coach);
            // A ring left over from the stopped timer goes.
            QCOMPARE(rings.count(), pomodoro && coach ? 0 : 1);
        }
    }

    void quickTags_areStoredAtOnce()
    {
        SettingsStage& stage = *m_stage;
        stage.model.loadSettings();
        QuickTagEditor& editor = stage.model.quickTagEditor();
        const auto stored = [&stage] { return ConfigManager(stage.directories).config().quickTags; };
        const QUuid first = stored().at(0).id;
        const TextBinding text = editor.editingTextBinding(first);
        text.setText(QString());
        QVERIFY(stored().at(0).appendText.isEmpty());
        editor.deleteTag(first);
        // What still hangs on a tag that is gone does nothing.
        text.setText(QStringLiteral("late"));
        editor.toggleDefault(first);
        QVERIFY(text.text().isEmpty() && stored() == editor.quickTags() && stored().size() == 3);
        for (const auto& [icon, appended, count] : {std::tuple("🎧", "", 3), {"", "#x", 3}, {" ", " ", 4}}) {
            editor.setNewTagIcon(QString::fromUtf8(icon));
            editor.setNewTagText(QString::fromUtf8(appended));
            editor.addNewTag();
            QCOMPARE(stored().size(), count);
        }
    }

    void times_areReadAsTheClockReadsThem()
    {
        for (const char* time : {"00:00", "7:30", "07:30", "23:59"}) {
            QVERIFY2(SettingsModel::isTimeOfDay(QString::fromLatin1(time)), time);
        }
        for (const char* time : {"", "24:00", "12:60", "0730", "07:30:00", " 07:30", "7.30", "7:5", "half past"}) {
            QVERIFY2(!SettingsModel::isTimeOfDay(QString::fromLatin1(time)), time);
        }
        SettingsStage& stage = *m_stage;
        stage.model.loadSettings();
        QVERIFY(stage.model.checkinWindowProblem().isEmpty() && stage.model.dailyReviewTimesProblem().isEmpty());
        stage.model.set(&SettingsState::checkinStartTime, QStringLiteral("19:00"));
        QVERIFY(stage.model.checkinWindowProblem().contains(QStringLiteral("no check-in will appear")));
        stage.model.set(&SettingsState::checkinEndTime, QStringLiteral("7.30"));
        QVERIFY(stage.model.checkinWindowProblem().startsWith(QStringLiteral("End Time")));
        stage.model.setDailyReviewTime(0, QStringLiteral("24:00"));
        QVERIFY(stage.model.dailyReviewTimesProblem().contains(QStringLiteral("“24:00”")));
        for (int i = 0; i < 5; ++i) {
            stage.model.removeDailyReviewTime(0);
        }
        QCOMPARE(stage.model.state().dailyReviewTimes.size(), 1); // one is always left
    }

    void presetPrompt_isOfferedWhereItDiffers()
    {
        SettingsStage& stage = *m_stage;
        stage.model.loadSettings();
        QVERIFY(!stage.model.offersPresetPrompt());
        stage.model.set(&SettingsState::coachStyle, QStringLiteral("stoic"));
        QVERIFY(stage.model.offersPresetPrompt());
        // Users' own prompts are never replaced by nothing.
        stage.model.set(&SettingsState::coachStyle, QString(customCoachStyle));
        stage.model.usePresetPrompt();
        QVERIFY(!stage.model.offersPresetPrompt() && !stage.model.state().coachPrompt.isEmpty());
    }

private:
    void open()
    {
        SettingsStage& s = *m_stage;
        const SettingsModel::Services services{s.config,           s.signalManager,    s.controller,
                                               s.loginItemManager, s.updateController, s.notifications};
        m_window = std::make_unique<SettingsWindow>(services, m_dialogs,
                                                    HelpServices{s.directories, m_keyMonitor, s.workspace});
        m_window->showCentered();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }
    void click(const char* name) { flitmark::click(*m_window, QString::fromUtf8(name)); }
    void type(const char* name, const char* text)
    {
        auto* field = named<QLineEdit>(*m_window, QString::fromUtf8(name));
        flitmark::type(field, {});
        field->insert(QString::fromUtf8(text));
    }
    bool shows(const char* text) { return visibleTexts(*m_window).contains(QString::fromUtf8(text)); }

    const QFont m_font = QApplication::font();
    FakeDialogs m_dialogs;
    FakeKeyMonitor m_keyMonitor;
    std::unique_ptr<SettingsStage> m_stage;
    std::unique_ptr<SettingsWindow> m_window;
};

QTEST_MAIN(SettingsTest)
#include "SettingsTest.moc"

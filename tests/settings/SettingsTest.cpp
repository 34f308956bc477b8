// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <settings/CoachPreset.h>
#include <settings/SettingsWindow.h>
#include <support/Accessible.h>
#include <support/Desktop.h>
#include <ui/ComboBox.h>
#include <ui/Slider.h>
#include <ui/TextArea.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalSpy>

using namespace flitmark;

class SettingsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        motion::set(motion::Setting::Never);
        m_desktop = std::make_unique<Desktop>([](AppConfig& config) { config.windowMode = "made up"; });
        open();
    }
    void cleanup()
    {
        m_desktop.reset();
        QApplication::setFont(m_font);
    }

    void everyControl_reachesItsFieldOnDone()
    {
        AppConfig config = m_desktop->settings();
        CoachConfig coach = m_desktop->coach();
        click("Vault");
        type("Obsidian Vault Path", "/no/such");
        QVERIFY(shows("There is no folder at this path."));
        m_desktop->dialogs.answer = m_desktop->folder.path();
        click("Browse");
        type("Default Save Subfolder", "Ideas");
        click("Notes");
        for (const char* mode : {"Normal", "Desktop (behind windows)", "Floating (always on top)"}) {
            QVERIFY2(!named<QRadioButton>(*m_window, mode)->isChecked(), "an unknown mode");
        }
        click("Play sound on save");
        type("Default Tags (comma-separated)", "a, \t, b c ,,d\t");
        type("Folder for Captured Notes", "Captured");
        QVERIFY(shows("What you write in the panel is saved to: " + m_desktop->folder.path() + "/Captured"));
        named<Slider>(*m_window, "Window Opacity")->setFocus();
        press(Qt::Key_Left);
        click("Appearance");
        click("Forest Focus");
        click("Pomodoro");
        click("Enable Pomodoro Timer");
        click("Enable Productivity Coach");
        auto* interval = named<Slider>(*m_window, "Check-in Interval");
        QTest::mouseClick(interval, Qt::LeftButton, {}, QPoint(interval->width() - 1, 10));
        type("Start Time", "8.00");
        QVERIFY(shows("Start Time is not a 24-hour time such as 07:30."));
        type("End Time", "20:00");
        click("Hybrid");
        named<ComboBox>(*m_window, "Coach Style")->setCurrentIndex(1);
        click("Use this style's prompt");
        QTest::keyClicks(QApplication::focusWidget(), "Hm. ");

        click("Remind me to review my daily note");
        click("Remove time 2");
        click("Add Time");
        type("Reminder time 2", " \t");
        type("Reminder time 3", " 21:30\t");
        QVERIFY(m_desktop->settings() == config && m_desktop->coach() == coach);

        // Meanwhile somebody edits the coach's file by hand: this is not among the controls.
        QByteArray file = readTestFile(m_desktop->signalManager.coachConfigURL());
        writeTestFile(m_desktop->signalManager.coachConfigURL(),
                      file.replace("\"misalignment_threshold\": 2", "\"misalignment_threshold\": 7"));
        coach.misalignmentThreshold = 7;

        QTest::keyClick(named<TextArea>(*m_window, "Coach Prompt"), Qt::Key_Return, Qt::ControlModifier);
        config.vaultPath = m_desktop->folder.path();
        config.saveSubfolder = "Ideas";
        config.noteTypes["Fleeting"].subfolder = "Captured";
        config.playSoundOnSave = false;
        config.defaultTags = listOf("a,b c,d");
        config.windowOpacity = 0.9;
        config.colorPalette = ColorPalette::forestFocus;
        config.pomodoroEnabled = config.coachEnabled = config.dailyReviewEnabled = false;
        config.pomodoroIntervalMinutes = coach.pomodoroIntervalMinutes = 60;
        config.checkinStartTime = coach.checkinStartTime = "8.00";
        config.checkinEndTime = coach.checkinEndTime = "20:00";
        config.detectionMode = coach.detectionMode = "hybrid";
        config.dailyReviewTimes = listOf("19:00,21:30");
        coach.coachStyle = "tough";
        coach.coachPrompt = QStringLiteral("Hm. ") + coachPresets().at(1).prompt;
        QVERIFY(m_desktop->settings() == config && ConfigManager(m_desktop->directories).config() == config);
        m_desktop->signalManager.loadConfig();
        QVERIFY(m_desktop->coach() == coach);

        // A slip in it costs nothing but itself.
        writeTestFile(m_desktop->signalManager.coachConfigURL(), "{");
        model().loadSettings();
        model().saveSettings();
        m_desktop->signalManager.loadConfig();
        QVERIFY(m_desktop->coach() == coach);
        QCOMPARE(readTestFile(m_desktop->signalManager.coachConfigURL() + ".unreadable"), QByteArray("{"));
    }

    void app_switchSpringsBackWhereItFails()
    {
        auto* login = named<QCheckBox>(*m_window, "Start Flitmark at login");
        const QString inTheWay = m_desktop->folder.filePath("autostart");
        writeTestFile(inTheWay, "");
        QTest::mouseClick(login->parentWidget(), Qt::LeftButton);
        QVERIFY(!login->isChecked() && shows("Not a directory"));
        QVERIFY(QFile::remove(inTheWay));
        QTest::keyClick(login, Qt::Key_Space);
        QVERIFY(login->isChecked() && shows("Status: Enabled") && !shows("Not a directory"));
    }

    void updates_areSwitchedOnlyWhereTheyAreOffered()
    {
        auto* automatic = named<QCheckBox>(*m_window, "Automatically check for updates");
        QVERIFY(automatic->isEnabled());
        m_desktop->updater.current = {.status = Updater::Status::NotOffered,
                                      .reason = "Updates come with your system's packages."};
        Q_EMIT m_desktop->updater.stateChanged();
        QVERIFY(!automatic->isEnabled());
        QTest::mouseClick(automatic->parentWidget(), Qt::LeftButton);
        QVERIFY(m_desktop->updater.automatic);
        QCOMPARE(visibleTexts(*m_window).filter("packages", Qt::CaseInsensitive),
                 QStringList("On this computer: updates come with your system's packages."));
    }

    void capturedNotes_goWhereTheFieldSays()
    {
        const auto folder = [this] { return m_desktop->config.getSaveDirectory("Fleeting").section('/', -1); };
        for (const auto& [typed, saved] : {std::pair("Captured", "Captured"), {" ", "Inbox"}, {"../out", "Inbox"}}) {
            model().set(&SettingsState::captureSubfolder, typed);
            QCOMPARE(model().captureFolder().section('/', -1), saved);
            model().saveSettings();
            QCOMPARE(folder(), saved);
            QCOMPARE(m_desktop->settings().noteTypes["Fleeting"].subfolder, typed);
            QCOMPARE(m_desktop->settings().noteTypes["Fleeting"].tags, QStringList("fleeting"));
        }
        // Where captures have no note type, they get one with their own folder, and nothing else.
        m_desktop->config.update([](AppConfig& config) {
            config.noteTypes.remove("Fleeting");
            config.saveSubfolder = "Other";
        });
        model().loadSettings();
        model().saveSettings();
        QCOMPARE(folder(), "Other");
        model().set(&SettingsState::captureSubfolder, "Captured");
        model().saveSettings();
        QCOMPARE(folder(), "Captured");
        QCOMPARE(m_desktop->settings().noteTypes["Fleeting"], (NoteTypeConfig{"Captured", {}, {}}));
    }

    void closing_asksWhereSomethingWouldBeLost()
    {
        enum Answer { Save, Discard, Cancel };
        m_window->close();
        QVERIFY(m_desktop->dialogs.questions.isEmpty());
        for (const auto& [answer, stored] : {std::pair(Cancel, "Inbox"), {Discard, "Inbox"}, {Save, "Elsewhere"}}) {
            settle();
            open();
            m_desktop->dialogs.button = answer;
            m_desktop->dialogs.questions.clear();
            click("Vault");
            type("Default Save Subfolder", "Elsewhere");
            press(Qt::Key_Escape); // leaves the field
            QCOMPARE(spoken(QApplication::focusWidget()), "Vault");
            QCOMPARE(named<QLineEdit>(*m_window, "Default Save Subfolder")->text(), "Elsewhere");
            QVERIFY(m_desktop->dialogs.questions.isEmpty());
            press(Qt::Key_Escape);
            QCOMPARE(m_desktop->dialogs.questions.size(), 1);
            QPointer window(m_window);
            QCoreApplication::processEvents();
            QCOMPARE(window != nullptr && window->isVisible(), answer == Cancel);
            QCOMPARE(m_desktop->settings().saveSubfolder, stored);
            if (answer == Cancel) {
                m_desktop->dialogs.button = Discard;
                m_window->close();
                QCoreApplication::processEvents();
            }
        }
    }

    void help_takesTheKeysOfWhatItCovers()
    {
        model().set(&SettingsState::saveSubfolder, "x");
        click("Help");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return, Qt::ControlModifier);
        QVERIFY(m_window->isVisible());
        press(Qt::Key_Escape);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return, Qt::ControlModifier);
        QVERIFY(!m_window->isVisible());
    }

    void nothingIsCut()
    {
        m_desktop->config.update([](AppConfig& config) {
            config.vaultPath = QStringLiteral("/long").repeated(300);
            config.quickTags[0].appendText = QStringLiteral("#long").repeated(300);
            config.dailyReviewTimes = QStringList(40, "x");
        });
        QFont font = m_font;
        font.setPointSizeF(16.5);
        QApplication::setFont(font);
        m_window->close();
        settle();
        open();
        for (const char* tab : {"App", "Quick Tags", "Vault", "Notes", "Appearance", "Pomodoro", "Shortcuts"}) {
            click(tab);
            QCOMPARE(cutOff(*m_window), QStringList());
        }
    }

    void load_fillsGaps()
    {
        for (const auto& [style, prompt, shownStyle, shownPrompt] : {
                 std::tuple("stoic", "mine", "stoic", QString("mine")),
                 {"stoic", "", "stoic", coachPresets().at(3).prompt},
                 {"drill", "mine", "custom", "mine"},
                 {"drill", "", "custom", QString()},
             }) {
            m_desktop->changeCoach([&style = style, &prompt = prompt](CoachConfig& coach) {
                coach.coachStyle = style;
                coach.coachPrompt = prompt;
            });
            model().loadSettings();
            QCOMPARE(model().state().coachStyle, shownStyle);
            QCOMPARE(model().state().coachPrompt, shownPrompt);
        }
        m_desktop->config.update([](AppConfig& config) { config.dailyReviewTimes.clear(); });
        model().loadSettings();
        QCOMPARE(model().state().dailyReviewTimes, listOf("19:00,21:00,23:00"));
        QVERIFY(m_desktop->settings().dailyReviewTimes.isEmpty());
        // A number made up by hand is shown as it is.
        m_desktop->config.update([](AppConfig& config) { config.pomodoroIntervalMinutes = 5'000'000'000; });
        m_window->close();
        settle();
        open();
        click("Pomodoro");
        QVERIFY(shows("Check-in Interval: 5000000000 minutes"));
    }

    void timers_followTheSwitches()
    {
        QSignalSpy rings(&m_desktop->notifications, &NotificationCenter::pomodoroTimerUpdated);
        for (const auto& [pomodoro, coach] : {std::pair(false, true), {true, false}, {true, true}}) {
            model().set(&SettingsState::pomodoroEnabled, pomodoro);
            model().set(&SettingsState::coachEnabled, coach);
            m_desktop->controller.startPomodoroTimer();
            rings.clear();
            model().saveSettings();
            QCOMPARE(m_desktop->controller.isRunning(), pomodoro && coach);
            // A ring left over from the stopped timer goes.
            QCOMPARE(rings.isEmpty(), pomodoro && coach);
        }
    }

    void quickTags_areEditedInTheirRowsAndStoredAtOnce()
    {
        const auto stored = [this] { return ConfigManager(m_desktop->directories).config().quickTags; };
        click("Quick Tags");
        auto* second = named<QWidget>(*m_window, "#status/pinned");
        QCOMPARE(QAccessible::queryAccessibleInterface(second)->role(), QAccessible::Grouping);
        QCOMPARE(spoken(second, QAccessible::Description), "📌");
        flitmark::click(*second, "Set as default");
        QVERIFY(stored()[1].isDefault && shows("Default"));
        flitmark::click(*second, "Edit");
        QTest::keyClicks(QApplication::focusWidget(), "-now");
        press(Qt::Key_Escape);
        QVERIFY(m_window->isVisible() && spoken(QApplication::focusWidget()) == "Edit");
        QVERIFY(shows("#status/pinned-now"));

        model().loadSettings();
        QuickTagEditor& editor = model().quickTagEditor();
        const QUuid first = stored()[0].id;
        const TextBinding text = editor.editingTextBinding(first);
        text.setText(QString());
        QVERIFY(stored()[0].appendText.isEmpty());
        editor.deleteTag(first);
        // What still hangs on a tag that is gone does nothing.
        text.setText("late");
        editor.toggleDefault(first);
        QVERIFY(text.text().isEmpty() && stored() == editor.quickTags() && stored().size() == 3);
        for (const auto& [icon, appended, count] : {std::tuple("🎧", "", 3), {"", "#x", 3}, {" ", " ", 4}}) {
            editor.setNewTagIcon(icon);
            editor.setNewTagText(appended);
            editor.addNewTag();
            QCOMPARE(stored().size(), count);
        }
    }

    void times_areReadAsTheClockReadsThem()
    {
        for (const char* time : {"00:00", "7:30", "23:59", "18:0", "+7::5"}) {
            QVERIFY2(SettingsModel::isTimeOfDay(QString(time)), time);
        }
        for (const char* time : {"", "24:00", "12:60", "0730", "07:30:00", " 07:30", "7.30", "-1:30"}) {
            QVERIFY2(!SettingsModel::isTimeOfDay(QString(time)), time);
        }
        QVERIFY(model().checkinWindowProblem().isEmpty() && model().dailyReviewTimesProblem().isEmpty());
        model().set(&SettingsState::checkinStartTime, "19:00");
        QVERIFY(model().checkinWindowProblem().contains(u"no check-in will appear"));
        model().set(&SettingsState::checkinEndTime, "7.30");
        QVERIFY(model().checkinWindowProblem().startsWith(u"End Time"));
        model().setDailyReviewTime(0, "24:00");
        QVERIFY(model().dailyReviewTimesProblem().contains(u"“24:00”"));
        for (int i = 0; i < 5; ++i) {
            model().removeDailyReviewTime(0);
        }
        QCOMPARE(model().state().dailyReviewTimes.size(), 1); // one is always left
    }

    void presetPrompt_isOfferedWhereItDiffers()
    {
        QVERIFY(!model().offersPresetPrompt());
        model().set(&SettingsState::coachStyle, "stoic");
        QVERIFY(model().offersPresetPrompt());
        // Users' own prompts are never replaced by nothing.
        model().set(&SettingsState::coachStyle, QString(customCoachStyle));
        model().usePresetPrompt();
        QVERIFY(!model().offersPresetPrompt() && !model().state().coachPrompt.isEmpty());
    }

private:
    void open()
    {
        model().loadSettings();
        m_desktop->delegate.showSettingsWindow();
        m_window = m_desktop->delegate.settingsWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window));
    }
    SettingsModel& model() { return m_desktop->settingsModel; }
    void click(const char* name) { flitmark::click(*m_window, name); }
    void type(const char* name, const char* text)
    {
        auto* field = named<QLineEdit>(*m_window, name);
        flitmark::type(field, {});
        field->insert(text);
    }
    bool shows(QAnyStringView text) { return flitmark::shows(*m_window, text); }

    const QFont m_font = QApplication::font();
    std::unique_ptr<Desktop> m_desktop;
    QWidget* m_window = nullptr;
};

QTEST_MAIN(SettingsTest)
#include "SettingsTest.moc"

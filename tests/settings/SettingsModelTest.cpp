// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <settings/CoachPreset.h>

#include <QSignalSpy>

#include "SettingsStage.h"

using namespace flitmark;

class SettingsModelTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void save_readsEntriesForgivinglyAndKeepsWhatIsNotKnown()
    {
        SettingsStage stage;
        const QString madeUp = QStringLiteral("made up");
        stage.configManager.update([&](AppConfig& config) { config.windowMode = config.detectionMode = madeUp; });
        stage.changeCoach([&](CoachConfig& coach) {
            coach.detectionMode = madeUp;
            coach.misalignmentThreshold = 7;
        });
        SettingsModel& model = stage.model;
        model.loadSettings();
        AppConfig config = stage.config();
        const CoachConfig coach = stage.coach();
        const QByteArray before = stage.files();
        model.set(&SettingsState::defaultTags, QStringLiteral("a, \t, b c ,,d\t"));
        model.addDailyReviewTime();
        model.setDailyReviewTime(0, QStringLiteral(" 8:15\t"));
        model.setDailyReviewTime(1, QStringLiteral(" \t"));
        model.setDailyReviewTime(9, QStringLiteral("beyond"));
        model.removeDailyReviewTime(2);
        model.removeDailyReviewTime(-1);
        QCOMPARE(stage.files(), before);

        model.saveSettings();
        config.defaultTags = listOf("a,b c,d");
        config.dailyReviewTimes = listOf("8:15,20:00");
        QVERIFY(stage.config() == config && ConfigManager(stage.directories).config() == config);
        stage.signalManager.loadConfig();
        QVERIFY(stage.coach() == coach);
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
            stage.configManager.update([](AppConfig& config) { config.dailyReviewTimes.clear(); });
            CoachConfig coach = stage.coach();
            coach.coachStyle = QString::fromLatin1(style);
            coach.coachPrompt = QString::fromLatin1(prompt);
            stage.signalManager.setCoachConfig(coach);
            stage.model.loadSettings();
            QCOMPARE(stage.model.state().coachStyle, QString::fromLatin1(shownStyle));
            QCOMPARE(stage.model.state().coachPrompt, shownPrompt);
            QCOMPARE(stage.model.state().dailyReviewTimes, (listOf("19:00,21:00,23:00")));
            QVERIFY(stage.config().dailyReviewTimes.isEmpty());
        }
    }

    void timers_followTheSwitches()
    {
        for (const auto& [pomodoro, coach] : {std::pair(false, true), {true, false}, {true, true}}) {
            SettingsStage stage;
            stage.model.loadSettings();
            stage.model.set(&SettingsState::pomodoroEnabled, pomodoro);
            stage.model.set(&SettingsState::coachEnabled, coach);
            QSignalSpy rings(&stage.center, &NotificationCenter::pomodoroTimerUpdated);
            stage.controller.startPomodoroTimer();
            stage.model.saveSettings();
            QCOMPARE(stage.controller.isRunning(), pomodoro && coach);
            // A ring left over from the stopped timer goes.
            QCOMPARE(rings.count(), pomodoro && coach ? 0 : 1);
        }
    }

    void quickTags_areStoredAtOnce()
    {
        SettingsStage stage;
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

    void review_keepsItsLastTime()
    {
        SettingsStage stage;
        stage.model.loadSettings();
        for (int i = 0; i < 5; ++i) {
            stage.model.removeDailyReviewTime(0);
        }
        QCOMPARE(stage.model.state().dailyReviewTimes, listOf("23:00"));
    }

    void times_areReadAsTheClockReadsThem()
    {
        for (const char* time : {"00:00", "7:30", "07:30", "23:59"}) {
            QVERIFY2(SettingsModel::isTimeOfDay(QString::fromLatin1(time)), time);
        }
        for (const char* time : {"", "24:00", "12:60", "0730", "07:30:00", " 07:30", "7.30", "7:5", "half past"}) {
            QVERIFY2(!SettingsModel::isTimeOfDay(QString::fromLatin1(time)), time);
        }
        SettingsStage stage;
        stage.model.loadSettings();
        QVERIFY(stage.model.checkinWindowProblem().isEmpty() && stage.model.dailyReviewTimesProblem().isEmpty());
        stage.model.set(&SettingsState::checkinStartTime, QStringLiteral("19:00"));
        QVERIFY(stage.model.checkinWindowProblem().contains(QStringLiteral("no check-in will appear")));
        stage.model.set(&SettingsState::checkinEndTime, QStringLiteral("7.30"));
        QVERIFY(stage.model.checkinWindowProblem().startsWith(QStringLiteral("End Time")));
        stage.model.setDailyReviewTime(0, QStringLiteral("24:00"));
        QVERIFY(stage.model.dailyReviewTimesProblem().contains(QStringLiteral("“24:00”")));
    }

    void presetPrompt_isOfferedWhereItDiffers()
    {
        SettingsStage stage;
        stage.model.loadSettings();
        QVERIFY(!stage.model.offersPresetPrompt());
        stage.model.set(&SettingsState::coachStyle, QStringLiteral("stoic"));
        QVERIFY(stage.model.offersPresetPrompt());
        // Users' own prompts are never replaced by nothing.
        stage.model.set(&SettingsState::coachStyle, QString(customCoachStyle));
        stage.model.usePresetPrompt();
        QVERIFY(!stage.model.offersPresetPrompt() && !stage.model.state().coachPrompt.isEmpty());
    }
};

QTEST_GUILESS_MAIN(SettingsModelTest)
#include "SettingsModelTest.moc"

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

#include "SettingsStage.h"

using namespace flitmark;

class SettingsViewTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        motion::set(motion::Setting::Never);
        m_stage = std::make_unique<SettingsStage>();
        m_stage->configManager.update([](AppConfig& config) { config.windowMode = QStringLiteral("made up"); });
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
        AppConfig config = m_stage->config();
        CoachConfig coach = m_stage->coach();
        click("Vault");
        type("Obsidian Vault Path", "/no/such");
        QVERIFY(shows("There is no folder at this path."));
        m_dialogs.answer = m_stage->home.path();
        click("Browse");
        type("Default Save Subfolder", "Ideas");
        click("Notes");
        for (const char* mode : {"Normal", "Desktop (behind windows)", "Floating (always on top)"}) {
            QVERIFY2(!named<QRadioButton>(*m_window, QString::fromUtf8(mode))->isChecked(), "an unknown mode");
        }
        click("Play sound on save");
        type("Default Tags (comma-separated)", "a, b");
        click("Normal");
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
        type("Reminder time 3", "21:30");
        QVERIFY(m_stage->config() == config && m_stage->coach() == coach);

        QTest::keyClick(named<TextArea>(*m_window, QStringLiteral("Coach Prompt")), Qt::Key_Return,
                        Qt::ControlModifier);
        config.vaultPath = m_stage->home.path();
        config.saveSubfolder = QStringLiteral("Ideas");
        config.playSoundOnSave = false;
        config.defaultTags = listOf("a,b");
        config.windowMode = QStringLiteral("normal");
        config.windowOpacity = 0.9;
        config.colorPalette = ColorPalette::forestFocus;
        config.pomodoroEnabled = config.coachEnabled = config.dailyReviewEnabled = false;
        config.pomodoroIntervalMinutes = coach.pomodoroIntervalMinutes = 60;
        config.checkinStartTime = coach.checkinStartTime = QStringLiteral("8.00");
        config.checkinEndTime = coach.checkinEndTime = QStringLiteral("20:00");
        config.detectionMode = coach.detectionMode = QStringLiteral("hybrid");
        config.dailyReviewTimes = listOf("19:00,23:00,21:30");
        coach.coachStyle = QStringLiteral("tough");
        coach.coachPrompt = QStringLiteral("Hm. ") + coachPresets().at(1).prompt;
        QVERIFY(m_stage->config() == config);
        QVERIFY(m_stage->coach() == coach);
    }

    void app_switchSpringsBackWhereItFails()
    {
        auto* login = named<QCheckBox>(*m_window, QStringLiteral("Start Flitmark at login"));
        m_stage->loginService.failure = QStringLiteral("Read-only");
        QTest::mouseClick(login->parentWidget(), Qt::LeftButton);
        QVERIFY(!login->isChecked() && shows("Read-only"));
        m_stage->loginService.failure.clear();
        QTest::keyClick(login, Qt::Key_Space);
        QVERIFY(login->isChecked() && shows("Status: Enabled") && !shows("Read-only"));
    }

    void quickTags_areEditedInTheirRows()
    {
        const auto tags = [this] { return m_stage->config().quickTags; };
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
        m_stage->configManager.update([](AppConfig& config) {
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

private:
    void open()
    {
        SettingsStage& s = *m_stage;
        const SettingsModel::Services services{s.configManager,    s.signalManager,    s.controller,
                                               s.loginItemManager, s.updateController, s.center};
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

QTEST_MAIN(SettingsViewTest)
#include "SettingsViewTest.moc"

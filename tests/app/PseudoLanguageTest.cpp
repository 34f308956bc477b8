// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/PanelWindow.h>
#include <app/TriggerButtonView.h>
#include <app/TriggerButtonWindow.h>
#include <app/TriggerMenu.h>
#include <app/UpdateWindow.h>
#include <checkin/DesktopPopups.h>
#include <checkin/PopupWindow.h>
#include <settings/HelpContent.h>
#include <settings/HelpWindow.h>
#include <settings/SettingsWindow.h>
#include <setup/SetupWizardWindow.h>
#include <support/Accessible.h>
#include <support/Desktop.h>
#include <support/PseudoLanguage.h>
#include <ui/Motion.h>
#include <ui/QuestionWindow.h>

using namespace flitmark;
using namespace std::chrono_literals;

/// Every window in a language that is no language.
class PseudoLanguageTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        motion::set(motion::Setting::Never);
        QCoreApplication::installTranslator(&m_language);
    }
    void init() { start(); }
    void cleanup()
    {
        m_desktop.reset();
        for (const QString& fault : std::exchange(m_faults, {})) {
            QTest::qFail(qPrintable(fault), __FILE__, __LINE__);
        }
    }

    void panelAndButton()
    {
        PanelWindow& panel = openPanel();
        look(m_desktop->trigger());
        QTest::keyClicks(QApplication::focusWidget(), "12 34");
        visit(panel, {"Save"});
        m_desktop->loop.advance(1s);
        openPanel();
        Q_EMIT m_desktop->notifications.showBrowseTab();
        look(panel);
        writeTestFile(m_desktop->settings().vaultPath + "/1/2.md", "34");
        visit(panel, {"Refresh"});
    }
    void daily()
    {
        PanelWindow& panel = openPanel();
        Q_EMIT m_desktop->notifications.showDailyTab();
        look(panel);
        writeTestFile(m_desktop->settings().vaultPath + "/Daily/2026/2026-01-22.md",
                      "## Today's Focus\n**12**\n\n## Tasks\n- [x] 34 🍅🍅\n- [ ] 78 🍅🍅🍅🍅🍅🍅🍅🍅\n\n"
                      "## Coach Notes\n- 9?\n\n## Work Done\n- 10\n");
        visit(panel, {"Refresh", "Add task", "Cancel task", "Edit focus", "Cancel", "Mark focus done", "Cancel",
                      "Start Pomodoro for a task"});
        press(Qt::Key_Escape);
        visit(panel, {"Start Pomodoro for this task", "Pause"});
        look(m_desktop->trigger());
        const QString alert = m_desktop->signalManager.coachAlertURL();
        writeTestFile(alert, R"({"alert_id": "1", "triggered_at": "2", "planned": "3", "actual": "4",
                                 "misalignment_count": 5, "status": "pending"})");
        m_desktop->events.report(alert, FileEventSource::Event::Written);
        look(panel);
        QVERIFY(named<QWidget>(panel, PseudoLanguage::of("Focus Check")) != nullptr);
    }
    void settings()
    {
        m_desktop->delegate.showSettingsWindow();
        visit(*m_desktop->delegate.settingsWindow(), {"App", "Vault", "Notes", "Appearance", "Pomodoro", "Shortcuts",
                                                      "Quick Tags", "Edit", "Add Quick Tag", "Help"});
    }
    void help()
    {
        m_desktop->delegate.showHelpWindow();
        for (QWidget* window : QApplication::topLevelWidgets()) {
            for (const HelpHeading& heading : helpHeadings()) {
                if (qobject_cast<HelpWindow*>(window) != nullptr) {
                    click(*window, heading.title);
                    look(*window);
                }
            }
        }
    }
    void wizard()
    {
        start(false);
        SetupWizardWindow& window = *m_desktop->delegate.setupWindow();
        look(window);
        visit(window, {"Get Started", "Use custom folder path"});
        type(named<QLineEdit>(window, PseudoLanguage::of("Vault path")), "/1");
        visit(window, {"Next", "Next"});
    }
    void popups()
    {
        Desktop& d = *m_desktop;
        DesktopPopups popups({d.config, d.daily, d.signalManager, d.loop, d.screens, d.windowManager});
        popups.showDailyReview([](DailyReviewAction) {});
        look(*popups.dailyReviewWindow());
        popups.showCheckin([](const CheckinResponse&) {});
        look(*popups.checkinWindow());
        visit(*popups.checkinWindow(), {"Done → New task", "Cancel", "Change focus"});
    }
    void menuQuestionAndUpdates()
    {
        Desktop& d = *m_desktop;
        for (int state = 0; state < 3; ++state) {
            TriggerMenu menu(d.controller, d.notifications, d.windowManager, &d.trigger());
            menu.popup({});
            look(menu);
            state == 0 ? d.controller.startPomodoroTimer() : d.controller.pauseTimer();
        }
        d.loop.advance(1s);
        for (const Dialogs::Question& asked : d.dialogs.questions) {
            QuestionWindow question(asked, ColorPalette::obsidianNative, d.loop);
            question.showCentered();
            look(question);
        }
        using Status = Updater::Status;
        UpdateWindow updates(d.updater, d.workspace);
        updates.showCentered(ColorPalette::obsidianNative, UpdateWindow::Keyboard::Take);
        for (const Status status :
             {Status::NotOffered, Status::Checking, Status::UpToDate, Status::Available, Status::Failed}) {
            d.updater.current = {.status = status, .version = "1.3", .reason = "4"};
            Q_EMIT d.updater.stateChanged();
            look(updates);
        }
    }

private:
    void start(bool isSetUp = true)
    {
        m_desktop.reset();
        m_desktop = std::make_unique<Desktop>([&](AppConfig& config) { config.hasCompletedSetup = isSetUp; });
        const QString vault = m_desktop->folder.filePath("0");
        m_desktop->config.update([&](AppConfig& config) { config.vaultPath = vault; });
        m_desktop->changeCoach([](CoachConfig& coach) { coach.coachPrompt = "1"; });
    }
    void look(QWidget& window)
    {
        m_desktop->loop.advance(200ms);
        settle();
        m_faults += faultsInTexts(window);
        m_faults.removeDuplicates();
    }
    /// Clicks one button after the other, and looks at what each brings.
    void visit(QWidget& window, std::initializer_list<const char*> buttons)
    {
        for (const char* button : buttons) {
            click(window, PseudoLanguage::of(button));
            look(window);
        }
    }
    PanelWindow& openPanel()
    {
        m_desktop->delegate.showPanel();
        [&] { QVERIFY(QTest::qWaitForWindowActive(&m_desktop->panel())); }();
        return m_desktop->panel();
    }

    PseudoLanguage m_language;
    std::unique_ptr<Desktop> m_desktop;
    QStringList m_faults;
};

QTEST_MAIN(PseudoLanguageTest)
#include "PseudoLanguageTest.moc"

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
#include <support/PseudoLanguage.h>
#include <ui/Motion.h>
#include <ui/QuestionWindow.h>

#include "Desktop.h"

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

    void panel()
    {
        look(m_desktop->trigger());
        m_desktop->delegate.showPanel();
        QVERIFY(QTest::qWaitForWindowActive(&m_desktop->panel()));
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("12 34"));
        look(m_desktop->panel());
        click(m_desktop->panel(), "Save");
        look(m_desktop->panel());
        m_desktop->loop.advance(1s);
        m_desktop->delegate.showPanel();
        Q_EMIT m_desktop->notifications.showBrowseTab();
        look(m_desktop->panel());
        writeTestFile(m_desktop->settings().vaultPath + QStringLiteral("/1/2.md"), "34");
        writeTestFile(m_desktop->settings().vaultPath + QStringLiteral("/3.md"), "56");
        click(m_desktop->panel(), "Refresh");
        look(m_desktop->panel());
    }
    void daily()
    {
        m_desktop->delegate.showPanel();
        QVERIFY(QTest::qWaitForWindowActive(&m_desktop->panel()));
        Q_EMIT m_desktop->notifications.showDailyTab();
        PanelWindow& panel = m_desktop->panel();
        look(panel);
        writeTestFile(m_desktop->settings().vaultPath + QStringLiteral("/Daily/2026/2026-01-22.md"),
                      "## Today's Focus\n**12**\n\n## Tasks\n- [x] 34 🍅🍅\n- [ ] 56\n- [ ] 78 🍅🍅🍅🍅🍅🍅🍅🍅\n\n"
                      "## Coach Notes\n- 9?\n\n## Work Done\n- 10\n");
        click(panel, "Refresh");
        look(panel);
        click(panel, "Add task");
        look(panel);
        click(panel, "Cancel task");
        click(panel, "Edit focus");
        look(panel);
        click(panel, "Cancel");
        click(panel, "Mark focus done");
        look(panel);
        click(panel, "Cancel");
        click(panel, "Start Pomodoro for a task");
        look(panel);
        press(Qt::Key_Escape);
        click(panel, "Start Pomodoro for this task");
        look(panel);
        look(m_desktop->trigger());
        click(panel, "Pause");
        look(panel);
        const QString alert = m_desktop->signalManager.coachAlertURL();
        writeTestFile(alert, R"({"alert_id": "1", "triggered_at": "2", "planned": "3", "actual": "4",
                                 "misalignment_count": 5, "status": "pending"})");
        m_desktop->events.report(alert, FileEventSource::Event::Written);
        m_desktop->loop.advance(1s);
        QVERIFY(named<QWidget>(panel, PseudoLanguage::of("Focus Check")) != nullptr);
        look(panel);
    }
    void settings()
    {
        m_desktop->delegate.showSettingsWindow();
        SettingsWindow& window = *m_desktop->delegate.settingsWindow();
        for (const char* tab : {"App", "Quick Tags", "Vault", "Notes", "Appearance", "Pomodoro", "Shortcuts"}) {
            click(window, tab);
            look(window);
        }
        click(window, "Quick Tags");
        click(window, "Edit");
        look(window);
        click(window, "Help");
        look(window);
    }
    void help()
    {
        m_desktop->delegate.showHelpWindow();
        for (QWidget* window : QApplication::topLevelWidgets()) {
            for (const HelpHeading& heading : helpHeadings()) {
                if (qobject_cast<HelpWindow*>(window) != nullptr) {
                    flitmark::click(*window, heading.title);
                    look(*window);
                }
            }
        }
    }
    void wizard()
    {
        start([](AppConfig& config) { config.hasCompletedSetup = false; });
        SetupWizardWindow& window = *m_desktop->delegate.setupWindow();
        look(window);
        click(window, "Get Started");
        look(window);
        click(window, "Use custom folder path");
        type(named<QLineEdit>(window, PseudoLanguage::of("Vault path")), QStringLiteral("/1"));
        look(window);
        for (int step = 0; step < 2; ++step) {
            click(window, "Next");
            look(window);
        }
    }
    void popups()
    {
        Desktop& d = *m_desktop;
        DesktopPopups popups({d.config, d.daily, d.signalManager, d.loop, d.screens, d.windowManager});
        popups.showDailyReview([](DailyReviewAction) {});
        look(*popups.dailyReviewWindow());
        popups.showCheckin([](const CheckinResponse&) {});
        look(*popups.checkinWindow());
        for (const char* answer : {"Done → New task", "Change focus"}) {
            click(*popups.checkinWindow(), answer);
            look(*popups.checkinWindow());
            click(*popups.checkinWindow(), "Cancel");
        }
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
            QuestionWindow question(asked, themeOfWindow(ColorPalette::obsidianNative, Scheme::Light));
            question.showCentered();
            look(question);
        }
        using Status = Updater::Status;
        UpdateWindow updates(d.updater, d.workspace);
        updates.showCentered(themeOfWindow(ColorPalette::obsidianNative, Scheme::Light), UpdateWindow::Keyboard::Take);
        for (const Status status :
             {Status::NotOffered, Status::Checking, Status::UpToDate, Status::Available, Status::Failed}) {
            d.updater.current = {.status = status, .version = QStringLiteral("1.3"), .reason = QStringLiteral("4")};
            Q_EMIT d.updater.stateChanged();
            look(updates);
        }
    }

private:
    template<typename Change>
    void start(Change change)
    {
        m_desktop.reset();
        m_desktop = std::make_unique<Desktop>(change);
        const QString vault = m_desktop->folder.filePath(QStringLiteral("0"));
        m_desktop->config.update([&](AppConfig& config) { config.vaultPath = vault; });
        m_desktop->changeCoach([](CoachConfig& coach) { coach.coachPrompt = QStringLiteral("1"); });
    }
    void start()
    {
        start([](AppConfig&) {});
    }
    void look(QWidget& window)
    {
        m_desktop->loop.advance(200ms);
        settle();
        m_faults += faultsInTexts(window);
        m_faults.removeDuplicates();
    }
    void click(const QWidget& root, const char* name)
    {
        m_desktop->loop.advance(200ms);
        flitmark::click(root, PseudoLanguage::of(name));
    }

    PseudoLanguage m_language;
    std::unique_ptr<Desktop> m_desktop;
    QStringList m_faults;
};

QTEST_MAIN(PseudoLanguageTest)
#include "PseudoLanguageTest.moc"

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <checkin/CheckinModel.h>
#include <checkin/DesktopPopups.h>
#include <checkin/PopupWindow.h>
#include <daily/tab/DailyTabModel.h>
#include <support/Accessible.h>
#include <support/DesktopDoubles.h>
#include <support/TestServices.h>
#include <ui/RepeatFilter.h>

#include <QPushButton>

using namespace flitmark;
using namespace std::chrono_literals;

namespace {

using Kind = CheckinResponse::Kind;

QByteArray noteWith(const QByteArray& focus, const QByteArray& log = {}, int count = 0)
{
    return "## Today's Focus\n" + focus + "\n## Pomodoro Log\n**Today:** " + QByteArray::number(count) +
           "/8 completed\n| # | Time | Focus |\n|---|---|---|\n" + log;
}

/// A check-in that has been on screen for some time. An answer closes it, as the controller does it.
struct Stage : TestServices
{
    explicit Stage(RunLoop::Duration age = 1s, const QByteArray& note = noteWith("Ship it"))
        : TestServices(note)
    {
        desktop.showCheckin([this](const CheckinResponse& response) {
            responses.append(response);
            desktop.closeCheckin();
        });
        QVERIFY(QTest::qWaitForWindowActive(window()));
        loop.advance(age);
        QCoreApplication::instance()->installEventFilter(&repeatFilter);
    }

    PopupWindow* window() const { return desktop.checkinWindow(); }
    QPushButton* find(const char* name) const { return named<QPushButton>(*window(), name); }
    void click(const char* name) const { flitmark::click(*window(), name); }

    FakeScreens screens;
    FakeWindowManager windowManager;
    DesktopPopups desktop{{config, daily, signalManager, loop, screens, windowManager}};
    QList<CheckinResponse> responses;
    RepeatFilter repeatFilter;
};

} // namespace

class PopupsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void longFocus_isCutForShowing()
    {
        const Stage stage(1s, noteWith(QByteArray("words ").repeated(200'000)));
        for (const QLabel* label : stage.window()->findChildren<QLabel*>()) {
            QVERIFY(qMax(label->text().size(), label->toolTip().size()) <= 501);
        }
        QVERIFY(cutOff(*stage.window()).isEmpty());
    }
    void answer_isTakenOnce()
    {
        TestServices services(noteWith("", {}, 2));
        QList<CheckinResponse> responses;
        CheckinModel model(services.daily, services.signalManager, services.loop,
                           [&](const CheckinResponse& given) { responses.append(given); });
        model.completePomodoro();
        model.completePomodoro();
        model.startCompletingTask();
        model.setNewFocus("More");
        model.submit();
        services.loop.runQueued();
        QCOMPARE(responses, QList<CheckinResponse>({{Kind::onTrack}}));
        QVERIFY(readTestFile(services.signalManager.dailyFocusURL())
                    .contains("\"focus\": \"Working\",\n  \"pomodoro_count\": 3"));
        QCOMPARE(services.note(), noteWith("", "| 3 | 09:30 | Working |\n", 3));
    }
    void answer_goesIntoTheNoteThatIsTodaysThen()
    {
        const std::tuple<const char*, QByteArray, void (*)(Stage&)> rows[] = {
            {"the day ends", noteWith("Old"), [](Stage& s) { s.loop.setWallClock(s.loop.now().addDays(1)); }},
            {"the note is made", QByteArray(), [](Stage&) {}},
            {"the vault changes", noteWith("Old"),
             [](Stage& s) { s.config.update([&s](AppConfig& config) { config.vaultPath = s.vault + '2'; }); }},
        };
        for (const auto& [name, before, happens] : rows) {
            Stage stage(1s, before);
            happens(stage);
            writeTestFile(stage.daily.getTodayNotePath(), noteWith("New"));
            stage.click("On track");
            stage.loop.runQueued();
            QVERIFY2(readTestFile(stage.daily.getTodayNotePath()).endsWith("| New |\n"), name);
            QVERIFY2(stage.note() == before || before.isNull(), name);
        }
    }
    void raisedPopup_showsTheNoteAsItIs()
    {
        Stage stage;
        CheckinWindowController controller({stage.config, stage.signalManager, stage.daily, stage.loop,
                                            stage.notifications, stage.sound, stage.desktop});
        writeTestFile(stage.notePath, noteWith("New"));
        controller.showCheckin();
        stage.loop.runQueued();
        QVERIFY(shows(*stage.window(), "New"));
        // A note that can't be read leaves the last one on screen, but takes no other day's Pomodoro.
        stage.loop.setWallClock(stage.loop.now().addDays(1));
        writeTestFile(stage.daily.getTodayNotePath(), "\xE9");
        stage.click("On track");
        stage.loop.runQueued();
        QCOMPARE(stage.note(), noteWith("New"));
    }
    void entry_isTakenWithoutItsSpaces()
    {
        for (const auto& [answer, typed, after] : {
                 std::tuple("Done → New task", "  Write ", noteWith("Write", "| 1 | 09:30 | Ship it |\n", 1)),
                 {"Change focus", "Ship it", noteWith("Ship it", "| 1 | 09:30 | Ship it |\n", 1)},
                 {"Done → New task", "  ", noteWith("Ship it")},
                 {"Change focus", "", noteWith("Ship it")},
             }) {
            Stage stage;
            stage.click(answer);
            type(QApplication::focusWidget(), typed);
            press(Qt::Key_Return);
            stage.loop.runQueued();
            QCOMPARE(stage.note(), after);
            QCOMPARE(stage.responses.value(0).focus, QString::fromLatin1(typed).trimmed());
        }
    }

    void entryWithoutANote_waitsInTheDailyTab()
    {
        Stage stage(1s, QByteArray());
        DailyTabModel tab({stage.daily, stage.signalManager, stage.controller, stage.notifications, stage.loop});
        stage.click("Done → New task");
        type(QApplication::focusWidget(), "Write");
        press(Qt::Key_Return);
        stage.loop.runQueued();
        QCOMPARE(stage.responses.value(0).focus, "Write");
        QCOMPARE(tab.isEditingFocus() ? tab.editedFocus() : QString(), "Write");
        // What is being typed there is not replaced.
        tab.setEditedFocus("Other");
        QVERIFY(!stage.daily.updateFocus("Write"));
        QCOMPARE(tab.editedFocus(), "Other");
    }

    void longFocus_leavesTheAnswersOnTheScreen()
    {
        Stage stage(1s, "## Today's Focus\n" + QByteArray("word ").repeated(2000));
        QVERIFY(stage.window()->frameRect().height() < 500);
        const QPushButton* last = stage.find("Snooze 20m");
        QVERIFY(stage.window()->rect().contains(last->mapTo(stage.window(), last->rect().bottomLeft())));
    }

    void firstHalfSecond_noKeyDoesAnything()
    {
        Stage stage(499ms);
        for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Space, Qt::Key_Tab, Qt::Key_Down}) {
            press(key);
        }
        QCOMPARE(QApplication::focusWidget(), stage.window());
        // Nor where a click went first.
        stage.find("On track")->setFocus(Qt::MouseFocusReason);
        press(Qt::Key_Return);
        press(Qt::Key_Space);
        QVERIFY(stage.responses.isEmpty());
        stage.loop.advance(1ms);
        // Raised while the user types elsewhere, it ignores keys again, and where the focus was moved before.
        press(Qt::Key_Tab);
        QWidget other;
        showActive(other);
        stage.desktop.raiseCheckin();
        QVERIFY(QTest::qWaitForWindowActive(stage.window()));
        press(Qt::Key_Return);
        stage.loop.advance(500ms);
        press(Qt::Key_Return);
        QVERIFY(stage.responses.isEmpty());
        press(Qt::Key_Escape);
        QCOMPARE(stage.responses, QList<CheckinResponse>{{Kind::dismissed}});
    }
    void returnAndSpace_answerOnlyWhereTheFocusWasMoved()
    {
        for (const auto& [move, answer] :
             {std::pair(Qt::Key_Tab, Qt::Key_Space), std::pair(Qt::Key_Down, Qt::Key_Enter)}) {
            Stage stage(10s);
            press(answer);
            QVERIFY(stage.responses.isEmpty());
            press(move);
            QCOMPARE(QApplication::focusWidget(), stage.find("On track"));
            press(Qt::Key_Down);
            QCOMPARE(QApplication::focusWidget(), stage.find("Done → New task"));
            press(Qt::Key_Up);
            press(answer);
            stage.loop.runQueued();
            QCOMPARE(stage.responses, QList<CheckinResponse>{{Kind::onTrack}});
        }
    }
    void entry_opensAndCloses()
    {
        Stage stage;
        stage.click("Done → New task");
        stage.click("Cancel");
        QCOMPARE(QApplication::focusWidget(), stage.find("Done → New task"));

        // A held Return opens the entry and does not submit it.
        stage.find("Change focus")->setFocus(Qt::TabFocusReason);
        press(Qt::Key_Return);
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, {}, "\r", true);
        QCoreApplication::sendEvent(QApplication::focusWidget(), &held);
        QVERIFY(stage.responses.isEmpty());
        press(Qt::Key_Escape);
        QCOMPARE(stage.responses, QList<CheckinResponse>{{Kind::dismissed}});
    }

    void review_answers()
    {
        using Action = DailyReviewAction;
        for (const auto& [button, action] :
             {std::pair("Open in Obsidian", Action::openInObsidian), std::pair("Snooze 15 min", Action::snooze)}) {
            Stage stage;
            QList<Action> actions;
            stage.desktop.showDailyReview([&](Action chosen) { actions.append(chosen); });
            click(*stage.desktop.dailyReviewWindow(), button);
            click(*stage.desktop.dailyReviewWindow(), "Open Daily Tab"); // too late
            stage.desktop.dailyReviewWindow()->close();
            QCOMPARE(actions, QList<Action>{action});
        }
    }
    void closedByTheDesktop_isDismissedAndEndsTheClock()
    {
        Stage stage(0s);
        QCOMPARE(stage.loop.timerCount(), 2);
        stage.window()->close();
        QCOMPARE(stage.responses, QList<CheckinResponse>{{Kind::dismissed}});
        settle();
        QCOMPARE(stage.loop.timerCount(), 0);
    }
};

QTEST_MAIN(PopupsTest)
#include "PopupsTest.moc"

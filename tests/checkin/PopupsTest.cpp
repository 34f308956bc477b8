// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <checkin/CheckinModel.h>
#include <checkin/DesktopPopups.h>
#include <checkin/PopupWindow.h>
#include <support/Accessible.h>
#include <support/DesktopDoubles.h>
#include <support/TestServices.h>

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

/// The popups on a desktop without a display. An answer closes its popup, as the controller does it.
class Stage
{
public:
    explicit Stage(const QByteArray& note = noteWith("Ship it"))
        : services(note)
    {
    }

    void showCheckin()
    {
        popups.showCheckin([this](const CheckinResponse& response) {
            responses.append(response);
            popups.closeCheckin();
        });
        QVERIFY(QTest::qWaitForWindowActive(window()));
    }
    QWidget* window() const { return popups.checkinWindow(); }
    QPushButton* find(const char* name) const { return named<QPushButton>(*window(), QString::fromUtf8(name)); }
    void click(const char* name) const { flitmark::click(*window(), QString::fromUtf8(name)); }

    TestServices services;
    FakeScreens screens;
    FakeWindowManager windowManager;
    DesktopPopups popups{DesktopPopups::Services{services.config, services.daily, services.signalManager, services.loop,
                                                 screens, windowManager}};
    QList<CheckinResponse> responses;
};

} // namespace

class PopupsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void answer_isTakenOnce()
    {
        TestServices services(noteWith("", {}, 2));
        QList<CheckinResponse> responses;
        CheckinModel model(services.daily, services.signalManager, services.loop,
                           [&](const CheckinResponse& given) { responses.append(given); });
        model.completePomodoro();
        model.completePomodoro();
        model.startCompletingTask();
        model.setNewFocus(QStringLiteral("More"));
        model.submit();
        QCOMPARE(responses, QList<CheckinResponse>({{Kind::onTrack}}));
        QVERIFY(services.dailyFocus().contains("\"focus\": \"Working\",\n  \"pomodoro_count\": 3"));
        QCOMPARE(services.note(), noteWith("", "| 3 | 09:30 | Working |\n", 3));

        // The receiver may end the model while it answers.
        std::unique_ptr<CheckinModel> ending;
        ending = std::make_unique<CheckinModel>(services.daily, services.signalManager, services.loop,
                                                [&](const CheckinResponse&) { ending.reset(); });
        ending->completePomodoro();
        QVERIFY(!ending);
    }
    void entry_isTakenWithoutItsSpaces()
    {
        for (const auto& [answer, typed, after] : {
                 std::tuple("Done → New task", "  Write ", noteWith("Write", "| 1 | 09:30 | Ship it |\n", 1)),
                 {"Change focus", "  Write", noteWith("Write", "| 1 | 09:30 | Write |\n", 1)},
                 {"Change focus", "Ship it", noteWith("Ship it", "| 1 | 09:30 | Ship it |\n", 1)},
                 {"Done → New task", "  ", noteWith("Ship it")},
                 {"Change focus", "", noteWith("Ship it")},
             }) {
            Stage stage;
            stage.showCheckin();
            stage.services.loop.advance(1s);
            stage.click(answer);
            type(QApplication::focusWidget(), QString::fromLatin1(typed));
            press(Qt::Key_Return);
            QCOMPARE(stage.services.note(), after);
            QCOMPARE(stage.responses.value(0).focus, QString::fromLatin1(typed).trimmed());
        }
    }

    void longFocus_leavesTheAnswersOnTheScreen()
    {
        Stage stage("## Today's Focus\n" + QByteArray("word ").repeated(2000));
        stage.showCheckin();
        QVERIFY(stage.popups.checkinWindow()->frameRect().height() < 500);
        const QPushButton* last = stage.find("Snooze 20m");
        QVERIFY(stage.window()->rect().contains(last->mapTo(stage.window(), last->rect().bottomLeft())));
    }

    void firstHalfSecond_noKeyDoesAnything()
    {
        Stage stage;
        stage.showCheckin();
        stage.services.loop.advance(499ms);
        for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Space, Qt::Key_Tab, Qt::Key_Down}) {
            press(key);
        }
        QCOMPARE(QApplication::focusWidget(), stage.window());
        // Nor where a click went first.
        stage.find("On track")->setFocus(Qt::MouseFocusReason);
        press(Qt::Key_Return);
        press(Qt::Key_Space);
        QVERIFY(stage.responses.isEmpty());
        stage.services.loop.advance(1ms);
        press(Qt::Key_Escape);
        QCOMPARE(stage.responses, QList<CheckinResponse>{{Kind::dismissed}});
    }
    void raising_whileTheUserTypesElsewhere_ignoresKeysAgain()
    {
        Stage stage;
        stage.showCheckin();
        stage.services.loop.advance(1s);
        press(Qt::Key_Tab);
        QWidget other;
        showActive(other);
        stage.popups.raiseCheckin();
        QVERIFY(QTest::qWaitForWindowActive(stage.window()));
        press(Qt::Key_Return);
        stage.services.loop.advance(500ms);
        press(Qt::Key_Return);
        QVERIFY(stage.responses.isEmpty());
    }
    void returnAndSpace_answerOnlyWhereTheFocusWasMoved()
    {
        for (const auto& [move, answer] :
             {std::pair(Qt::Key_Tab, Qt::Key_Space), std::pair(Qt::Key_Down, Qt::Key_Enter)}) {
            Stage stage;
            stage.showCheckin();
            stage.services.loop.advance(10s);
            press(answer);
            QVERIFY(stage.responses.isEmpty());
            press(move);
            QCOMPARE(QApplication::focusWidget(), stage.find("On track"));
            press(Qt::Key_Down);
            QCOMPARE(QApplication::focusWidget(), stage.find("Done → New task"));
            press(Qt::Key_Up);
            press(answer);
            QCOMPARE(stage.responses, QList<CheckinResponse>{{Kind::onTrack}});
        }
    }
    void entry_opensAndCloses()
    {
        Stage stage;
        stage.showCheckin();
        stage.services.loop.advance(1s);
        stage.click("Done → New task");
        stage.click("Cancel");
        QCOMPARE(QApplication::focusWidget(), stage.find("Done → New task"));

        // A held Return opens the entry and does not submit it.
        stage.find("Change focus")->setFocus(Qt::TabFocusReason);
        press(Qt::Key_Return);
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, {}, QStringLiteral("\r"), true);
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
            stage.popups.showDailyReview([&](Action chosen) { actions.append(chosen); });
            flitmark::click(*stage.popups.dailyReviewWindow(), QLatin1String(button));
            QCOMPARE(actions, QList<Action>{action});
        }
    }
    void closedByTheDesktop_isDismissedAndEndsTheClock()
    {
        Stage stage;
        stage.showCheckin();
        QCOMPARE(stage.services.loop.timerCount(), 2);
        stage.window()->close();
        QCOMPARE(stage.responses, QList<CheckinResponse>{{Kind::dismissed}});
        settle();
        QCOMPARE(stage.services.loop.timerCount(), 0);
    }
};

QTEST_MAIN(PopupsTest)
#include "PopupsTest.moc"

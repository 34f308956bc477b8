// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <checkin/DesktopPopups.h>
#include <checkin/PopupPlacement.h>
#include <checkin/PopupWindow.h>
#include <support/DesktopDoubles.h>
#include <support/TestServices.h>
#include <ui/Surfaces.h>

#include <QAccessible>
#include <QApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>

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
        isActive = QTest::qWaitForWindowActive(popups.checkinWindow());
    }
    void showReview()
    {
        popups.showDailyReview([this](DailyReviewAction action) {
            actions.append(action);
            popups.closeDailyReview();
        });
        isActive = QTest::qWaitForWindowActive(popups.dailyReviewWindow());
    }
    QWidget* window() const
    {
        return popups.checkinWindow() != nullptr ? static_cast<QWidget*>(popups.checkinWindow())
                                                 : popups.dailyReviewWindow();
    }
    /// The control that a screen reader would find under `name`.
    template<typename Widget = QPushButton>
    Widget* find(const QString& name) const
    {
        for (Widget* widget : window()->findChildren<Widget*>()) {
            const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(widget);
            if (widget->isVisible() && spoken->text(QAccessible::Name) == name) {
                return widget;
            }
        }
        return nullptr;
    }
    void click(const char* name) const
    {
        QPushButton* button = find(QString::fromUtf8(name));
        QVERIFY2(button != nullptr, name);
        QTest::mouseClick(button, Qt::LeftButton);
    }
    static void press(Qt::Key key)
    {
        QWidget* target = QApplication::focusWidget();
        QVERIFY(target != nullptr);
        QTest::keyClick(target, key);
    }
    /// The texts that can be read on the open popup, from top to bottom.
    QStringList texts() const
    {
        QStringList all;
        for (const QLabel* label : window()->findChildren<QLabel*>()) {
            if (label->isVisible() && !label->text().isEmpty()) {
                all.append(label->text());
            }
        }
        return all;
    }
    QStringList buttons() const
    {
        QStringList all;
        for (QPushButton* button : window()->findChildren<QPushButton*>()) {
            if (button->isVisible()) {
                all.append(QAccessible::queryAccessibleInterface(button)->text(QAccessible::Name));
            }
        }
        return all;
    }

    TestServices services;
    FakeScreens screens;
    FakeWindowManager windowManager;
    DesktopPopups popups{DesktopPopups::Services{services.config, services.daily, services.signalManager, services.loop,
                                                 screens, windowManager}};
    QList<CheckinResponse> responses;
    QList<DailyReviewAction> actions;
    bool isActive = false;
};

} // namespace

class PopupsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void placement_isTheTopRightCorner_data()
    {
        QTest::addColumn<QRectF>("visible");
        QTest::addColumn<QSizeF>("size");
        QTest::addColumn<QPointF>("checkin");
        QTest::addColumn<QPointF>("review");
        QTest::newRow("plain") << QRectF(0, 0, 1440, 875) << QSizeF(280, 300) << QPointF(1140, 555)
                               << QPointF(1140, 455);
        QTest::newRow("panel below and bar at the right")
            << QRectF(0, 60, 1400, 840) << QSizeF(280, 200) << QPointF(1100, 680) << QPointF(1100, 580);
        QTest::newRow("screen elsewhere")
            << QRectF(1440, -200, 800, 600) << QSizeF(280, 100) << QPointF(1940, 280) << QPointF(1940, 180);
    }
    void placement_isTheTopRightCorner()
    {
        QFETCH(QRectF, visible);
        QFETCH(QSizeF, size);
        QTEST(checkinOrigin(size, ScreenFrames{visible, visible}), "checkin");
        QTEST(dailyReviewOrigin(size, ScreenFrames{visible, visible}), "review");
        QCOMPARE(checkinOrigin(size, std::nullopt), QPointF(0, 0));
    }
    void windows_lieWhereTheyBelongAndGrowDownwards()
    {
        Stage stage;
        stage.showCheckin();
        const QRect checkin = stage.popups.checkinWindow()->frameRect();
        QCOMPARE(checkin.topLeft(), QPoint(1140, 45)); // 25 points of the screen are the desktop's, then 20
        QCOMPARE(checkin.width(), 280);
        stage.click("Change focus");
        QTRY_VERIFY(stage.popups.checkinWindow()->frameRect().height() < checkin.height());
        QCOMPARE(stage.popups.checkinWindow()->frameRect().topLeft(), checkin.topLeft());
        stage.popups.closeCheckin();
        stage.showReview();
        QCOMPARE(stage.popups.dailyReviewWindow()->frameRect().topLeft(), QPoint(1140, 145));
        QCOMPARE(stage.popups.dailyReviewWindow()->frameRect().width(), 280);
    }

    void checkin_showsWhatThereIs()
    {
        Stage stage(noteWith("Ship & test it", {}, 2));
        stage.showCheckin();
        QCOMPARE(stage.window()->windowTitle(), QStringLiteral("Pomodoro Check-in"));
        QStringList texts{
            QStringLiteral("🍅 Pomodoro Check-in"), QStringLiteral("2×🍅"),   QStringLiteral("CURRENT FOCUS"),
            QStringLiteral("Ship & test it"),      QStringLiteral("09:30"), QStringLiteral("esc to close")};
        QStringList shown = stage.texts();
        QCOMPARE(QSet<QString>(shown.begin(), shown.end()), QSet<QString>(texts.begin(), texts.end()));
        QCOMPARE(stage.buttons(),
                 QStringList({QStringLiteral("On track"), QStringLiteral("Done → New task"),
                              QStringLiteral("Change focus"), QStringLiteral("Snooze 20m"), QStringLiteral("Close")}));
        QCOMPARE(stage.find(QStringLiteral("Done → New task"))->accessibleDescription(),
                 QStringLiteral("Complete & set new focus"));

        stage.services.setInterval(25);
        writeTestFile(stage.services.notePath, noteWith(""));
        stage.services.daily.loadTodayNote();
        stage.services.loop.advance(1min);
        shown = stage.texts();
        QVERIFY(stage.find(QStringLiteral("Snooze 25m")) != nullptr);
        QVERIFY(shown.contains(QStringLiteral("No focus")));
        QVERIFY(shown.contains(QStringLiteral("09:31")));
        QVERIFY(!shown.join(u' ').contains(QStringLiteral("×🍅")));
    }
    void longFocus_leavesTheAnswersOnTheScreen()
    {
        Stage stage(noteWith(QByteArray("word ").repeated(2000)));
        stage.showCheckin();
        QVERIFY(stage.popups.checkinWindow()->frameRect().height() < 500);
        const QPushButton* last = stage.find(QStringLiteral("Snooze 20m"));
        QVERIFY(stage.window()->rect().contains(last->mapTo(stage.window(), last->rect().bottomLeft())));
    }

    void firstHalfSecond_noKeyDoesAnything()
    {
        Stage stage;
        stage.showCheckin();
        QVERIFY(stage.isActive);
        stage.services.loop.advance(499ms);
        for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Space, Qt::Key_Tab, Qt::Key_Down}) {
            Stage::press(key);
        }
        QVERIFY(stage.responses.isEmpty());
        QCOMPARE(QApplication::focusWidget(), stage.window());
        // Nor where a click went first.
        stage.find(QStringLiteral("On track"))->setFocus(Qt::MouseFocusReason);
        Stage::press(Qt::Key_Return);
        Stage::press(Qt::Key_Space);
        QVERIFY(stage.responses.isEmpty());
        stage.services.loop.advance(1ms);
        Stage::press(Qt::Key_Escape);
        QCOMPARE(stage.responses, QList<CheckinResponse>{{Kind::dismissed}});
    }
    void raising_whileTheUserTypesElsewhere_ignoresKeysAgain()
    {
        Stage stage;
        stage.showCheckin();
        stage.services.loop.advance(1s);
        Stage::press(Qt::Key_Tab);
        QWidget other;
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        stage.popups.raiseCheckin();
        QVERIFY(QTest::qWaitForWindowActive(stage.window()));
        Stage::press(Qt::Key_Return);
        stage.services.loop.advance(500ms);
        Stage::press(Qt::Key_Return);
        QVERIFY(stage.responses.isEmpty());
    }
    void returnAndSpace_answerOnlyWhereTheFocusWasMoved_data()
    {
        QTest::addColumn<Qt::Key>("move");
        QTest::addColumn<Qt::Key>("answer");
        QTest::newRow("Tab, Return") << Qt::Key_Tab << Qt::Key_Return;
        QTest::newRow("Tab, Space") << Qt::Key_Tab << Qt::Key_Space;
        QTest::newRow("Down, Enter") << Qt::Key_Down << Qt::Key_Enter;
    }
    void returnAndSpace_answerOnlyWhereTheFocusWasMoved()
    {
        QFETCH(Qt::Key, move);
        QFETCH(Qt::Key, answer);
        Stage stage;
        stage.showCheckin();
        QVERIFY(stage.isActive);
        stage.services.loop.advance(10s);
        Stage::press(answer);
        QVERIFY(stage.responses.isEmpty());
        QCOMPARE(stage.services.note(), noteWith("Ship it"));
        Stage::press(move);
        QCOMPARE(QApplication::focusWidget(), stage.find(QStringLiteral("On track")));
        Stage::press(answer);
        QCOMPARE(stage.responses, QList<CheckinResponse>{{Kind::onTrack}});
    }
    void arrows_walkTheAnswers()
    {
        Stage stage;
        stage.showCheckin();
        stage.services.loop.advance(1s);
        for (const char* name : {"On track", "Done → New task", "Change focus"}) {
            Stage::press(Qt::Key_Down);
            QCOMPARE(QApplication::focusWidget(), stage.find(QString::fromUtf8(name)));
        }
        Stage::press(Qt::Key_Up);
        QCOMPARE(QApplication::focusWidget(), stage.find(QStringLiteral("Done → New task")));
    }

    void answers_reachNoteSignalAndOwner_data()
    {
        QTest::addColumn<QByteArray>("button");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QByteArray>("submit");
        QTest::addColumn<QByteArray>("note");
        QTest::addColumn<QString>("signal");
        QTest::addColumn<int>("kind");
        const QByteArray untouched = noteWith("Ship it", {}, 1);
        QTest::newRow("on track") << QByteArray("On track") << QString() << QByteArray()
                                  << noteWith("Ship it", "| 2 | 09:30 | Ship it |\n", 2) << "Ship it"
                                  << static_cast<int>(Kind::onTrack);
        QTest::newRow("next task") << QByteArray("Done → New task") << "  Write tests " << QByteArray("Start")
                                   << noteWith("Write tests", "| 2 | 09:30 | Ship it |\n", 2) << "Write tests"
                                   << static_cast<int>(Kind::completedAndNew);
        QTest::newRow("change") << QByteArray("Change focus") << "Write tests" << QByteArray("Save")
                                << noteWith("Write tests", "| 2 | 09:30 | Write tests |\n", 2) << "Write tests"
                                << static_cast<int>(Kind::updatedFocus);
        QTest::newRow("snooze") << QByteArray("Snooze 20m") << QString() << QByteArray() << untouched << QString()
                                << static_cast<int>(Kind::snoozed);
        QTest::newRow("close") << QByteArray("Close") << QString() << QByteArray() << untouched << QString()
                               << static_cast<int>(Kind::dismissed);
    }
    void answers_reachNoteSignalAndOwner()
    {
        QFETCH(QByteArray, button);
        QFETCH(QString, typed);
        QFETCH(QByteArray, submit);
        QFETCH(int, kind);
        Stage stage(noteWith("Ship it", {}, 1));
        stage.showCheckin();
        stage.services.loop.advance(1s);
        stage.click(button);
        if (!submit.isEmpty()) {
            auto* field = stage.find<QLineEdit>(QStringLiteral("Focus"));
            QVERIFY(field != nullptr && field->hasFocus());
            QTest::keyClicks(field, typed); // over what was there, which is selected
            stage.click(submit);
        }
        QTEST(stage.services.note(), "note");
        const QJsonObject signal = QJsonDocument::fromJson(stage.services.dailyFocus()).object();
        QTEST(signal[QStringLiteral("focus")].toString(), "signal");
        QCOMPARE(stage.responses.size(), 1);
        QCOMPARE(static_cast<int>(stage.responses.constFirst().kind), kind);
        QVERIFY(!stage.popups.isCheckinVisible());
    }
    void entry_opensAndCloses()
    {
        Stage stage;
        stage.showCheckin();
        stage.services.loop.advance(1s);
        stage.click("Change focus");
        auto* field = stage.find<QLineEdit>(QStringLiteral("Focus"));
        QCOMPARE(field->text(), QStringLiteral("Ship it"));
        QCOMPARE(field->placeholderText(), QStringLiteral("Enter focus..."));
        QVERIFY(stage.texts().contains(QStringLiteral("New focus:")));
        QVERIFY(stage.find(QStringLiteral("On track")) == nullptr);
        stage.click("Cancel");
        QVERIFY(stage.find(QStringLiteral("On track")) != nullptr);
        QCOMPARE(QApplication::focusWidget(), stage.find(QStringLiteral("Change focus")));

        stage.click("Done → New task");
        QVERIFY(stage.texts().contains(QStringLiteral("What's next?")));
        QCOMPARE(field->text(), QString());
        QTest::keyClick(field, Qt::Key_Return);
        QVERIFY(stage.responses.isEmpty());
        QTest::keyClicks(field, QStringLiteral("Next"));
        QTest::keyClick(field, Qt::Key_Return);
        QCOMPARE(stage.responses, (QList<CheckinResponse>{{Kind::completedAndNew, QStringLiteral("Next")}}));
    }
    void heldReturn_opensTheEntryAndDoesNotSubmitIt()
    {
        Stage stage;
        stage.showCheckin();
        stage.services.loop.advance(1s);
        stage.find(QStringLiteral("Change focus"))->setFocus(Qt::TabFocusReason);
        Stage::press(Qt::Key_Return);
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, {}, QStringLiteral("\r"), true);
        QCoreApplication::sendEvent(QApplication::focusWidget(), &held);
        QVERIFY(stage.responses.isEmpty());
        Stage::press(Qt::Key_Escape);
        QCOMPARE(stage.responses, QList<CheckinResponse>{{Kind::dismissed}});
    }

    void review_answers_data()
    {
        QTest::addColumn<QByteArray>("button");
        QTest::addColumn<int>("action");
        QTest::newRow("tab") << QByteArray("Open Daily Tab") << static_cast<int>(DailyReviewAction::openDailyTab);
        QTest::newRow("note") << QByteArray("Open in Obsidian") << static_cast<int>(DailyReviewAction::openInObsidian);
        QTest::newRow("snooze") << QByteArray("Snooze 15 min") << static_cast<int>(DailyReviewAction::snooze);
        QTest::newRow("close") << QByteArray("Close") << static_cast<int>(DailyReviewAction::dismissed);
        QTest::newRow("Escape") << QByteArray() << static_cast<int>(DailyReviewAction::dismissed);
    }
    void review_answers()
    {
        QFETCH(QByteArray, button);
        QFETCH(int, action);
        Stage stage;
        stage.showReview();
        QVERIFY(stage.isActive);
        QCOMPARE(stage.window()->windowTitle(), QStringLiteral("Daily Review"));
        Stage::press(Qt::Key_Escape);
        QVERIFY(stage.actions.isEmpty());
        stage.services.loop.advance(500ms);
        if (button.isEmpty()) {
            Stage::press(Qt::Key_Escape);
        } else {
            stage.click(button);
        }
        QCOMPARE(stage.actions.size(), 1);
        QCOMPARE(static_cast<int>(stage.actions.constFirst()), action);
        QVERIFY(!stage.popups.isDailyReviewVisible());
    }

    void closing_givesTheKeyboardBackAndEndsTheClock()
    {
        Stage stage;
        stage.windowManager.active = 77;
        stage.showCheckin();
        const WindowManager::WindowId own = stage.window()->winId();
        QCOMPARE(stage.windowManager.activated, QList<WindowManager::WindowId>{own});
        QCOMPARE(stage.services.loop.timerCount(), 2);
        stage.windowManager.active = own;
        stage.popups.checkinWindow()->close(); // as the desktop would
        QCOMPARE(stage.responses, QList<CheckinResponse>{{Kind::dismissed}});
        QCOMPARE(stage.windowManager.activated.last(), WindowManager::WindowId{77});
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(stage.services.loop.timerCount(), 0);
    }
};

QTEST_MAIN(PopupsTest)
#include "PopupsTest.moc"

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/tab/DailyTabModel.h>
#include <daily/tab/DailyTabView.h>
#include <support/Accessible.h>
#include <support/TestServices.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

using namespace flitmark;
using namespace std::chrono_literals;

namespace {

const QByteArray plainNote = "## Today's Focus\n**Ship it**\n\n## Tasks\n- [x] Review notes 🍅🍅\n- [ ] Publish visuals\n"
                             "- [ ] Deep work 🍅🍅🍅🍅🍅🍅🍅🍅🍅\n\n## Coach Notes\n- Visuals first?\n\n## Work Done\n"
                             "- ✅ first\n- ✅ second\n";
const char* const removeTooltip = "Click to remove one 🍅";

/// The tab over real models and files, in a window of its own.
struct Tab : TestServices
{
    explicit Tab(const QByteArray& note = plainNote)
        : TestServices(note)
    {
        auto* layout = new QVBoxLayout(&host);
        layout->setContentsMargins({});
        layout->addWidget(view);
        host.resize(460, 500);
        showActive(host);
        view->setTabShown(true);
        settle();
    }

    void settle()
    {
        loop.runQueued();
        flitmark::settle();
    }
    /// Another program writes the note, and the tab hears of it.
    void writeNote(const QByteArray& note)
    {
        writeTestFile(notePath, note);
        daily.loadTodayNote();
        settle();
    }
    template<typename Widget = QPushButton>
    Widget* find(const char* name)
    {
        return named<Widget>(host, name);
    }
    void click(const char* name)
    {
        flitmark::click(host, name);
        settle();
    }
    void press(Qt::Key key)
    {
        flitmark::press(key);
        settle();
    }
    bool says(const char* text) { return shows(host, text); }

    DailyTabModel model{{daily, signalManager, controller, notifications, loop}};
    QWidget host;
    DailyTabView* view = new DailyTabView(model, host);
};

} // namespace

class DailyTabTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void note_isShownInShort()
    {
        Tab tab;
        for (const char* text : {"Ship it", "Publish visuals", "+3", "Visuals first?", "✅ first"}) {
            QVERIFY2(tab.says(text), text);
        }
        QCOMPARE(tab.model.workDone().first(), "✅ second"); // the newest
        QStringList rows;
        for (const TaskPickerRow& row : tab.model.pickerRows()) {
            rows.append(row.text.section(u' ', 0, 0) + row.tomatoes);
        }
        QCOMPARE(rows.join(u'|'), "Publish|Deep🍅🍅🍅🍅🍅+4");
        QCOMPARE(allNamed<QPushButton>(tab.host, removeTooltip).size(), 2 + 6);
        // What is done is not started.
        QCOMPARE(allNamed<QPushButton>(tab.host, "Start Pomodoro for this task").size(), 2);
        Tab bare("");
        QCOMPARE(visibleTexts(bare.host).mid(1).join(u'|'), "FOCUS|No focus set");
        QVERIFY(bare.find("Add task") == nullptr && !bare.find("Mark focus done")->isEnabled());
    }

    void entries_takeNoBlankText()
    {
        Tab tab;
        tab.model.markFocusDone();
        QCOMPARE(tab.model.editedFocus(), QString());
        tab.model.setEditedFocus(" \t ");
        tab.model.saveFocus();
        QVERIFY(!tab.model.isSettingNewFocus());
        tab.model.setEditedFocus("Too late");
        tab.model.saveFocus();
        tab.click("Add task");
        auto* field = tab.find<QLineEdit>("New task");
        QTest::keyClicks(field, "  ");
        tab.press(Qt::Key_Return);
        QVERIFY(field->isVisible() && field->hasFocus());
        QTest::keyClicks(field, "Buy milk ");
        tab.press(Qt::Key_Return);
        QCOMPARE(tab.note(), QByteArray(plainNote).replace("\n\n## Coach", "\n- [ ] Buy milk\n\n## Coach"));
        QVERIFY(!field->isVisible() && tab.find("Add task")->hasFocus());
    }

    void entriesThatCanNotBeWritten_stay()
    {
        Tab tab;
        tab.click("Edit focus");
        type(tab.find<QLineEdit>("Focus"), "Go");
        tab.click("Add task");
        type(tab.find<QLineEdit>("New task"), "Buy milk");
        QVERIFY(QFile::remove(tab.notePath));
        tab.click("Save task");
        QVERIFY(tab.says("No daily note"));
        tab.model.saveFocus();
        tab.writeNote(plainNote);
        tab.click("Save task");
        tab.click("Save");
        QVERIFY(tab.note().contains("**Go**") && tab.note().contains("- [ ] Buy milk\n"));
    }
    void plannedFocus_isWrittenAsOneLine()
    {
        for (const auto& [planned, focus] : {std::pair("The\\r\\n## plan", "The ## plan"), {" \\n", "Ship it"}}) {
            Tab tab;
            writeTestFile(tab.signalManager.coachAlertURL(),
                          QByteArray("{\"alert_id\": \"1\", \"triggered_at\": \"\", \"planned\": \"") + planned +
                              "\", \"actual\": \"\", \"misalignment_count\": 1, \"status\": \"pending\"}");
            tab.events.report(tab.signalManager.coachAlertURL(), FileEventSource::Event::Written);
            tab.settle();
            tab.model.respondToAlert(DailyTabModel::AlertResponse::Refocusing);
            QCOMPARE(tab.note(), QByteArray(plainNote).replace("Ship it", focus));
            tab.settle();
            QCOMPARE(tab.model.focusText(), focus);
        }
    }

    void pomodoro_creditsItsTask()
    {
        Tab tab;
        tab.model.startPomodoro(6);
        tab.click("Start Pomodoro for this task"); // the first of them
        tab.loop.advance(40min);
        const QByteArray credited = QByteArray(plainNote).replace("visuals\n-", "visuals 🍅 🍅\n-");
        QCOMPARE(tab.note(), credited);
        // Another tab takes none; this one does again when it is back.
        tab.view->setTabShown(false);
        Q_EMIT tab.notifications.pomodoroCompleted();
        tab.view->setTabShown(true);
        tab.settle();
        QCOMPARE(tab.note(), credited);
        Q_EMIT tab.notifications.pomodoroCompleted();
        tab.settle();
        QCOMPARE(tab.note(), QByteArray(credited).replace("visuals 🍅", "visuals 🍅 🍅"));
        // The line is another day's task by then.
        tab.loop.setWallClock(tab.loop.now().addDays(1));
        const QString tomorrow = tab.daily.getTodayNotePath();
        writeTestFile(tomorrow, plainNote);
        tab.model.refresh();
        tab.settle();
        Q_EMIT tab.notifications.pomodoroCompleted();
        QCOMPARE(readTestFile(tomorrow), plainNote);
        tab.model.stopPomodoro();
        Q_EMIT tab.notifications.pomodoroCompleted();
        QCOMPARE(readTestFile(tomorrow), plainNote);
    }

    void typing_survivesAReload()
    {
        for (const auto& [opener, name] : {std::pair("Edit focus", "Focus"), std::pair("Add task", "New task")}) {
            Tab tab;
            tab.click(opener);
            auto* edit = tab.find<QLineEdit>(name);
            type(edit, "abc");
            QTest::keyClick(edit, Qt::Key_Left);
            tab.writeNote("## Today's Focus\n**Other**\n## Tasks\n- [ ] new one\n- [x] Review notes 🍅🍅\n");
            QTest::keyClicks(QApplication::focusWidget(), "x");
            QCOMPARE(edit->text(), "abxc");
        }
    }
    void keyboard_staysOnItsTaskWhenOthersComeAndGo()
    {
        Tab tab;
        auto* check = tab.find<QCheckBox>("Publish visuals");
        check->setFocus();
        tab.writeNote("## Tasks\n- [ ] one\n- [ ] two\n- [ ] Publish visuals\n- [ ] four\n");
        QVERIFY(check->hasFocus());
        QCOMPARE(spoken(check), "Publish visuals");
        tab.press(Qt::Key_Space);
        QVERIFY(tab.note().contains("- [x] Publish visuals\n"));
        // The rows are walked in the order of the note, not of their making.
        tab.find<QCheckBox>("two")->setFocus();
        tab.press(Qt::Key_Tab);
        tab.press(Qt::Key_Tab);
        QVERIFY(check->hasFocus());
        tab.writeNote("## Tasks\n- [x] Publish visuals\n");
        QVERIFY(check->hasFocus() && tab.find<QCheckBox>("two") == nullptr);

        // The last tomato that is taken leaves it in its row.
        tab.writeNote("## Tasks\n- [ ] a 🍅\n- [ ] b\n");
        named<QPushButton>(tab.host, removeTooltip)->setFocus();
        tab.press(Qt::Key_Return);
        QVERIFY(tab.note().contains("- [ ] a\n"));
        QVERIFY(tab.find<QCheckBox>("a")->hasFocus());
    }
    void scrolledPosition_staysThroughAReload()
    {
        const QByteArray tasks = QByteArray("- [ ] task\n").repeated(60);
        Tab tab("## Tasks\n- [ ] first\n" + tasks);
        QScrollBar* bar = tab.view->findChildren<QScrollArea*>().last()->verticalScrollBar();
        bar->setValue(900);
        tab.writeNote("## Tasks\n- [ ] first 🍅\n" + tasks);
        QCOMPARE(bar->value(), 900);
    }

    void manyTasks_haveWidgetsWhereTheyAreSeen()
    {
        // Of one line and of several, which no estimate hits.
        QByteArray note = "## Tasks\n";
        for (int i = 0; i < 3000; ++i) {
            note += "- [ ] " + QByteArray(i % 3 == 0 ? "WW " : "ill ").repeated(i % 50) + "task " +
                    QByteArray::number(i) + '\n';
        }
        Tab tab(note);
        const auto shown = [&tab] { return tab.host.findChildren<QCheckBox*>(); };
        QVERIFY(shown().size() < 100);
        // Tab comes in at the first and goes on to the last, which has one more neighbour each time.
        tab.find("Add task")->setFocus();
        tab.press(Qt::Key_Tab);
        QVERIFY(spoken(QApplication::focusWidget()).endsWith("task 0"));
        tab.find("Refresh")->setFocus();
        for (int i = 2999; i > 2970; --i) {
            tab.press(Qt::Key_Backtab);
            tab.press(Qt::Key_Backtab);
            QWidget* check = QApplication::focusWidget();
            QVERIFY2(spoken(check).endsWith("task " + QString::number(i)), qPrintable(spoken(check)));
            QVERIFY(!check->visibleRegion().isEmpty());
        }
        // It is there when the keyboard's row has left the view, too, and goes on from there.
        QScrollBar* bar = tab.view->findChildren<QScrollArea*>().last()->verticalScrollBar();
        bar->setValue(bar->maximum() / 2);
        tab.settle();
        QVERIFY(shown().size() < 100);
        tab.press(Qt::Key_Tab);
        tab.press(Qt::Key_Tab);
        QVERIFY(spoken(QApplication::focusWidget()).endsWith("task 2972"));
        // What is in view moves as far as is scrolled, whatever the heights above turn out to be.
        bar->setValue(bar->maximum() / 2);
        tab.settle();
        for (int i = 0; i < 50; ++i) {
            const QList<QCheckBox*> all = shown();
            const auto first =
                std::find_if(all.begin(), all.end(), [](QCheckBox* one) { return !one->visibleRegion().isEmpty(); });
            QVERIFY(first != all.end());
            const int before = (*first)->mapTo(&tab.host, QPoint()).y();
            bar->setValue(bar->value() - 100);
            tab.settle();
            QCOMPARE((*first)->mapTo(&tab.host, QPoint()).y(), before + 100);
        }
        // Other tasks above leave it in place as well, and whose tick is clicked is the one that is seen.
        QList<QCheckBox*> all = shown();
        all.removeIf([](QCheckBox* one) { return one->visibleRegion().isEmpty(); });
        QCheckBox* check = all.value(3);
        const QPoint place = check->mapTo(&tab.host, QPoint());
        note.replace("task 0\n", "task 0\n- [ ] one more\n- [ ] and another\n").replace("task 2999", "task 3000");
        tab.writeNote(note);
        QCOMPARE(check->mapTo(&tab.host, QPoint()), place);
        QTest::mouseClick(check, Qt::LeftButton);
        QVERIFY(tab.note().contains("- [x] " + spoken(check).toUtf8() + '\n'));
    }
    void longTexts_areCutForShowing()
    {
        const QByteArray text = QByteArray("words ").repeated(200'000);
        Tab tab("## Focus\n" + text + "\n## Tasks\n- [ ] " + text + "\n## Coach\n- " + text + "\n## Work Done\n- " +
                text);
        const QString path = tab.signalManager.coachAlertURL();
        writeTestFile(path, R"({"alert_id": "a", "triggered_at": "now", "misalignment_count": 2, "status": "pending",)"
                            R"( "planned": ")" +
                                text + R"(", "actual": ")" + text + R"("})");
        tab.events.report(path, FileEventSource::Event::Written);
        tab.model.setShowPomodoroTaskPicker(true);
        tab.settle();
        // The focus, the task in its row and in the sheet, the coach, the work, and two of the alert.
        const QStringList texts = visibleTexts(tab.host).filter("words words");
        QCOMPARE(texts.size(), 7);
        for (const QWidget* widget : tab.host.findChildren<QWidget*>()) {
            QVERIFY(qMax(spoken(const_cast<QWidget*>(widget)).size(), widget->toolTip().size()) <= 501);
        }
        const QWidget* answer = tab.find("Snooze");
        QVERIFY(answer->mapTo(&tab.host, answer->rect().bottomLeft()).y() < tab.host.height());
        QVERIFY(cutOff(*tab.find<QWidget>("Focus Check")).isEmpty());
        tab.click("Refocusing now");
        QVERIFY(tab.note().startsWith("## Focus\n" + text.trimmed()));
    }

    void sheet_keepsTheKeyboardUntilItCloses()
    {
        Tab tab;
        auto* opener = tab.find("Start Pomodoro for a task");
        opener->setFocus();
        tab.press(Qt::Key_Return);
        const QWidget* sheet = tab.find<QWidget>("Start Pomodoro");
        // Nothing is chosen yet: what is typed on goes nowhere.
        tab.press(Qt::Key_Return);
        tab.press(Qt::Key_Space);
        QVERIFY(sheet->isVisible() && !tab.controller.isRunning());
        for (int i = 0; i < 8; ++i) {
            tab.press(Qt::Key_Tab);
            QVERIFY(sheet->isAncestorOf(QApplication::focusWidget()));
        }
        tab.press(Qt::Key_Escape);
        QVERIFY(tab.find<QWidget>("Start Pomodoro") == nullptr && !tab.model.showPomodoroTaskPicker());
        QVERIFY(opener->hasFocus());
        // The controls take it from each other.
        tab.press(Qt::Key_Return);
        click(*tab.find<QWidget>("Start Pomodoro"), "Publish visuals");
        QVERIFY(tab.find("Pause")->hasFocus());
        tab.find("Stop & remove from task")->setFocus();
        tab.press(Qt::Key_Return);
        QVERIFY(tab.find("Start Pomodoro for a task")->hasFocus());
    }
    void midnight_bringsTheNextDay()
    {
        for (const bool isHidden : {true, false}) {
            Tab tab;
            tab.controller.startDailyReviewTimer();
            tab.host.setVisible(!isHidden);
            tab.loop.setWallClock(QDateTime(QDate(2026, 1, 22), QTime(23, 59, 30)));
            tab.loop.advance(isHidden ? 0s : 61s);
            if (isHidden) {
                tab.loop.setWallClock(QDateTime(QDate(2026, 1, 23), QTime(8, 0)));
                tab.host.show();
            }
            tab.settle();
            QVERIFY(tab.says("Friday, Jan 23") && tab.says("No daily note"));
            // The panel comes back after the note was made.
            tab.host.hide();
            writeTestFile(tab.daily.getTodayNotePath(), plainNote);
            tab.host.show();
            tab.settle();
            QVERIFY(tab.says("Ship it"));
        }
    }
};

QTEST_MAIN(DailyTabTest)
#include "DailyTabTest.moc"

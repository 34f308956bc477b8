// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/DailyTabModel.h>
#include <daily/DailyTabView.h>
#include <platform/Json.h>
#include <support/Accessible.h>
#include <support/TestServices.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QtTest/QTest>

using namespace flitmark;
using namespace std::chrono_literals;

namespace {

const QByteArray plainNote = "## Today's Focus\n**Ship it**\n\n## Tasks\n- [x] Review notes 🍅🍅\n- [ ] Publish visuals\n"
                             "- [ ] Deep work 🍅🍅🍅🍅🍅🍅🍅🍅🍅\n\n## Coach Notes\n- Visuals first?\n\n## Work Done\n"
                             "- ✅ first\n- ✅ second\n";
const QString startTooltip = QStringLiteral("Start Pomodoro for this task");
const QString removeTooltip = QStringLiteral("Click to remove one 🍅");

/// The tab over real models and files, in a window of its own.
class Tab
{
public:
    explicit Tab(const QByteArray& note = plainNote)
        : services(note)
    {
        auto* layout = new QVBoxLayout(&host);
        layout->setContentsMargins({});
        layout->addWidget(view);
        host.resize(460, 500);
        host.show();
        host.activateWindow();
        isActive = QTest::qWaitForWindowActive(&host);
        view->setTabShown(true);
        settle();
    }

    void settle()
    {
        services.loop.runQueued();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
    /// Another program writes the note, and the tab hears of it.
    void writeNote(const QByteArray& note)
    {
        writeTestFile(services.notePath, note);
        services.daily.loadTodayNote();
        settle();
    }
    template<typename Widget = QPushButton>
    Widget* find(const QString& name)
    {
        return named<Widget>(host, name);
    }
    void click(const QString& name) { click(find<QAbstractButton>(name)); }
    void click(QWidget* widget)
    {
        QVERIFY(widget != nullptr);
        QTest::mouseClick(widget, Qt::LeftButton);
        settle();
    }
    QWidget* taskRow(const QString& text)
    {
        const auto isGroup = [](QWidget* widget) {
            return QAccessible::queryAccessibleInterface(widget)->role() == QAccessible::Grouping;
        };
        const QList<QWidget*> all = allNamed<QWidget>(host, text);
        const auto found = std::find_if(all.begin(), all.end(), isGroup);
        return found != all.end() ? *found : nullptr;
    }
    QStringList taskTexts()
    {
        QStringList texts;
        for (const QCheckBox* box : host.findChildren<QCheckBox*>()) {
            if (box->isVisible()) {
                texts.append(spoken(const_cast<QCheckBox*>(box)));
            }
        }
        return texts;
    }
    QWidget* sheet(const QString& name)
    {
        QWidget* found = named<QWidget>(host, name);
        return found != nullptr && QAccessible::queryAccessibleInterface(found)->role() == QAccessible::Dialog
                   ? found
                   : nullptr;
    }
    bool says(const QString& text) { return visibleTexts(host).contains(text); }
    void sendAlert()
    {
        const CoachAlert alert{QStringLiteral("a1"),
                               QStringLiteral("now"),
                               QStringLiteral("the plan"),
                               QStringLiteral("something else"),
                               1,
                               QStringLiteral("pending")};
        writeTestFile(services.signalManager.coachAlertURL(), encodeJson(alert.toJson()));
        services.events.report(services.signalManager.coachAlertURL(), FileEventSource::Event::Written);
        settle();
    }

    TestServices services;
    DailyTabModel model{DailyTabModel::Services{services.daily, services.signalManager, services.controller,
                                                services.notifications, services.loop}};
    QWidget host;
    DailyTabView* view = new DailyTabView(model, host);
    bool isActive = false;
};

} // namespace

class DailyTabViewTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void note_isShownInShort()
    {
        Tab tab;
        for (const char* text : {"Thursday, Jan 22", "FOCUS", "Ship it", "TASKS", "Publish visuals", "+3", "COACH",
                                 "Visuals first?", "WORK DONE"}) {
            QVERIFY2(tab.says(QString::fromUtf8(text)), text);
        }
        const QStringList texts = visibleTexts(tab.host);
        QVERIFY(tab.says(QStringLiteral("✅ first")));
        QVERIFY(texts.indexOf(QStringLiteral("✅ second")) < texts.indexOf(QStringLiteral("✅ first")));
        QWidget* done = tab.taskRow(QStringLiteral("Review notes 🍅🍅"));
        QVERIFY(named<QCheckBox>(*done, QStringLiteral("Review notes 🍅🍅"))->isChecked());
        QCOMPARE(allNamed<QPushButton>(*done, removeTooltip).size(), 2);
        QVERIFY(named<QPushButton>(*done, startTooltip) == nullptr);
        QWidget* deep = tab.taskRow(QStringLiteral("Deep work 🍅🍅🍅🍅🍅🍅🍅🍅🍅"));
        QCOMPARE(allNamed<QPushButton>(*deep, removeTooltip).size(), 6);
        QVERIFY(named<QPushButton>(*deep, startTooltip) != nullptr);
    }
    void missingParts_areLeftOut_data()
    {
        QTest::addColumn<QByteArray>("note");
        QTest::addColumn<QStringList>("texts");
        QTest::newRow("no note") << QByteArray() << QStringList{QStringLiteral("No daily note")};
        QTest::newRow("empty") << QByteArray("")
                               << QStringList{QStringLiteral("FOCUS"), QStringLiteral("No focus set")};
    }
    void missingParts_areLeftOut()
    {
        QFETCH(QByteArray, note);
        QFETCH(QStringList, texts);
        Tab tab(note);
        QCOMPARE(visibleTexts(tab.host).mid(1), texts);
        QVERIFY(tab.find(QStringLiteral("Add task")) == nullptr);
        QVERIFY(note.isNull() || !tab.find(QStringLiteral("Mark focus done"))->isEnabled());

        writeTestFile(tab.services.notePath, plainNote);
        tab.click(QStringLiteral("Refresh"));
        QVERIFY(tab.says(QStringLiteral("Publish visuals")));
    }
    void loading_leavesTheNoteOnScreen()
    {
        Tab tab;
        tab.services.daily.loadTodayNote();
        QVERIFY(tab.says(QStringLiteral("Publish visuals")));
        QVERIFY(!tab.says(QStringLiteral("Loading...")));
    }

    void focus_isEditedMarkedDoneAndCancelled()
    {
        Tab tab;
        tab.click(QStringLiteral("Edit focus"));
        auto* field = tab.find<QLineEdit>(QStringLiteral("Focus"));
        QVERIFY(field->hasFocus());
        QCOMPARE(field->text(), QStringLiteral("Ship it"));
        QTest::keyClicks(field, QStringLiteral(" today "));
        QTest::keyClick(field, Qt::Key_Return);
        QCOMPARE(tab.services.note(), plainNote);
        tab.click(QStringLiteral("Save"));
        QCOMPARE(tab.services.focus(), QStringLiteral("Ship it today"));
        QVERIFY(tab.says(QStringLiteral("Ship it today")));

        tab.click(QStringLiteral("Mark focus done"));
        QVERIFY(tab.says(QStringLiteral("✓ Done! What's next?")));
        QVERIFY(field->text().isEmpty());
        tab.click(QStringLiteral("Cancel"));
        QVERIFY(tab.says(QStringLiteral("Ship it today")));
        tab.click(QStringLiteral("Mark focus done"));
        QTest::keyClicks(field, QStringLiteral("Next"));
        tab.click(QStringLiteral("Start"));
        QCOMPARE(tab.services.focus(), QStringLiteral("Next"));
    }
    void tasks_areTickedAddedAndLoseTomatoes()
    {
        Tab tab;
        QWidget* row = tab.taskRow(QStringLiteral("Publish visuals"));
        tab.click(named<QCheckBox>(*row, QStringLiteral("Publish visuals")));
        QVERIFY(tab.services.note().contains("- [x] Publish visuals\n"));
        QVERIFY(named<QCheckBox>(*row, QStringLiteral("Publish visuals"))->isChecked());

        tab.click(named<QPushButton>(*tab.taskRow(QStringLiteral("Review notes 🍅🍅")), removeTooltip));
        QVERIFY(tab.services.note().contains("- [x] Review notes🍅\n"));

        tab.click(QStringLiteral("Add task"));
        auto* field = tab.find<QLineEdit>(QStringLiteral("New task"));
        QVERIFY(field->hasFocus());
        QTest::keyClick(field, Qt::Key_Return);
        QVERIFY(field->isVisible());
        QTest::keyClicks(field, QStringLiteral("Buy milk"));
        QTest::keyClick(field, Qt::Key_Return);
        tab.settle();
        QVERIFY(tab.services.note().contains("- [ ] Buy milk\n"));
        QVERIFY(!field->isVisible());
        QVERIFY(tab.find(QStringLiteral("Add task"))->hasFocus());
        tab.click(QStringLiteral("Add task"));
        QTest::keyClicks(field, QStringLiteral("never mind"));
        tab.click(QStringLiteral("Cancel task"));
        QVERIFY(!tab.services.note().contains("never mind"));
    }
    void failedEdit_leavesTheCheckAsTheNoteHasIt()
    {
        Tab tab;
        QVERIFY(QFile::remove(tab.services.notePath));
        auto* check = tab.find<QCheckBox>(QStringLiteral("Publish visuals"));
        QTest::mouseClick(check, Qt::LeftButton);
        QVERIFY(!check->isChecked());
    }

    void typing_survivesAReload_data()
    {
        QTest::addColumn<QString>("opener");
        QTest::addColumn<QString>("field");
        QTest::newRow("focus") << QStringLiteral("Edit focus") << QStringLiteral("Focus");
        QTest::newRow("task") << QStringLiteral("Add task") << QStringLiteral("New task");
    }
    void typing_survivesAReload()
    {
        QFETCH(QString, opener);
        QFETCH(QString, field);
        Tab tab;
        tab.click(opener);
        auto* edit = tab.find<QLineEdit>(field);
        edit->clear();
        QTest::keyClicks(edit, QStringLiteral("abc"));
        QTest::keyClick(edit, Qt::Key_Left);
        tab.writeNote("## Today's Focus\n**Other**\n## Tasks\n- [ ] new one\n- [x] Review notes 🍅🍅\n");
        QVERIFY(edit->hasFocus());
        QCOMPARE(edit->text(), QStringLiteral("abc"));
        QTest::keyClicks(edit, QStringLiteral("x"));
        QCOMPARE(edit->text(), QStringLiteral("abxc"));
    }
    void keyboard_staysOnItsTaskWhenOthersComeAndGo()
    {
        Tab tab;
        auto* check = tab.find<QCheckBox>(QStringLiteral("Publish visuals"));
        check->setFocus();
        tab.writeNote("## Tasks\n- [ ] one\n- [ ] two\n- [ ] Publish visuals\n- [ ] four\n");
        QCOMPARE(tab.taskTexts().size(), 4);
        QVERIFY(check->hasFocus());
        QCOMPARE(spoken(check), QStringLiteral("Publish visuals"));
        QTest::keyClick(check, Qt::Key_Space);
        tab.settle();
        QVERIFY(tab.services.note().contains("- [x] Publish visuals\n"));
        // The rows are walked in the order of the note, not of their making.
        auto* two = tab.find<QCheckBox>(QStringLiteral("two"));
        two->setFocus();
        QTest::keyClick(two, Qt::Key_Tab);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QVERIFY(check->hasFocus());

        tab.writeNote("## Tasks\n- [x] Publish visuals\n");
        QVERIFY(check->hasFocus());
        QCOMPARE(tab.taskTexts(), QStringList{QStringLiteral("Publish visuals")});
    }
    void lastTomatoTakenByKey_leavesTheKeyboardInTheRow()
    {
        Tab tab("## Tasks\n- [ ] a 🍅\n- [ ] b\n");
        auto* tomato = tab.find(removeTooltip);
        tomato->setFocus();
        QTest::keyClick(tomato, Qt::Key_Return);
        tab.settle();
        QVERIFY(tab.services.note().contains("- [ ] a\n"));
        QVERIFY(tab.find<QCheckBox>(QStringLiteral("a"))->hasFocus());
    }
    void scrolledPosition_staysThroughAReload()
    {
        QByteArray note = "## Tasks\n";
        for (int i = 0; i < 60; ++i) {
            note += "- [ ] task " + QByteArray::number(i) + "\n";
        }
        Tab tab(note);
        QScrollBar* bar = nullptr;
        for (QScrollArea* area : tab.view->findChildren<QScrollArea*>()) {
            bar = area->verticalScrollBar();
        }
        bar->setValue(900);
        QCOMPARE(bar->value(), 900);
        tab.writeNote(note.replace("task 30\n", "task 30 🍅\n"));
        QCOMPARE(bar->value(), 900);
    }

    void pomodoro_isStartedPausedAndStopped()
    {
        Tab tab;
        tab.services.setInterval(5);
        tab.click(named<QPushButton>(*tab.taskRow(QStringLiteral("Publish visuals")), startTooltip));
        QVERIFY(tab.find(QStringLiteral("Start Pomodoro for a task")) == nullptr);
        QVERIFY(tab.services.controller.isRunning());
        tab.click(QStringLiteral("Pause"));
        QVERIFY(tab.services.controller.isPaused());
        tab.click(QStringLiteral("Resume"));
        QVERIFY(!tab.services.controller.isPaused());
        auto* stop = tab.find(QStringLiteral("Stop & remove from task"));
        stop->setFocus();
        QVERIFY(stop->hasFocus());
        QTest::keyClick(stop, Qt::Key_Return);
        QVERIFY(!tab.services.controller.isRunning());
        QVERIFY(tab.find(QStringLiteral("Start Pomodoro for a task"))->hasFocus());
    }
    void hiddenPanel_goesOnCounting()
    {
        Tab tab;
        tab.services.setInterval(5);
        tab.click(named<QPushButton>(*tab.taskRow(QStringLiteral("Publish visuals")), startTooltip));
        tab.host.hide();
        tab.services.loop.advance(5min);
        QVERIFY(tab.services.note().contains("- [ ] Publish visuals 🍅\n"));
    }
    void anotherTab_endsTheCounting()
    {
        Tab tab;
        tab.services.setInterval(5);
        tab.click(named<QPushButton>(*tab.taskRow(QStringLiteral("Publish visuals")), startTooltip));
        tab.view->setTabShown(false);
        tab.services.loop.advance(5min);
        QCOMPARE(tab.services.note(), plainNote);
    }

    void picker_startsAnOpenTask()
    {
        Tab tab;
        tab.click(QStringLiteral("Start Pomodoro for a task"));
        QWidget* sheet = tab.sheet(QStringLiteral("Start Pomodoro"));
        QVERIFY(sheet != nullptr);
        QVERIFY(tab.says(QStringLiteral("Interval: 20 min")));
        QVERIFY(named<QPushButton>(*sheet, QStringLiteral("Review notes 🍅🍅")) == nullptr);
        QVERIFY(visibleTexts(*sheet).contains(QStringLiteral("🍅🍅🍅🍅🍅+4")));
        tab.click(named<QPushButton>(*sheet, QStringLiteral("Publish visuals")));
        QVERIFY(tab.sheet(QStringLiteral("Start Pomodoro")) == nullptr);
        QCOMPARE(tab.model.activeTaskLineNumber(), std::optional<qint64>(5));
        QVERIFY(tab.find(QStringLiteral("Pause"))->hasFocus());
    }
    void picker_withoutTasksSaysSo_data()
    {
        QTest::addColumn<QByteArray>("note");
        QTest::addColumn<bool>("isSaid");
        QTest::newRow("none") << QByteArray("## Tasks\n") << true;
        QTest::newRow("all done") << QByteArray("## Tasks\n- [x] a\n") << false;
    }
    void picker_withoutTasksSaysSo()
    {
        QFETCH(QByteArray, note);
        Tab tab(note);
        tab.click(QStringLiteral("Start Pomodoro for a task"));
        QTEST(tab.says(QStringLiteral("No tasks found")), "isSaid");
    }
    void sheet_keepsTheKeyboardUntilItCloses()
    {
        Tab tab;
        auto* opener = tab.find(QStringLiteral("Start Pomodoro for a task"));
        opener->setFocus();
        QTest::keyClick(opener, Qt::Key_Return);
        QWidget* sheet = tab.sheet(QStringLiteral("Start Pomodoro"));
        // Nothing is chosen yet: what is typed on goes nowhere.
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
        QVERIFY(sheet->isVisible());
        QVERIFY(!tab.services.controller.isRunning());
        for (int i = 0; i < 8; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QVERIFY(sheet->isAncestorOf(QApplication::focusWidget()));
        }
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QVERIFY(tab.sheet(QStringLiteral("Start Pomodoro")) == nullptr);
        QVERIFY(!tab.model.showPomodoroTaskPicker());
        QVERIFY(opener->hasFocus());
    }

    void alert_isAnswered_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<QByteArray>("response");
        QTest::addColumn<QString>("focus");
        QTest::newRow("change") << QStringLiteral("Intentional change") << QByteArray("intentional_pivot")
                                << QStringLiteral("Ship it");
        QTest::newRow("refocusing") << QStringLiteral("Refocusing now") << QByteArray("refocusing")
                                    << QStringLiteral("the plan");
        QTest::newRow("snooze") << QStringLiteral("Snooze") << QByteArray("snooze") << QStringLiteral("Ship it");
        QTest::newRow("closed") << QStringLiteral("Close") << QByteArray() << QStringLiteral("Ship it");
    }
    void alert_isAnswered()
    {
        QFETCH(QString, button);
        QFETCH(QByteArray, response);
        Tab tab;
        tab.sendAlert();
        QWidget* sheet = tab.sheet(QStringLiteral("Focus Check"));
        QVERIFY(sheet != nullptr);
        QVERIFY(tab.says(QStringLiteral("the plan")));
        QVERIFY(tab.says(QStringLiteral("something else")));
        tab.click(named<QPushButton>(*sheet, button));
        QVERIFY(tab.sheet(QStringLiteral("Focus Check")) == nullptr);
        QVERIFY(readTestFile(tab.services.signalManager.userResponseURL()).contains(response));
        QTEST(tab.services.focus(), "focus");
    }
    void alertInAnotherTab_waitsForThisOne()
    {
        Tab tab;
        tab.view->setTabShown(false);
        tab.sendAlert();
        QVERIFY(tab.sheet(QStringLiteral("Focus Check")) == nullptr);
        tab.view->setTabShown(true);
        QVERIFY(tab.sheet(QStringLiteral("Focus Check")) != nullptr);
        // Leaving takes the sheet along; coming back brings it again.
        tab.view->setTabShown(false);
        QVERIFY(tab.sheet(QStringLiteral("Focus Check")) == nullptr);
    }

    void footer_opensTheNoteAndKeepsTheCornerFree()
    {
        Tab tab;
        tab.click(QStringLiteral("Obsidian"));
        QCOMPARE(tab.services.workspace.opened.size(), 1);
        auto* open = tab.find(QStringLiteral("Obsidian"));
        const auto right = [&] { return open->mapTo(&tab.host, open->rect().bottomRight()).x(); };
        tab.view->setCornerReserve(68);
        QTRY_VERIFY(right() < 460 - 68);
        tab.view->setCornerReserve(0);
        QTRY_COMPARE(right(), 460 - 16 - 1);
    }
    void panelBackOnAnotherDay_showsThatDay()
    {
        Tab tab;
        tab.host.hide();
        tab.services.loop.setWallClock(QDateTime(QDate(2026, 1, 23), QTime(8, 0)));
        tab.host.show();
        tab.settle();
        QVERIFY(tab.says(QStringLiteral("Friday, Jan 23")));
        QVERIFY(tab.says(QStringLiteral("No daily note")));
    }
};

QTEST_MAIN(DailyTabViewTest)
#include "DailyTabViewTest.moc"

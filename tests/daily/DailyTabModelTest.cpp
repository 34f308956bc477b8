// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/DailyTabModel.h>
#include <support/TestServices.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>

namespace flitmark {

using namespace std::chrono_literals;
using Body = DailyTabModel::Body;
using Response = DailyTabModel::AlertResponse;

namespace {

const QByteArray note = "## Today's Focus\nShip it\n## Tasks\n- [ ] one\n- [x] two 🍅\n"
                        "- [ ] nine 🍅🍅🍅🍅🍅🍅🍅🍅🍅\n- [ ] six 🍅🍅🍅🍅🍅🍅\n"
                        "## Coach Notes\n- calm\n- kind\n## Work Done\n- first\n- second\n";

QByteArray alert(const QByteArray& id, const QByteArray& status = "pending")
{
    return "{\"alert_id\": \"" + id +
           "\", \"triggered_at\": \"now\", \"planned\": \"Write tests\", \"actual\": \"Videos\", "
           "\"misalignment_count\": 2, \"status\": \"" +
           status + "\"}";
}

} // namespace

class DailyTabModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void sections();
    void body();
    void demo();
    void editFocus();
    void markFocusDone();
    void saveFocus_blank_data();
    void saveFocus_blank();
    void addTask();
    void taskButtons();
    void picker_data();
    void picker();
    void pomodoro_creditsItsTask();
    void pomodoro_endsWithStopStartAndHiding();
    void controls();
    void alert_opensWhileShown();
    void alert_responses_data();
    void alert_responses();
    void noteGone_whileAPomodoroRuns();

private:
    /// Starts on `content` and shows the tab.
    void start(const QByteArray& content = note, DemoMode demoMode = DemoMode::Off);
    void complete()
    {
        Q_EMIT m_services->notifications.pomodoroCompleted();
        m_services->loop.runQueued();
    }
    void raiseAlert(const QByteArray& content);
    QByteArray lineOf(int number) const { return m_services->note().split('\n').value(number); }

    std::unique_ptr<TestServices> m_services;
    std::unique_ptr<DailyTabModel> m_model;
};

void DailyTabModelTest::cleanup()
{
    m_model.reset();
    m_services.reset();
}

void DailyTabModelTest::start(const QByteArray& content, DemoMode demoMode)
{
    cleanup();
    m_services = std::make_unique<TestServices>(content);
    m_model = std::make_unique<DailyTabModel>(DailyTabModel::Services{m_services->daily, m_services->signalManager,
                                                                      m_services->controller, m_services->notifications,
                                                                      m_services->loop},
                                              demoMode);
    m_model->tabShown();
    m_services->loop.runQueued();
}

void DailyTabModelTest::raiseAlert(const QByteArray& content)
{
    writeTestFile(m_services->signalManager.coachAlertURL(), content);
    m_services->events.report(m_services->signalManager.coachAlertURL(), FileEventSource::Event::Written);
    m_services->loop.runQueued();
}

void DailyTabModelTest::sections()
{
    start();
    QCOMPARE(m_model->headerDate(), QStringLiteral("Thursday, Jan 22"));
    QCOMPARE(m_model->focusText(), QStringLiteral("Ship it"));
    QCOMPARE(m_model->coachNotes(), QStringList({QStringLiteral("calm"), QStringLiteral("kind")}));
    QCOMPARE(m_model->workDone(), QStringList({QStringLiteral("second"), QStringLiteral("first")}));

    const QList<DailyTaskRow> rows = m_model->tasks();
    QCOMPARE(rows.size(), 4);
    QCOMPARE(rows[0].text, QStringLiteral("one"));
    QCOMPARE(rows[0].lineNumber, 3);
    QCOMPARE(rows[0].tomatoButtons, 0);
    QVERIFY(!rows[0].isCompleted && rows[1].isCompleted);
    QCOMPARE(rows[1].text, QStringLiteral("two 🍅"));
    QCOMPARE(rows[1].tomatoButtons, 1);
    QCOMPARE(rows[2].tomatoButtons, 6);
    QCOMPARE(rows[2].moreTomatoes, QStringLiteral("+3"));
    QCOMPARE(rows[3].tomatoButtons, 6);
    QCOMPARE(rows[3].moreTomatoes, QString());
    QCOMPARE(rows[3].id, m_services->daily.todayNote().tasks[3].id);
}

void DailyTabModelTest::body()
{
    start({});
    QCOMPARE(m_model->body(), Body::NoNote);
    QSignalSpy changes(m_model.get(), &DailyTabModel::noteChanged);
    writeTestFile(m_services->notePath, note);
    m_model->refresh();
    QCOMPARE(m_model->body(), Body::Loading);
    QCOMPARE(changes.size(), 1);
    m_services->loop.runQueued();
    QCOMPARE(m_model->body(), Body::Note);
    QVERIFY(changes.size() >= 2);
    m_model->openInObsidian();
    QCOMPARE(m_services->workspace.opened.size(), 1);
}

void DailyTabModelTest::demo()
{
    start(note, DemoMode::On);
    QSignalSpy changes(m_model.get(), &DailyTabModel::noteChanged);
    m_model->tabShown();
    QVERIFY(!m_services->daily.isLoading());
    QCOMPARE(changes.size(), 0);
    QCOMPARE(m_model->body(), Body::Demo);
    QCOMPARE(dailyTabDemo().tasks.size(), 5);
    QCOMPARE(dailyTabDemo().workDone.first(), QStringLiteral("✅ Header clipping fix deployed"));
}

void DailyTabModelTest::editFocus()
{
    start();
    QSignalSpy editor(m_model.get(), &DailyTabModel::focusEditorChanged);
    m_model->editFocus();
    QVERIFY(m_model->isEditingFocus() && !m_model->isSettingNewFocus());
    QCOMPARE(m_model->editedFocus(), QStringLiteral("Ship it"));
    QCOMPARE(m_model->saveFocusTitle(), QStringLiteral("Save"));
    m_model->setEditedFocus(QStringLiteral(" \tWrite tests "));
    m_model->saveFocus();
    QVERIFY(!m_model->isEditingFocus());
    QCOMPARE(editor.size(), 2);
    m_services->loop.runQueued();
    QCOMPARE(m_model->focusText(), QStringLiteral("Write tests"));
    QCOMPARE(lineOf(1), QByteArray("Write tests"));
}

void DailyTabModelTest::markFocusDone()
{
    start();
    m_model->editFocus();
    m_model->markFocusDone();
    QVERIFY(m_model->isSettingNewFocus() && !m_model->isEditingFocus());
    QCOMPARE(m_model->editedFocus(), QString());
    QCOMPARE(m_model->saveFocusTitle(), QStringLiteral("Start"));
    m_model->setEditedFocus(QStringLiteral("Write tests"));
    m_model->cancelFocus();
    QVERIFY(!m_model->isSettingNewFocus());
    QCOMPARE(m_services->note(), note);
    QCOMPARE(m_model->focusText(), QStringLiteral("Ship it"));

    start("## Focus\n## Tasks\n- [ ] one\n");
    QCOMPARE(m_model->focusText(), QStringLiteral("No focus set"));
    m_model->markFocusDone();
    QVERIFY(!m_model->isSettingNewFocus());
}

void DailyTabModelTest::saveFocus_blank_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << "";
    QTest::newRow("blank") << " \t ";
}

void DailyTabModelTest::saveFocus_blank()
{
    QFETCH(QString, text);
    start();
    m_model->markFocusDone();
    m_model->setEditedFocus(text);
    m_model->saveFocus();
    QVERIFY(!m_model->isSettingNewFocus());
    QCOMPARE(m_services->note(), note);
}

void DailyTabModelTest::addTask()
{
    start();
    m_model->startAddingTask();
    m_model->setNewTaskText(QStringLiteral(" \t "));
    m_model->saveNewTask();
    QVERIFY(m_model->isAddingTask());
    QCOMPARE(m_services->note(), note);

    m_model->setNewTaskText(QStringLiteral("  Call Ann "));
    m_model->saveNewTask();
    QVERIFY(!m_model->isAddingTask());
    QCOMPARE(m_model->newTaskText(), QString());
    m_services->loop.runQueued();
    QCOMPARE(m_model->tasks().last().text, QStringLiteral("Call Ann"));

    m_model->startAddingTask();
    m_model->setNewTaskText(QStringLiteral("Never mind"));
    m_model->cancelNewTask();
    QVERIFY(!m_model->isAddingTask());
    QCOMPARE(m_model->newTaskText(), QString());
    QCOMPARE(m_model->tasks().size(), 5);
}

void DailyTabModelTest::taskButtons()
{
    start();
    m_model->toggleTask(3);
    m_services->loop.runQueued();
    QCOMPARE(lineOf(3), QByteArray("- [x] one"));
    m_model->removeTomato(4);
    m_services->loop.runQueued();
    QCOMPARE(m_model->tasks()[1].tomatoButtons, 0);
}

void DailyTabModelTest::picker_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("hasTasks");
    QTest::addColumn<QStringList>("rows");

    QTest::newRow("open tasks") << note << true
                                << QStringList({QStringLiteral("one "), QStringLiteral("nine 🍅🍅🍅🍅🍅🍅🍅🍅🍅 🍅🍅🍅🍅🍅+4"),
                                                QStringLiteral("six 🍅🍅🍅🍅🍅🍅 🍅🍅🍅🍅🍅+1")});
    QTest::newRow("all done") << QByteArray("## Tasks\n- [x] one\n") << true << QStringList();
    QTest::newRow("no tasks") << QByteArray("## Focus\nShip it\n") << false << QStringList();
}

void DailyTabModelTest::picker()
{
    QFETCH(QByteArray, content);
    start(content);
    m_model->setShowPomodoroTaskPicker(true);
    QTEST(m_model->hasTasks(), "hasTasks");
    QStringList rows;
    for (const TaskPickerRow& row : m_model->pickerRows()) {
        rows.append(row.text + u' ' + row.tomatoes);
    }
    QTEST(rows, "rows");
    QCOMPARE(m_model->intervalText(), QStringLiteral("Interval: 20 min"));
    QSignalSpy changes(m_model.get(), &DailyTabModel::intervalTextChanged);
    m_services->setInterval(25);
    QCOMPARE(changes.size(), 1);
    QCOMPARE(m_model->intervalText(), QStringLiteral("Interval: 25 min"));
}

void DailyTabModelTest::pomodoro_creditsItsTask()
{
    start();
    m_model->setShowPomodoroTaskPicker(true);
    m_model->startPomodoro(3);
    QVERIFY(!m_model->showPomodoroTaskPicker());
    QVERIFY(m_services->controller.isRunning());
    QCOMPARE(m_model->activeTaskLineNumber(), std::optional<qint64>(3));
    m_services->loop.advance(20min);
    QCOMPARE(lineOf(3), QByteArray("- [ ] one 🍅"));
    m_services->loop.advance(20min);
    QCOMPARE(lineOf(3), QByteArray("- [ ] one 🍅 🍅"));
    QCOMPARE(m_model->activeTaskLineNumber(), std::optional<qint64>(3));
}

void DailyTabModelTest::pomodoro_endsWithStopStartAndHiding()
{
    start();
    m_model->startPomodoro(3);
    m_model->startPomodoro(6);
    complete();
    QCOMPARE(lineOf(3), QByteArray("- [ ] one"));
    QCOMPARE(m_model->tasks()[3].moreTomatoes, QStringLiteral("+1"));

    m_model->startPomodoro(3);
    m_model->stopPomodoro();
    QVERIFY(!m_services->controller.isRunning());
    QVERIFY(!m_model->activeTaskLineNumber());
    complete();
    QCOMPARE(lineOf(3), QByteArray("- [ ] one"));

    m_model->startPomodoro(3);
    m_model->tabHidden();
    complete();
    QCOMPARE(lineOf(3), QByteArray("- [ ] one"));
    QVERIFY(m_services->controller.isRunning());
    QCOMPARE(m_model->activeTaskLineNumber(), std::optional<qint64>(3));
}

void DailyTabModelTest::controls()
{
    start();
    m_model->startPomodoro(3);
    QSignalSpy states(m_model.get(), &DailyTabModel::timerStateChanged);
    m_model->pauseOrResume();
    QVERIFY(m_model->isTimerPaused());
    m_model->pauseOrResume();
    QVERIFY(!m_model->isTimerPaused());
    m_model->pauseOrResume();
    m_model->resetTimer();
    QVERIFY(!m_model->isTimerPaused());
    QCOMPARE(states.size(), 4);
}

void DailyTabModelTest::alert_opensWhileShown()
{
    start();
    raiseAlert(alert("a"));
    QVERIFY(m_model->showCoachAlert());
    QCOMPARE(m_model->alertPlanned(), QStringLiteral("Write tests"));
    QCOMPARE(m_model->alertActual(), QStringLiteral("Videos"));
    m_model->closeCoachAlert();
    QVERIFY(!m_model->showCoachAlert());
    raiseAlert(alert("a"));
    QVERIFY(m_model->showCoachAlert());

    m_model->closeCoachAlert();
    m_model->tabHidden();
    raiseAlert(alert("b"));
    QVERIFY(!m_model->showCoachAlert());
    m_model->tabShown();
    QVERIFY(m_model->showCoachAlert());
}

void DailyTabModelTest::alert_responses_data()
{
    QTest::addColumn<Response>("response");
    QTest::addColumn<QString>("written");
    QTest::addColumn<QString>("focus");

    QTest::newRow("intentional") << Response::IntentionalChange << "intentional_pivot"
                                 << "Ship it";
    QTest::newRow("refocusing") << Response::Refocusing << "refocusing"
                                << "Write tests";
    QTest::newRow("snooze") << Response::Snooze << "snooze"
                            << "Ship it";
}

void DailyTabModelTest::alert_responses()
{
    QFETCH(Response, response);
    QFETCH(QString, written);
    QFETCH(QString, focus);
    start();
    m_model->respondToAlert(response);
    QVERIFY(!QFileInfo::exists(m_services->signalManager.userResponseURL()));

    raiseAlert(alert("a1"));
    m_model->respondToAlert(response);
    QVERIFY(!m_model->showCoachAlert());
    m_services->loop.runQueued();
    const QByteArray answer = readTestFile(m_services->signalManager.userResponseURL());
    const QJsonObject object = QJsonDocument::fromJson(answer).object();
    QCOMPARE(object[QStringLiteral("alert_id")].toString(), QStringLiteral("a1"));
    QCOMPARE(object[QStringLiteral("response")].toString(), written);
    QCOMPARE(object[QStringLiteral("note")].toString(), QString());
    QCOMPARE(m_model->focusText(), focus);
    QVERIFY(!m_model->showCoachAlert());
    QCOMPARE(m_model->alertPlanned(), QString());
}

void DailyTabModelTest::noteGone_whileAPomodoroRuns()
{
    start();
    m_model->startPomodoro(3);
    QVERIFY(QFile::remove(m_services->notePath));
    m_services->loop.advance(20min);
    QVERIFY(!QFileInfo::exists(m_services->notePath));
    m_model->refresh();
    m_services->loop.advance(20min);
    QCOMPARE(m_model->body(), Body::NoNote);
    QCOMPARE(m_model->tasks().size(), 0);
    QVERIFY(m_services->controller.isRunning());
    QVERIFY(!QFileInfo::exists(m_services->notePath));
}

} // namespace flitmark

QTEST_GUILESS_MAIN(flitmark::DailyTabModelTest)
#include "DailyTabModelTest.moc"

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/DailyTabModel.h>
#include <support/TestServices.h>

#include <QSignalSpy>

namespace flitmark {

using namespace std::chrono_literals;
using Body = DailyTabModel::Body;
using Response = DailyTabModel::AlertResponse;

namespace {

const QByteArray note = "## Today's Focus\nShip it\n## Tasks\n- [ ] one\n- [x] two 🍅\n- [ ] nine 🍅🍅🍅🍅🍅🍅🍅🍅🍅\n"
                        "- [ ] six 🍅🍅🍅🍅🍅🍅\n## Coach Notes\n- calm\n## Work Done\n- first\n- second\n";

} // namespace

class DailyTabModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { start(note); }
    void cleanup()
    {
        m_model.reset();
        m_services.reset();
    }

    void texts()
    {
        QCOMPARE(m_model->headerDate(), QStringLiteral("Thursday, Jan 22"));
        QCOMPARE(m_model->workDone(), QStringList({QStringLiteral("second"), QStringLiteral("first")}));
        QStringList rows;
        for (const DailyTaskRow& row : m_model->tasks()) {
            rows.append(QStringLiteral("%1 %2 %3").arg(row.lineNumber).arg(row.tomatoButtons).arg(row.moreTomatoes));
        }
        QCOMPARE(rows.join(u'|'), QStringLiteral("3 0 |4 1 |5 6 +3|6 6 "));
        rows.clear();
        for (const TaskPickerRow& row : m_model->pickerRows()) {
            rows.append(row.text.section(u' ', 0, 0) + row.tomatoes);
        }
        QCOMPARE(rows.join(u'|'), QStringLiteral("one|nine🍅🍅🍅🍅🍅+4|six🍅🍅🍅🍅🍅+1"));
        QSignalSpy intervals(m_model.get(), &DailyTabModel::intervalTextChanged);
        m_services->setInterval(25);
        QCOMPARE(intervals.size(), 1);
        QCOMPARE(m_model->intervalText(), QStringLiteral("Interval: 25 min"));
    }

    void body()
    {
        start({});
        QCOMPARE(m_model->body(), Body::NoNote);
        QVERIFY(!m_model->hasTasks());
        writeTestFile(m_services->notePath, "## Focus\n## Tasks\n- [x] one\n");
        QSignalSpy changes(m_model.get(), &DailyTabModel::noteChanged);
        m_model->refresh();
        QCOMPARE(m_model->body(), Body::Loading);
        QCOMPARE(changes.size(), 1);
        m_services->loop.runQueued();
        QCOMPARE(m_model->body(), Body::Note);
        QVERIFY(m_model->hasTasks() && m_model->pickerRows().isEmpty());
        QCOMPARE(m_model->focusText(), QStringLiteral("No focus set"));
        m_model->markFocusDone();
        QVERIFY(!m_model->isSettingNewFocus());
        start(note, DemoMode::On);
        QCOMPARE(m_model->body(), Body::Demo);
    }

    void focusEditor()
    {
        m_model->markFocusDone();
        QCOMPARE(m_model->editedFocus(), QString());
        QCOMPARE(m_model->saveFocusTitle(), QStringLiteral("Start"));
        m_model->setEditedFocus(QStringLiteral("Write"));
        m_model->cancelFocus();
        m_model->markFocusDone();
        m_model->setEditedFocus(QStringLiteral(" \t "));
        m_model->saveFocus();
        QVERIFY(!m_model->isSettingNewFocus());
        QCOMPARE(m_services->note(), note);

        m_model->editFocus();
        QCOMPARE(m_model->editedFocus(), QStringLiteral("Ship it"));
        QCOMPARE(m_model->saveFocusTitle(), QStringLiteral("Save"));
        m_model->setEditedFocus(QStringLiteral(" \tWrite "));
        m_model->saveFocus();
        m_services->loop.runQueued();
        QVERIFY(!m_model->isEditingFocus());
        QCOMPARE(m_services->focus(), QStringLiteral("Write"));
    }

    void taskRow()
    {
        m_model->startAddingTask();
        m_model->setNewTaskText(QStringLiteral(" \t "));
        m_model->saveNewTask();
        QVERIFY(m_model->isAddingTask());
        QCOMPARE(m_services->note(), note);
        m_model->setNewTaskText(QStringLiteral("  Call Ann "));
        m_model->saveNewTask();
        m_model->toggleTask(3);
        m_model->removeTomato(4);
        QCOMPARE(m_services->note(), QByteArray(note)
                                         .replace("[ ] one", "[x] one")
                                         .replace("two 🍅", "two")
                                         .replace("## Coach", "- [ ] Call Ann\n## Coach"));
    }

    void pomodoro_creditsItsTask()
    {
        m_model->startPomodoro(6);
        m_model->startPomodoro(3);
        m_services->loop.advance(40min);
        QCOMPARE(m_services->note(), QByteArray(note).replace("] one", "] one 🍅 🍅"));
        m_model->pauseOrResume();
        QVERIFY(m_model->isTimerPaused());
        m_model->resetTimer();
        QVERIFY(!m_model->isTimerPaused());
        m_model->stopPomodoro();
        Q_EMIT m_services->notifications.pomodoroCompleted();
        m_model->startPomodoro(3);
        m_model->tabHidden();
        m_services->loop.advance(20min);
        QCOMPARE(m_services->note(), QByteArray(note).replace("] one", "] one 🍅 🍅"));
        QCOMPARE(m_model->activeTaskLineNumber(), std::optional<qint64>(3));

        m_model->tabShown();
        QVERIFY(QFile::remove(m_services->notePath));
        m_services->loop.advance(20min);
        QVERIFY(!QFileInfo::exists(m_services->notePath) && m_services->controller.isRunning());
    }

    void alert_data()
    {
        QTest::addColumn<Response>("response");
        QTest::addColumn<QByteArray>("written");
        QTest::addColumn<QString>("focus");
        QTest::newRow("change") << Response::IntentionalChange << QByteArray("intentional_pivot") << "Ship it";
        QTest::newRow("refocusing") << Response::Refocusing << QByteArray("refocusing") << "Write";
        QTest::newRow("snooze") << Response::Snooze << QByteArray("snooze") << "Ship it";
    }

    void alert()
    {
        QFETCH(Response, response);
        QFETCH(QByteArray, written);
        m_model->respondToAlert(response);
        QVERIFY(!QFileInfo::exists(m_services->signalManager.userResponseURL()));
        raiseAlert();
        QVERIFY(m_model->showCoachAlert());
        QCOMPARE(m_model->alertActual(), QStringLiteral("Videos"));
        m_model->closeCoachAlert();
        m_model->tabHidden();
        raiseAlert();
        QVERIFY(!m_model->showCoachAlert());
        m_model->tabShown();
        QVERIFY(m_model->showCoachAlert());
        m_model->respondToAlert(response);
        m_services->loop.runQueued();
        QVERIFY(!m_model->showCoachAlert());
        QVERIFY(readTestFile(m_services->signalManager.userResponseURL()).contains("\"response\": \"" + written));
        QTEST(m_model->focusText(), "focus");
    }

private:
    /// Starts on `content` and shows the tab.
    void start(const QByteArray& content, DemoMode demoMode = DemoMode::Off)
    {
        cleanup();
        m_services = std::make_unique<TestServices>(content);
        TestServices& s = *m_services;
        m_model = std::make_unique<DailyTabModel>(
            DailyTabModel::Services{s.daily, s.signalManager, s.controller, s.notifications, s.loop}, demoMode);
        m_model->tabShown();
        s.loop.runQueued();
    }
    void raiseAlert()
    {
        const QString path = m_services->signalManager.coachAlertURL();
        writeTestFile(path, R"({"alert_id": "a", "triggered_at": "", "planned": "Write", "actual": "Videos",
                                "misalignment_count": 2, "status": "pending"})");
        m_services->events.report(path, FileEventSource::Event::Written);
        m_services->loop.runQueued();
    }

    std::unique_ptr<TestServices> m_services;
    std::unique_ptr<DailyTabModel> m_model;
};

} // namespace flitmark

QTEST_GUILESS_MAIN(flitmark::DailyTabModelTest)
#include "DailyTabModelTest.moc"

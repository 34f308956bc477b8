// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/DailyTabModel.h>
#include <support/TestServices.h>

namespace flitmark {

using namespace std::chrono_literals;

namespace {

const QByteArray note = "## Today's Focus\nShip it\n## Tasks\n- [ ] one\n- [x] two 🍅\n- [ ] nine 🍅🍅🍅🍅🍅🍅🍅🍅🍅\n"
                        "- [ ] six 🍅🍅🍅🍅🍅🍅\n## Coach Notes\n- calm\n## Work Done\n- first\n- second\n";

} // namespace

class DailyTabModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_services = std::make_unique<TestServices>(note);
        TestServices& s = *m_services;
        m_model = std::make_unique<DailyTabModel>(
            DailyTabModel::Services{s.daily, s.signalManager, s.controller, s.notifications, s.loop});
        m_model->tabShown();
        s.loop.runQueued();
    }
    void cleanup()
    {
        m_model.reset();
        m_services.reset();
    }

    void rows_areCutToWhatFits()
    {
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
    }

    void blankEntries_writeNothing()
    {
        m_model->markFocusDone();
        QCOMPARE(m_model->editedFocus(), QString());
        m_model->setEditedFocus(QStringLiteral(" \t "));
        m_model->saveFocus();
        m_model->startAddingTask();
        m_model->setNewTaskText(QStringLiteral(" \t "));
        m_model->saveNewTask();
        QVERIFY(!m_model->isSettingNewFocus() && m_model->isAddingTask());
        QCOMPARE(m_services->note(), note);
        m_model->setNewTaskText(QStringLiteral("  Call Ann "));
        m_model->saveNewTask();
        QCOMPARE(m_services->note(), QByteArray(note).replace("## Coach", "- [ ] Call Ann\n## Coach"));
    }

    void pomodoro_creditsItsTask()
    {
        m_model->startPomodoro(6);
        m_model->startPomodoro(3);
        m_services->loop.advance(40min);
        const QByteArray credited = QByteArray(note).replace("] one", "] one 🍅 🍅");
        QCOMPARE(m_services->note(), credited);
        m_model->stopPomodoro();
        Q_EMIT m_services->notifications.pomodoroCompleted();
        m_model->startPomodoro(3);
        m_model->tabHidden();
        m_services->loop.advance(20min);
        QCOMPARE(m_services->note(), credited);
        QCOMPARE(m_model->activeTaskLineNumber(), std::optional<qint64>(3));

        m_model->tabShown();
        QVERIFY(QFile::remove(m_services->notePath));
        m_services->loop.advance(20min);
        QVERIFY(!QFileInfo::exists(m_services->notePath) && m_services->controller.isRunning());
    }

private:
    std::unique_ptr<TestServices> m_services;
    std::unique_ptr<DailyTabModel> m_model;
};

} // namespace flitmark

QTEST_GUILESS_MAIN(flitmark::DailyTabModelTest)
#include "DailyTabModelTest.moc"

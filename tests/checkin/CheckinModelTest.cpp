// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <checkin/CheckinModel.h>
#include <support/TestServices.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>

namespace flitmark {

using Kind = CheckinResponse::Kind;

namespace {

QByteArray noteWith(const QByteArray& focus, const QByteArray& log = {}, int count = 0)
{
    return "## Today's Focus\n" + focus + "\n## Pomodoro Log\n**Today:** " + QByteArray::number(count) +
           "/8 completed\n| # | Time | Focus |\n|---|---|---|\n" + log;
}

} // namespace

class CheckinModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void texts();
    void modes();
    void onTrack_data();
    void onTrack();
    void submit_data();
    void submit();
    void closing();
    void answersOnce();
    void noteGone_staysClear();

private:
    /// Starts on `note` and opens the popup.
    void start(const QByteArray& note);

    std::unique_ptr<TestServices> m_services;
    std::unique_ptr<CheckinModel> m_model;
    QList<CheckinResponse> m_responses;
};

void CheckinModelTest::start(const QByteArray& note)
{
    cleanup();
    m_services = std::make_unique<TestServices>(note);
    m_responses.clear();
    m_model = std::make_unique<CheckinModel>(m_services->daily, m_services->signalManager, m_services->loop,
                                             [this](const CheckinResponse& response) { m_responses.append(response); });
}

void CheckinModelTest::cleanup()
{
    m_model.reset();
    m_services.reset();
}

void CheckinModelTest::texts()
{
    start(noteWith(""));
    QCOMPARE(m_model->countText(), QString());
    QCOMPARE(m_model->focusText(), QStringLiteral("No focus"));
    QCOMPARE(m_model->snoozeTitle(), QStringLiteral("Snooze 20m"));
    QCOMPARE(m_model->timeText(), QStringLiteral("09:30"));

    QSignalSpy noteChanges(m_model.get(), &CheckinModel::noteChanged);
    QSignalSpy titleChanges(m_model.get(), &CheckinModel::snoozeTitleChanged);
    writeTestFile(m_services->notePath, noteWith("Ship it", "", 3));
    m_services->daily.loadTodayNote();
    m_services->loop.runQueued();
    m_services->setInterval(25);
    QCOMPARE(noteChanges.size(), 1);
    QCOMPARE(titleChanges.size(), 1);
    QCOMPARE(m_model->countText(), QStringLiteral("3×🍅"));
    QCOMPARE(m_model->focusText(), QStringLiteral("Ship it"));
    QCOMPARE(m_model->snoozeTitle(), QStringLiteral("Snooze 25m"));
}

void CheckinModelTest::modes()
{
    start(noteWith("Ship it"));
    QSignalSpy modes(m_model.get(), &CheckinModel::modeChanged);
    m_model->startFocusUpdate();
    QVERIFY(m_model->isUpdatingFocus() && !m_model->isCompletingTask());
    QCOMPARE(m_model->newFocus(), QStringLiteral("Ship it"));
    QCOMPARE(m_model->entryLabel(), QStringLiteral("New focus:"));
    QCOMPARE(m_model->submitTitle(), QStringLiteral("Save"));

    m_model->startCompletingTask();
    QVERIFY(m_model->isCompletingTask() && !m_model->isUpdatingFocus());
    QCOMPARE(m_model->newFocus(), QString());
    QCOMPARE(m_model->entryLabel(), QStringLiteral("What's next?"));
    QCOMPARE(m_model->submitTitle(), QStringLiteral("Start"));

    m_model->setNewFocus(QStringLiteral("Half a word"));
    m_model->cancel();
    QVERIFY(!m_model->isCompletingTask() && !m_model->isUpdatingFocus());
    QCOMPARE(m_model->newFocus(), QString());
    QCOMPARE(modes.size(), 3);

    m_model->setNewFocus(QStringLiteral("Without an entry"));
    m_model->submit();
    QVERIFY(m_responses.isEmpty());
    QCOMPARE(m_services->note(), noteWith("Ship it"));
}

void CheckinModelTest::onTrack_data()
{
    QTest::addColumn<QByteArray>("focus");
    QTest::addColumn<QByteArray>("logged");

    QTest::newRow("focus") << QByteArray("Ship it") << QByteArray("Ship it");
    QTest::newRow("no focus") << QByteArray() << QByteArray("Working");
}

void CheckinModelTest::onTrack()
{
    QFETCH(QByteArray, focus);
    QFETCH(QByteArray, logged);
    start(noteWith(focus, {}, 2));
    m_model->completePomodoro();
    QCOMPARE(m_responses, QList<CheckinResponse>({{Kind::onTrack}}));
    QCOMPARE(m_services->note(), noteWith(focus, "| 3 | 09:30 | " + logged + " |\n", 3));
    const QJsonObject written = QJsonDocument::fromJson(m_services->dailyFocus()).object();
    QCOMPARE(written[QStringLiteral("focus")].toString(), QString::fromUtf8(logged));
    QCOMPARE(written[QStringLiteral("status")].toString(), QStringLiteral("active"));
    QCOMPARE(written[QStringLiteral("pomodoro_count")].toInt(), 3);
}

void CheckinModelTest::submit_data()
{
    QTest::addColumn<bool>("isCompleting");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QByteArray>("focusInNote");
    QTest::addColumn<QByteArray>("logged");
    QTest::addColumn<QString>("answered");

    QTest::newRow("next task") << true << " \tWrite tests " << QByteArray("Write tests") << QByteArray("Ship it")
                               << "Write tests";
    QTest::newRow("changed") << false << "  Write tests" << QByteArray("Write tests") << QByteArray("Write tests")
                             << "Write tests";
    QTest::newRow("changed to the same") << false << "Ship it" << QByteArray("Ship it") << QByteArray("Ship it")
                                         << "Ship it";
    QTest::newRow("spaces only, next task") << true << " \t " << QByteArray("Ship it") << QByteArray() << "";
    QTest::newRow("nothing, changed") << false << "" << QByteArray("Ship it") << QByteArray() << "";
}

void CheckinModelTest::submit()
{
    QFETCH(bool, isCompleting);
    QFETCH(QString, typed);
    QFETCH(QByteArray, focusInNote);
    QFETCH(QByteArray, logged);
    QFETCH(QString, answered);
    start(noteWith("Ship it"));
    if (isCompleting) {
        m_model->startCompletingTask();
    } else {
        m_model->startFocusUpdate();
    }
    m_model->setNewFocus(typed);
    m_model->submit();
    const bool isTaken = !answered.isEmpty();
    QCOMPARE(m_services->note(),
             isTaken ? noteWith(focusInNote, "| 1 | 09:30 | " + logged + " |\n", 1) : noteWith(focusInNote));
    QCOMPARE(m_responses.size(), isTaken ? 1 : 0);
    QCOMPARE(m_model->isCompletingTask(), isCompleting);
    if (isTaken) {
        QCOMPARE(m_responses.constFirst(),
                 (CheckinResponse{isCompleting ? Kind::completedAndNew : Kind::updatedFocus, answered}));
        m_services->loop.runQueued();
        QCOMPARE(m_services->focus(), answered);
    }
}

void CheckinModelTest::closing()
{
    start(noteWith("Ship it"));
    m_model->startFocusUpdate();
    m_model->dismiss();
    QCOMPARE(m_responses, QList<CheckinResponse>({{Kind::dismissed}}));
    start(noteWith("Ship it"));
    m_model->snooze();
    QCOMPARE(m_responses, QList<CheckinResponse>({{Kind::snoozed}}));
    QCOMPARE(m_services->note(), noteWith("Ship it"));
    QCOMPARE(m_services->dailyFocus(), QByteArray());
}

void CheckinModelTest::answersOnce()
{
    start(noteWith("Ship it"));
    std::unique_ptr<CheckinModel> model;
    model = std::make_unique<CheckinModel>(m_services->daily, m_services->signalManager, m_services->loop,
                                           [&](const CheckinResponse&) { model.reset(); });
    model->completePomodoro();
    QVERIFY(!model);

    m_model->completePomodoro();
    const QByteArray note = m_services->note();
    m_model->completePomodoro();
    m_model->startCompletingTask();
    m_model->setNewFocus(QStringLiteral("More"));
    m_model->submit();
    m_model->snooze();
    QCOMPARE(m_responses.size(), 1);
    QVERIFY(!m_model->isCompletingTask());
    QCOMPARE(m_services->note(), note);
}

void CheckinModelTest::noteGone_staysClear()
{
    for (const bool isCompleting : {true, false}) {
        start(noteWith("Ship it"));
        QVERIFY(QFile::remove(m_services->notePath));
        if (isCompleting) {
            m_model->startCompletingTask();
        } else {
            m_model->startFocusUpdate();
        }
        m_model->setNewFocus(QStringLiteral("Write tests"));
        m_model->submit();
        QCOMPARE(m_responses.size(), 1);
        QCOMPARE(QDir(QFileInfo(m_services->notePath).path()).entryList(QDir::Files), QStringList());
    }
    start({});
    QCOMPARE(m_model->focusText(), QStringLiteral("No daily note for today"));
    m_model->completePomodoro();
    QCOMPARE(m_responses, QList<CheckinResponse>({{Kind::onTrack}}));
    QVERIFY(!QFileInfo::exists(m_services->vault));
}

} // namespace flitmark

QTEST_GUILESS_MAIN(flitmark::CheckinModelTest)
#include "CheckinModelTest.moc"

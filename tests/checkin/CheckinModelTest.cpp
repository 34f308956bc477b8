// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <checkin/CheckinModel.h>
#include <support/TestServices.h>

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
    void cleanup()
    {
        m_model.reset();
        m_services.reset();
    }

    void texts()
    {
        start({});
        QCOMPARE(m_model->focusText(), QStringLiteral("No daily note for today"));
        start(noteWith(""));
        QCOMPARE(m_model->countText(), QString());
        QCOMPARE(m_model->focusText(), QStringLiteral("No focus"));
        QCOMPARE(m_model->timeText(), QStringLiteral("09:30"));
        QSignalSpy noteChanges(m_model.get(), &CheckinModel::noteChanged);
        QSignalSpy titleChanges(m_model.get(), &CheckinModel::snoozeTitleChanged);
        writeTestFile(m_services->notePath, noteWith("Ship it", "", 3));
        m_services->daily.loadTodayNote();
        m_services->loop.runQueued();
        m_services->setInterval(25);
        QVERIFY(noteChanges.size() == 1 && titleChanges.size() == 1);
        QCOMPARE(m_model->countText(), QStringLiteral("3×🍅"));
        QCOMPARE(m_model->focusText(), QStringLiteral("Ship it"));
        QCOMPARE(m_model->snoozeTitle(), QStringLiteral("Snooze 25m"));
    }

    void modes()
    {
        start(noteWith("Ship it"));
        m_model->startFocusUpdate();
        QCOMPARE(m_model->newFocus(), QStringLiteral("Ship it"));
        QCOMPARE(m_model->entryLabel() + m_model->submitTitle(), QStringLiteral("New focus:Save"));
        m_model->startCompletingTask();
        QVERIFY(m_model->isCompletingTask() && !m_model->isUpdatingFocus());
        QCOMPARE(m_model->newFocus(), QString());
        QCOMPARE(m_model->entryLabel() + m_model->submitTitle(), QStringLiteral("What's next?Start"));
        m_model->cancel();
        m_model->setNewFocus(QStringLiteral("Without an entry"));
        m_model->submit();
        QVERIFY(m_responses.isEmpty());
        QCOMPARE(m_services->note(), noteWith("Ship it"));
    }

    void onTrack()
    {
        for (const QByteArray focus : {"Ship it", ""}) {
            const QByteArray logged = focus.isEmpty() ? QByteArray("Working") : focus;
            start(noteWith(focus, {}, 2));
            m_model->completePomodoro();
            QCOMPARE(m_services->note(), noteWith(focus, "| 3 | 09:30 | " + logged + " |\n", 3));
            QVERIFY(m_services->dailyFocus().contains("\"focus\": \"" + logged + "\",\n  \"pomodoro_count\": 3"));
            // What is answered is answered.
            m_model->completePomodoro();
            m_model->startCompletingTask();
            m_model->setNewFocus(QStringLiteral("More"));
            m_model->submit();
            m_model->snooze();
            QCOMPARE(m_responses, QList<CheckinResponse>({{Kind::onTrack}}));
            QCOMPARE(m_services->note(), noteWith(focus, "| 3 | 09:30 | " + logged + " |\n", 3));
        }
    }

    void submit_data()
    {
        QTest::addColumn<bool>("isCompleting");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QByteArray>("after");
        QTest::newRow("next") << true << " \tWrite " << noteWith("Write", "| 1 | 09:30 | Ship it |\n", 1);
        QTest::newRow("changed") << false << "  Write" << noteWith("Write", "| 1 | 09:30 | Write |\n", 1);
        QTest::newRow("the same") << false << "Ship it" << noteWith("Ship it", "| 1 | 09:30 | Ship it |\n", 1);
        QTest::newRow("blank, next") << true << " \t " << noteWith("Ship it");
        QTest::newRow("empty, changed") << false << "" << noteWith("Ship it");
        QTest::newRow("next, note gone") << true << "Write" << QByteArray();
        QTest::newRow("changed, note gone") << false << "Write" << QByteArray();
    }

    void submit()
    {
        QFETCH(bool, isCompleting);
        QFETCH(QString, typed);
        QFETCH(QByteArray, after);
        start(noteWith("Ship it"));
        QVERIFY(!after.isEmpty() || QFile::remove(m_services->notePath));
        isCompleting ? m_model->startCompletingTask() : m_model->startFocusUpdate();
        m_model->setNewFocus(typed);
        m_model->submit();
        const QString text = typed.trimmed();
        const QList<CheckinResponse> taken = {{isCompleting ? Kind::completedAndNew : Kind::updatedFocus, text}};
        QCOMPARE(m_responses, text.isEmpty() ? QList<CheckinResponse>() : taken);
        QCOMPARE(m_services->note(), after);
        QCOMPARE(QFileInfo::exists(m_services->notePath), !after.isEmpty());
    }

    void closing()
    {
        start(noteWith("Ship it"));
        m_model->startFocusUpdate();
        m_model->dismiss();
        QCOMPARE(m_responses, QList<CheckinResponse>({{Kind::dismissed}}));
        start(noteWith("Ship it"));
        m_model->snooze();
        QCOMPARE(m_responses, QList<CheckinResponse>({{Kind::snoozed}}));
        QCOMPARE(m_services->note() + m_services->dailyFocus(), noteWith("Ship it"));

        // The receiver may end the model while it answers.
        std::unique_ptr<CheckinModel> model;
        model = std::make_unique<CheckinModel>(m_services->daily, m_services->signalManager, m_services->loop,
                                               [&](const CheckinResponse&) { model.reset(); });
        model->completePomodoro();
        QVERIFY(!model);
    }

private:
    /// Starts on `note` and opens the popup.
    void start(const QByteArray& note)
    {
        cleanup();
        m_services = std::make_unique<TestServices>(note);
        m_responses.clear();
        m_model = std::make_unique<CheckinModel>(m_services->daily, m_services->signalManager, m_services->loop,
                                                 [this](const CheckinResponse& given) { m_responses.append(given); });
    }

    std::unique_ptr<TestServices> m_services;
    std::unique_ptr<CheckinModel> m_model;
    QList<CheckinResponse> m_responses;
};

} // namespace flitmark

QTEST_GUILESS_MAIN(flitmark::CheckinModelTest)
#include "CheckinModelTest.moc"

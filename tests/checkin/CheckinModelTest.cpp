// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <checkin/CheckinModel.h>
#include <support/TestServices.h>

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

    void onTrack()
    {
        for (const QByteArray focus : {"Ship it", ""}) {
            const QByteArray logged = focus.isEmpty() ? QByteArray("Working") : focus;
            start(noteWith(focus, {}, 2));
            m_model->completePomodoro();
            QVERIFY(m_services->dailyFocus().contains("\"focus\": \"" + logged + "\",\n  \"pomodoro_count\": 3"));
            // What is answered is answered.
            m_model->completePomodoro();
            m_model->startCompletingTask();
            m_model->setNewFocus(QStringLiteral("More"));
            m_model->submit();
            QCOMPARE(m_responses, QList<CheckinResponse>({{Kind::onTrack}}));
            QCOMPARE(m_services->note(), noteWith(focus, "| 3 | 09:30 | " + logged + " |\n", 3));
        }
    }

    void submit()
    {
        for (const auto& [isCompleting, typed, after] : {
                 std::tuple(true, " \tWrite ", noteWith("Write", "| 1 | 09:30 | Ship it |\n", 1)),
                 {false, "  Write", noteWith("Write", "| 1 | 09:30 | Write |\n", 1)},
                 {false, "Ship it", noteWith("Ship it", "| 1 | 09:30 | Ship it |\n", 1)},
                 {true, " \t ", noteWith("Ship it")},
                 {false, "", noteWith("Ship it")},
                 {true, "Write", QByteArray()},
                 {false, "Write", QByteArray()},
             }) {
            start(noteWith("Ship it"));
            QVERIFY(!after.isEmpty() || QFile::remove(m_services->notePath));
            isCompleting ? m_model->startCompletingTask() : m_model->startFocusUpdate();
            QCOMPARE(m_model->newFocus(), isCompleting ? QString() : QStringLiteral("Ship it"));
            m_model->setNewFocus(QString::fromLatin1(typed));
            m_model->submit();
            const QString text = QString::fromLatin1(typed).trimmed();
            const QList<CheckinResponse> taken = {{isCompleting ? Kind::completedAndNew : Kind::updatedFocus, text}};
            QCOMPARE(m_responses, text.isEmpty() ? QList<CheckinResponse>() : taken);
            QCOMPARE(m_services->note(), after);
            QCOMPARE(QFileInfo::exists(m_services->notePath), !after.isEmpty());
        }
    }

    void closing()
    {
        start(noteWith("Ship it"));
        m_model->startFocusUpdate();
        m_model->dismiss();
        m_model->snooze();
        QCOMPARE(m_responses, QList<CheckinResponse>({{Kind::dismissed}}));
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

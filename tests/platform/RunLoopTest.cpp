// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/RunLoop.h>

#include <QElapsedTimer>
#include <QtTest/QTest>

#include <thread>

using namespace flitmark;
using namespace std::chrono_literals;

class RunLoopTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tasks_runLaterInOrderWhileTheirOwnerLives()
    {
        QString order;
        const QObject here; // ends before `order`: a failed check leaves no task behind
        auto owner = std::make_unique<QObject>();
        m_loop->async(owner.get(), [&] { order += u'x'; });
        m_loop->after(10ms, owner.get(), [&] { order += u'x'; });
        owner.reset();
        m_loop->async(&here, [&] {
            order += u'a';
            m_loop->async(&here, [&] { order += u'c'; });
        });
        const auto isHere = [&here] { return QThread::currentThread() == here.thread(); };
        std::thread([&, &tested = *m_loop] { tested.async(&here, [&] { order += isHere() ? u'b' : u'?'; }); }).join();
        QVERIFY(order.isEmpty());
        QTRY_COMPARE(order, "abc");
        m_loop->after(60ms, &here, [&] { order += u'f'; });
        m_loop->after(30ms, &here, [&] { order += u'e'; });
        m_loop->after(-5s, &here, [&] { order += u'd'; });
        m_loop->after(24h * 365 * 100, &here, [&] { order += u'z'; });
        pass(200ms);
        QCOMPARE(order, "abcdef");
    }
    void every_repeatsUntilDestroyed()
    {
        int calls = 0;
        int ended = 0;
        QElapsedTimer elapsed;
        elapsed.start();
        auto timer = m_loop->every(40ms, [&] { ++calls; });
        std::unique_ptr<RunLoop::Timer> ending;
        // The text is the task's own: it must outlive the timer that the task ends.
        ending = m_loop->every(5ms, [&ending, &ended, text = QString("still here")] {
            ending.reset();
            ended += text == u"still here" ? 1 : 1000;
        });
        QTRY_COMPARE_GE(calls, 3);
        QCOMPARE_GE(elapsed.elapsed(), 3 * 40 - 3);
        timer.reset();
        const int callsBefore = calls;
        pass(100ms);
        QCOMPARE(calls, callsBefore);
        QCOMPARE(ended, 1);
    }

private:
    const std::unique_ptr<RunLoop> m_loop = makeRunLoop();

    static void pass(RunLoop::Duration duration)
    {
        // Qt's wait ends at the time, even with events left: one more turn takes those.
        QTest::qWait(static_cast<int>(duration.count()) + 20);
        QCoreApplication::processEvents();
    }
};

QTEST_GUILESS_MAIN(RunLoopTest)
#include "RunLoopTest.moc"

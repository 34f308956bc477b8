// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/RunLoop.h>
#include <platform/SharedServices.h>

#include <QElapsedTimer>
#include <QtTest/QTest>

#include <thread>

using namespace flitmark;
using namespace std::chrono_literals;

class RunLoopTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanupTestCase() { SharedServices::endAll(); }
    void tasks_runLaterInOrderWhileTheirOwnerLives()
    {
        QString order;
        const QObject here; // ends before `order`: a failed check leaves no task behind
        auto owner = std::make_unique<QObject>();
        RunLoop::shared().async(owner.get(), [&] { order += u'x'; });
        RunLoop::shared().after(10ms, owner.get(), [&] { order += u'x'; });
        owner.reset();
        RunLoop::shared().async(&here, [&] {
            order += u'a';
            RunLoop::shared().async(&here, [&] { order += u'c'; });
        });
        const auto isHere = [&here] { return QThread::currentThread() == here.thread(); };
        std::thread([&, &tested = RunLoop::shared()] {
            tested.async(&here, [&] { order += isHere() ? u'b' : u'?'; });
        }).join();
        QVERIFY(order.isEmpty());
        QTRY_COMPARE(order, "abc");
        RunLoop::shared().after(60ms, &here, [&] { order += u'f'; });
        RunLoop::shared().after(30ms, &here, [&] { order += u'e'; });
        RunLoop::shared().after(-5s, &here, [&] { order += u'd'; });
        RunLoop::shared().after(24h * 365 * 100, &here, [&] { order += u'z'; });
        pass(200ms);
        QCOMPARE(order, "abcdef");
    }
    void every_repeatsUntilDestroyed()
    {
        int calls = 0;
        int ended = 0;
        QElapsedTimer elapsed;
        elapsed.start();
        auto timer = RunLoop::shared().every(40ms, [&] { ++calls; });
        std::unique_ptr<RunLoop::Timer> ending;
        // The text is the task's own: it must outlive the timer that the task ends.
        ending = RunLoop::shared().every(5ms, [&ending, &ended, text = QString("still here")] {
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
    static void pass(RunLoop::Duration duration)
    {
        // Qt's wait ends at the time, even with events left: one more turn takes those.
        QTest::qWait(static_cast<int>(duration.count()) + 20);
        QCoreApplication::processEvents();
    }
};

QTEST_GUILESS_MAIN(RunLoopTest)
#include "RunLoopTest.moc"

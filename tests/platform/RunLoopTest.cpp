// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/RunLoop.h>
#include <platform/SharedServices.h>
#include <support/ManualRunLoop.h>

#include <QElapsedTimer>
#include <QtTest/QTest>

#include <thread>

using namespace flitmark;
using namespace std::chrono_literals;

/// What holds for every run loop is checked on both: the one on Qt's event loop, and the one whose clock tests move.
class RunLoopTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanupTestCase() { SharedServices::endAll(); }
    void async_runsLaterInOrder_data() { addLoops(); }
    void async_runsLaterInOrder();
    void async_fromAnotherThread_runsOnTheMainOne_data() { addLoops(); }
    void async_fromAnotherThread_runsOnTheMainOne();
    void after_runsOnceInOrderOfTime_data() { addLoops(); }
    void after_runsOnceInOrderOfTime();
    void ownerGone_dropsItsTasks_data() { addLoops(); }
    void ownerGone_dropsItsTasks();
    void every_repeatsUntilDestroyed_data() { addLoops(); }
    void every_repeatsUntilDestroyed();
    void timer_mayEndItself_data() { addLoops(); }
    void timer_mayEndItself();
    void after_negativeOrEndless_isTamed();
    void manualClock_standsStillWithinATask();

private:
    static void addLoops()
    {
        QTest::addColumn<bool>("isManual");
        QTest::newRow("real") << false;
        QTest::newRow("manual") << true;
    }
    /// Lets `duration` pass on the loop under test.
    void pass(RunLoop::Duration duration);

    ManualRunLoop m_manual;
};

namespace {

RunLoop& loopUnderTest(bool isManual, ManualRunLoop& manual)
{
    return isManual ? static_cast<RunLoop&>(manual) : RunLoop::shared();
}

} // namespace

void RunLoopTest::pass(RunLoop::Duration duration)
{
    QFETCH(const bool, isManual);
    if (isManual) {
        m_manual.advance(duration);
    } else {
        // Qt's wait ends at the time, even with events left: one more turn takes those.
        QTest::qWait(static_cast<int>(duration.count()) + 20);
        QCoreApplication::processEvents();
    }
}

void RunLoopTest::async_runsLaterInOrder()
{
    QFETCH(const bool, isManual);
    RunLoop& loop = loopUnderTest(isManual, m_manual);
    QString order;
    loop.async(this, [&] {
        order += u'a';
        loop.async(this, [&] { order += u'c'; });
    });
    loop.async(this, [&] { order += u'b'; });
    QVERIFY(order.isEmpty());
    pass(0ms);
    QCOMPARE(order, QStringLiteral("abc"));
}

void RunLoopTest::async_fromAnotherThread_runsOnTheMainOne()
{
    QFETCH(const bool, isManual);
    RunLoop& loop = loopUnderTest(isManual, m_manual);
    QList<int> order;
    bool isOnMainThread = true;
    std::thread worker([&] {
        for (int i = 0; i < 100; ++i) {
            loop.async(this, [&, i] {
                order.append(i);
                isOnMainThread = isOnMainThread && QThread::currentThread() == thread();
            });
        }
    });
    worker.join();
    pass(0ms);
    QVERIFY(isOnMainThread);
    QCOMPARE(order.size(), 100);
    QVERIFY(std::is_sorted(order.begin(), order.end()));
}

void RunLoopTest::after_runsOnceInOrderOfTime()
{
    QFETCH(const bool, isManual);
    RunLoop& loop = loopUnderTest(isManual, m_manual);
    QString order;
    loop.after(60ms, this, [&] { order += u'c'; });
    loop.after(0ms, this, [&] { order += u'a'; });
    loop.after(30ms, this, [&] { order += u'b'; });
    QVERIFY(order.isEmpty());
    pass(100ms);
    QCOMPARE(order, QStringLiteral("abc"));
    pass(100ms);
    QCOMPARE(order, QStringLiteral("abc"));
}

void RunLoopTest::ownerGone_dropsItsTasks()
{
    QFETCH(const bool, isManual);
    RunLoop& loop = loopUnderTest(isManual, m_manual);
    int calls = 0;
    auto owner = std::make_unique<QObject>();
    loop.async(owner.get(), [&] { ++calls; });
    loop.after(10ms, owner.get(), [&] { ++calls; });
    owner.reset();
    pass(30ms);
    QCOMPARE(calls, 0);
}

void RunLoopTest::every_repeatsUntilDestroyed()
{
    QFETCH(const bool, isManual);
    RunLoop& loop = loopUnderTest(isManual, m_manual);
    int calls = 0;
    auto timer = loop.every(40ms, [&] { ++calls; });
    QCOMPARE(calls, 0);
    pass(130ms);
    QCOMPARE(calls, 3);
    timer.reset();
    pass(100ms);
    QCOMPARE(calls, 3);
}

void RunLoopTest::timer_mayEndItself()
{
    QFETCH(const bool, isManual);
    RunLoop& loop = loopUnderTest(isManual, m_manual);
    int calls = 0;
    std::unique_ptr<RunLoop::Timer> timer;
    // The text is the task's own: it must outlive the timer that the task ends.
    timer = loop.every(5ms, [&timer, &calls, text = QStringLiteral("still here")] {
        timer.reset();
        calls += text == u"still here" ? 1 : 1000;
    });
    pass(40ms);
    QCOMPARE(calls, 1);
}

void RunLoopTest::after_negativeOrEndless_isTamed()
{
    RunLoop& loop = RunLoop::shared();
    int calls = 0;
    loop.after(-5s, this, [&] { ++calls; });
    loop.after(24h * 365 * 100, this, [&] { calls += 1000; });
    QTRY_COMPARE(calls, 1);
    QTest::qWait(20);
    QCOMPARE(calls, 1);
    QVERIFY(std::abs(loop.now().secsTo(QDateTime::currentDateTime())) <= 1);
    QCOMPARE(loop.now().timeSpec(), Qt::LocalTime);
}

void RunLoopTest::manualClock_standsStillWithinATask()
{
    ManualRunLoop loop;
    const QDateTime start = loop.now();
    QList<qint64> times;
    const auto timer = loop.every(1s, [&] { times.append(start.msecsTo(loop.now())); });
    loop.after(1500ms, this, [&] { times.append(start.msecsTo(loop.now())); });
    loop.advance(2500ms);
    QCOMPARE(times, (QList<qint64>{1000, 1500, 2000}));
    QCOMPARE(start.msecsTo(loop.now()), 2500);
    loop.setWallClock(start.addDays(-1));
    loop.advance(500ms);
    QCOMPARE(times.size(), 4);
    QCOMPARE(loop.timerCount(), 1);
}

QTEST_GUILESS_MAIN(RunLoopTest)
#include "RunLoopTest.moc"

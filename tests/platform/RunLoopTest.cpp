// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/RunLoop.h>
#include <platform/SharedServices.h>
#include <support/ManualRunLoop.h>

#include <QtTest/QTest>

#include <thread>

using namespace flitmark;
using namespace std::chrono_literals;

/// What holds for every run loop is checked on both: the one on Qt's event loop, and the one whose clock tests move.
class RunLoopTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data()
    {
        QTest::addColumn<bool>("isManual");
        QTest::newRow("real") << false;
        QTest::newRow("manual") << true;
    }
    void cleanupTestCase() { SharedServices::endAll(); }
    void tasks_runLaterInOrder()
    {
        QString order;
        loop().after(60ms, this, [&] { order += u'f'; });
        loop().after(30ms, this, [&] { order += u'e'; });
        loop().async(this, [&] {
            order += u'a';
            loop().async(this, [&] { order += u'c'; });
        });
        loop().async(this, [&] { order += u'b'; });
        QVERIFY(order.isEmpty());
        pass(0ms);
        QCOMPARE(order, QStringLiteral("abc"));
        loop().after(-5s, this, [&] { order += u'd'; });
        loop().after(24h * 365 * 100, this, [&] { order += u'z'; });
        pass(200ms);
        QCOMPARE(order, QStringLiteral("abcdef"));
    }
    void async_fromAnotherThread_runsOnTheMainOne()
    {
        QList<int> order;
        bool isOnMainThread = true;
        std::thread worker([&, &tested = loop()] {
            for (int i = 0; i < 100; ++i) {
                tested.async(this, [&, i] {
                    order.append(i);
                    isOnMainThread = isOnMainThread && QThread::currentThread() == thread();
                });
            }
        });
        worker.join();
        pass(0ms);
        QVERIFY(isOnMainThread && order.size() == 100 && std::is_sorted(order.begin(), order.end()));
    }
    void ownerGone_dropsItsTasks()
    {
        int calls = 0;
        auto owner = std::make_unique<QObject>();
        loop().async(owner.get(), [&] { ++calls; });
        loop().after(10ms, owner.get(), [&] { ++calls; });
        owner.reset();
        pass(30ms);
        QCOMPARE(calls, 0);
    }
    void every_repeatsUntilDestroyed()
    {
        int calls = 0;
        auto timer = loop().every(40ms, [&] { ++calls; });
        pass(130ms);
        QCOMPARE(calls, 3);
        timer.reset();
        pass(100ms);
        QCOMPARE(calls, 3);
    }
    void timer_mayEndItself()
    {
        int calls = 0;
        std::unique_ptr<RunLoop::Timer> timer;
        // The text is the task's own: it must outlive the timer that the task ends.
        timer = loop().every(5ms, [&timer, &calls, text = QStringLiteral("still here")] {
            timer.reset();
            calls += text == u"still here" ? 1 : 1000;
        });
        pass(40ms);
        QCOMPARE(calls, 1);
    }

private:
    RunLoop& loop()
    {
        QFETCH_GLOBAL(const bool, isManual);
        return isManual ? static_cast<RunLoop&>(m_manual) : RunLoop::shared();
    }
    /// Lets `duration` pass on the loop under test.
    void pass(RunLoop::Duration duration)
    {
        QFETCH_GLOBAL(const bool, isManual);
        if (isManual) {
            m_manual.advance(duration);
        } else {
            // Qt's wait ends at the time, even with events left: one more turn takes those.
            QTest::qWait(static_cast<int>(duration.count()) + 20);
            QCoreApplication::processEvents();
        }
    }

    ManualRunLoop m_manual;
};

QTEST_GUILESS_MAIN(RunLoopTest)
#include "RunLoopTest.moc"

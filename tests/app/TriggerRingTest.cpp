// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/RingProgress.h>
#include <app/TriggerButtonView.h>
#include <app/TriggerButtonWindow.h>
#include <support/DesktopDoubles.h>
#include <support/ManualRunLoop.h>
#include <ui/Motion.h>

#include <QtTest/QTest>

using namespace flitmark;
using namespace std::chrono_literals;

namespace {

using Motion = RingProgress::Motion;

/// The trigger button's window as on a desktop, noting what of it is painted.
class Button final : public QObject
{
public:
    explicit Button(bool composites = true)
    {
        motion::set(motion::Setting::Never);
        windowManager.composites = composites;
        window.view().installEventFilter(this);
        window.orderFront();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
    }
    ~Button() override { motion::set(motion::Setting::AsDesktop); }
    Q_DISABLE_COPY_MOVE(Button)

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            painted += static_cast<const QPaintEvent*>(event)->region();
        }
        return false;
    }
    void show(double progress)
    {
        QCoreApplication::processEvents();
        painted = {};
        window.view().setTimerProgress(progress, 12min);
        QCoreApplication::processEvents();
    }
    QImage picture()
    {
        QImage image(56, 56, QImage::Format_ARGB32);
        image.fill(Qt::white);
        window.view().render(&image, {}, {}, QWidget::DrawChildren);
        return image;
    }
    ManualRunLoop loop;
    FakeWindowManager windowManager;
    TriggerButtonWindow window{windowManager, loop};
    QRegion painted;
};

} // namespace

class TriggerRingTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aPomodoro_isDrawnAnewByQuarterPixels()
    {
        ManualRunLoop loop;
        int changes = 0;
        RingProgress ring(loop, [&changes] { ++changes; });
        for (int second = 1; second < 1200; ++second) {
            const double progress = 1 - second / 1200.0;
            ring.moveTo(progress, second == 1 ? Motion::Steps : Motion::Linear);
            QCOMPARE(loop.timerCount(), 0); // nothing wakes up between the seconds
            QVERIFY(ring.isShown());
            QVERIFY(std::abs(ring.drawn() - progress) * 2 * M_PI * RingProgress::radius < 0.25);
        }
        QVERIFY(changes <= 600);
        ring.moveTo(0, Motion::Linear);
        QVERIFY(!ring.isShown());
    }
    void button_paintsWhatIsNewAndNothingElse()
    {
        Button button;
        button.show(0.99);
        button.show(0.9899); // as good as before
        QVERIFY(button.painted.isEmpty());
        QImage before = button.picture();
        for (double progress = 0.985; progress > 0; progress -= 0.011) {
            button.show(progress);
            const QRegion painted = button.painted;
            QVERIFY2(painted.boundingRect().width() < 20, "only the end of the arc");
            const QImage after = button.picture();
            for (int y = 0; y < after.height(); ++y) {
                for (int x = 0; x < after.width(); ++x) {
                    QVERIFY(painted.contains(QPoint(x, y)) || before.pixel(x, y) == after.pixel(x, y));
                }
            }
            before = after;
        }
    }
    void button_withoutTransparency_isCutToWhatIsShown()
    {
        Button button(false);
        const QPoint onRing(28, 2);
        for (const double progress : {0.0, 0.5, 0.0}) {
            button.show(progress);
            QCOMPARE(button.window.mask().contains(onRing), progress > 0);
            QVERIFY(button.window.mask().contains(QPoint(28, 5)) && !button.window.mask().contains(QPoint(3, 3)));
        }
    }
};

QTEST_MAIN(TriggerRingTest)
#include "TriggerRingTest.moc"

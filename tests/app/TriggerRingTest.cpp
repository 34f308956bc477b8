// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/RingProgress.h>
#include <app/TriggerButtonView.h>
#include <app/TriggerButtonWindow.h>
#include <app/TriggerMenu.h>
#include <support/DesktopDoubles.h>
#include <support/TestServices.h>
#include <ui/Motion.h>
#include <ui/ThemeScope.h>

#include <QSignalSpy>

using namespace flitmark;
using namespace std::chrono_literals;

namespace {

using Motion = RingProgress::Motion;

QStringList itemsOf(const QMenu& menu)
{
    QStringList texts;
    for (const QAction* action : menu.actions()) {
        texts.append(action->isSeparator() ? QStringLiteral("-") : action->text());
    }
    return texts;
}

/// The trigger button's window as on a desktop, counting how often it is painted.
class Button final : public QObject
{
public:
    explicit Button(bool composites = true)
    {
        motion::set(motion::Setting::Never);
        windowManager.composites = composites;
        window.view().installEventFilter(this);
        window.orderFront();
        isShown = QTest::qWaitForWindowExposed(&window);
    }
    ~Button() override { motion::set(motion::Setting::AsDesktop); }
    Q_DISABLE_COPY_MOVE(Button)

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            ++paints;
            painted += static_cast<const QPaintEvent*>(event)->region();
        }
        return false;
    }
    /// How often the button was painted while `progress` was set.
    int paintsFor(double progress)
    {
        QCoreApplication::processEvents();
        paints = 0;
        painted = {};
        window.view().setTimerProgress(progress, 12min);
        QCoreApplication::processEvents();
        return paints;
    }
    QImage picture()
    {
        QImage image(56, 56, QImage::Format_ARGB32);
        image.fill(Qt::white);
        window.view().render(&image, {}, {}, QWidget::DrawChildren);
        return image;
    }
    /// The colour in the middle of the ring's line, `turn` of the circle from the top.
    QColor ringAt(double turn)
    {
        QImage image(56 * 4, 56 * 4, QImage::Format_ARGB32);
        image.setDevicePixelRatio(4);
        image.fill(Qt::white);
        window.view().render(&image, {}, {}, QWidget::DrawChildren);
        const double angle = 2 * M_PI * turn;
        return image.pixelColor(qRound(4 * (28 + 25.5 * std::sin(angle))), qRound(4 * (28 - 25.5 * std::cos(angle))));
    }

    ManualRunLoop loop;
    FakeWindowManager windowManager;
    TriggerButtonWindow window{windowManager, loop};
    bool isShown = false;
    int paints = 0;
    QRegion painted;
};

} // namespace

class TriggerRingTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void progress_hidesAtBothEnds_data()
    {
        QTest::addColumn<double>("progress");
        QTest::addColumn<bool>("isShown");
        QTest::newRow("stopped") << 0.0 << false;
        QTest::newRow("nearly over") << 0.0001 << true;
        QTest::newRow("half") << 0.5 << true;
        QTest::newRow("nearly full") << 0.9999 << true;
        QTest::newRow("full") << 1.0 << false;
    }
    void progress_hidesAtBothEnds()
    {
        QFETCH(double, progress);
        for (const double before : {0.3, 0.0}) {
            ManualRunLoop loop;
            RingProgress ring(loop, [] {});
            ring.moveTo(before, Motion::Steps);
            ring.moveTo(progress, Motion::Linear);
            QTEST(ring.isShown(), "isShown");
        }
    }
    void aPomodoro_isDrawnAnewByQuarterPixels_data()
    {
        QTest::addColumn<int>("minutes");
        QTest::addColumn<double>("pixelRatio");
        QTest::addColumn<int>("most");
        // The arc is 160.2 points long.
        QTest::newRow("20 minutes") << 20 << 1.0 << 600;
        QTest::newRow("20 minutes, twice the pixels") << 20 << 2.0 << 1199;
        QTest::newRow("60 minutes") << 60 << 1.0 << 600;
        QTest::newRow("5 minutes") << 5 << 1.0 << 299;
    }
    void aPomodoro_isDrawnAnewByQuarterPixels()
    {
        QFETCH(int, minutes);
        QFETCH(double, pixelRatio);
        ManualRunLoop loop;
        int changes = 0;
        RingProgress ring(loop, [&] { ++changes; });
        ring.setPixelRatio(pixelRatio);
        const int seconds = minutes * 60;
        double farthest = 0;
        for (int second = 1; second < seconds; ++second) {
            const double progress = 1 - double(second) / seconds;
            ring.moveTo(progress, second == 1 ? Motion::Steps : Motion::Linear);
            QCOMPARE(loop.timerCount(), 0); // nothing wakes up between the seconds
            farthest = std::max(farthest, std::abs(ring.drawn() - progress));
        }
        QFETCH(int, most);
        QVERIFY2(changes <= most && changes >= most - 2, qPrintable(QString::number(changes)));
        QVERIFY(farthest * 2 * M_PI * RingProgress::radius * pixelRatio < 0.25);
    }
    void aLongWay_isAnimatedLinearlyForASecond()
    {
        ManualRunLoop loop;
        int changes = 0;
        RingProgress ring(loop, [&] { ++changes; });
        ring.moveTo(0.2, Motion::Steps);
        changes = 0;
        ring.moveTo(0.8, Motion::Linear);
        loop.advance(480ms);
        QVERIFY(std::abs(ring.drawn() - 0.5) < 0.02);
        loop.advance(520ms);
        QVERIFY(std::abs(ring.drawn() - 0.8) < 0.001);
        QCOMPARE(changes, 60);
        QCOMPARE(loop.timerCount(), 0);

        ring.moveTo(0.2, Motion::Steps);
        QCOMPARE(ring.drawn(), 0.2);
        ring.moveTo(0.8, Motion::Linear);
        loop.advance(100ms);
        ring.moveTo(0, Motion::Linear);
        QVERIFY(!ring.isShown());
        QCOMPARE(loop.timerCount(), 0);
    }

    void button_paintsOnlyWhatIsNew()
    {
        Button button;
        QVERIFY(button.isShown);
        QCOMPARE(button.paintsFor(0.0), 0);
        QCOMPARE(button.paintsFor(0.5), 1);
        QCOMPARE(button.paintsFor(0.5), 0); // paused
        QCOMPARE(button.paintsFor(0.4999), 0);
        QCOMPARE(button.paintsFor(0.45), 1);
        QCOMPARE(button.paintsFor(1.0), 1);
        QCOMPARE(button.paintsFor(1.0), 0);
    }
    void button_paintsAllThatIsNew()
    {
        Button button;
        button.paintsFor(0.99);
        QImage before = button.picture();
        for (double progress = 0.985; progress > 0; progress -= 0.011) {
            button.paintsFor(progress);
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
    void button_drawsTheArcClockwiseFromTheTop()
    {
        Button button;
        QColor accent = ThemeScope::of(button.window).accent;
        const auto isAccent = [&](double turn) {
            const QColor drawn = button.ringAt(turn);
            return std::abs(drawn.red() - accent.red()) < 30 && std::abs(drawn.blue() - accent.blue()) < 30;
        };
        const QColor bare = button.ringAt(0.1);
        QVERIFY(!isAccent(0.1));
        button.paintsFor(0.65);
        QVERIFY(isAccent(0.1) && isAccent(0.6));
        QVERIFY(!isAccent(0.7) && !isAccent(0.95));
        QVERIFY(button.ringAt(0.95) != bare); // the track
        button.paintsFor(0.0);
        QCOMPARE(button.ringAt(0.1), bare);
    }
    void button_withoutTransparency_isCutToWhatIsShown()
    {
        Button button(false);
        const QPoint onRing(28, 2);
        QVERIFY(!button.window.mask().contains(onRing));
        button.paintsFor(0.5);
        QVERIFY(button.window.mask().contains(onRing));
        QVERIFY(!button.window.mask().contains(QPoint(3, 3)));
        button.paintsFor(0.0);
        QVERIFY(!button.window.mask().contains(onRing));
        QVERIFY(button.window.mask().contains(QPoint(28, 5)));
    }
    void button_tellsWhatRemains()
    {
        Button button;
        TriggerButtonView& view = button.window.view();
        QCOMPARE(view.accessibleDescription(), QStringLiteral("Shows or hides the note panel."));
        view.setTimerProgress(0.6, 12min);
        QVERIFY(view.accessibleDescription().endsWith(QStringLiteral("12 minutes of the Pomodoro remain.")));
        view.setTimerProgress(0.01, 1min);
        QVERIFY(view.accessibleDescription().endsWith(QStringLiteral("1 minute of the Pomodoro remains.")));
        view.setTimerProgress(0, 0min);
        QCOMPARE(view.accessibleDescription(), QStringLiteral("Shows or hides the note panel."));
    }

    void menu_offersWhatFitsAndDoesIt()
    {
        TestServices services;
        FakeWindowManager windowManager;
        QWidget parent;
        CheckinWindowController& controller = services.controller;
        QSignalSpy updates(&services.notifications, &NotificationCenter::pomodoroTimerUpdated);
        const auto choose = [&](const QStringList& expected, qsizetype index) {
            TriggerMenu menu(controller, services.notifications, windowManager, &parent);
            QCOMPARE(itemsOf(menu), expected + QStringList({QStringLiteral("-"), QStringLiteral("Quit Flitmark")}));
            menu.actions().at(index)->trigger();
        };
        const QString stop = QStringLiteral("Stop Pomodoro Timer");
        choose({QStringLiteral("Start Pomodoro Timer")}, 0);
        QVERIFY(controller.isRunning());
        choose({QStringLiteral("Pause Check-ins"), stop}, 0);
        QVERIFY(controller.isPaused());
        choose({QStringLiteral("Resume Check-ins"), stop}, 0);
        QVERIFY(!controller.isPaused());
        choose({QStringLiteral("Pause Check-ins"), stop}, 0);
        updates.clear();
        choose({QStringLiteral("Resume Check-ins"), stop}, 1);
        QVERIFY(!controller.isRunning());
        QCOMPARE(updates.size(), 1);
        QCOMPARE(updates.constFirst().constFirst().toDouble(), 0.0);
        // Still paused, but without a timer there is nothing to resume.
        choose({QStringLiteral("Start Pomodoro Timer")}, 0);

        TriggerMenu menu(controller, services.notifications, windowManager, &parent);
        QSignalSpy quits(&menu, &TriggerMenu::quitChosen);
        menu.actions().constLast()->trigger();
        QCOMPARE(quits.size(), 1);
    }
    void menu_isLaidOutAsDrawn()
    {
        TestServices services;
        for (const bool composites : {true, false}) {
            FakeWindowManager windowManager;
            windowManager.composites = composites;
            QWidget parent;
            QPointer<TriggerMenu> menu =
                new TriggerMenu(services.controller, services.notifications, windowManager, &parent);
            menu->openAt(QPoint(100, 100));
            const int margin = composites ? 24 : 0;
            QCOMPARE(menu->size(), QSize(240 + margin, 4 + 32 + 9 + 32 + 4 + margin));
            QTest::keyClick(menu, Qt::Key_Escape);
            QVERIFY(!menu->isVisible());
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QVERIFY(menu.isNull());
        }
    }
};

QTEST_MAIN(TriggerRingTest)
#include "TriggerRingTest.moc"

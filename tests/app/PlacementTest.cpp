// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/Placement.h>
#include <app/TriggerDrag.h>

#include <QtTest/QTest>

using namespace flitmark;

namespace {

const ScreenFrames screen{QRectF(0, 0, 1440, 875), QRectF(0, 0, 1440, 900)};
/// A desktop panel of 60 points at the bottom and a bar of 30 at the left.
const ScreenFrames barred{QRectF(30, 60, 1410, 815), QRectF(0, 0, 1440, 900)};
const QSizeF triggerSize(56, 56);

} // namespace

class PlacementTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void panel_liesInTheVisibleCorner_data()
    {
        QTest::addColumn<QSizeF>("size");
        QTest::addColumn<QRectF>("visible");
        QTest::addColumn<QPointF>("origin");
        QTest::newRow("plain") << QSizeF(460, 560) << screen.visible << QPointF(968, 12);
        QTest::newRow("above a desktop panel") << QSizeF(460, 560) << barred.visible << QPointF(968, 72);
        QTest::newRow("screen elsewhere") << QSizeF(460, 560) << QRectF(1440, 200, 800, 600) << QPointF(1768, 212);
        QTest::newRow("wider than the screen") << QSizeF(460, 300) << QRectF(0, 0, 400, 400) << QPointF(-72, 12);
        QTest::newRow("higher than the screen") << QSizeF(100, 560) << QRectF(0, 0, 400, 400) << QPointF(288, -172);
    }
    void panel_liesInTheVisibleCorner()
    {
        QFETCH(QSizeF, size);
        QFETCH(QRectF, visible);
        QTEST(panelOrigin(size, ScreenFrames{visible, visible}), "origin");
    }
    void panel_withoutScreen_liesAtTheOrigin() { QCOMPARE(panelOrigin({460, 560}, std::nullopt), QPointF(0, 0)); }

    void trigger_isClampedToTheScreen_data()
    {
        QTest::addColumn<QPointF>("asked");
        QTest::addColumn<QPointF>("origin");
        QTest::newRow("inside") << QPointF(500, 400) << QPointF(500, 400);
        QTest::newRow("left of the bar") << QPointF(0, 400) << QPointF(42, 400);
        QTest::newRow("past the right edge") << QPointF(2000, 400) << QPointF(1372, 400);
        QTest::newRow("over the desktop panel at the bottom") << QPointF(500, -50) << QPointF(500, 12);
        QTest::newRow("past the top") << QPointF(500, 2000) << QPointF(500, 807);
    }
    void trigger_isClampedToTheScreen()
    {
        QFETCH(QPointF, asked);
        QTEST(clampedTriggerOrigin(asked, triggerSize, barred), "origin");
    }
    void trigger_startsInTheCorner()
    {
        QCOMPARE(defaultTriggerOrigin(triggerSize, screen), QPointF(1372, 12));
        QCOMPARE(defaultTriggerOrigin(triggerSize, barred), QPointF(1372, 12));
    }

    void drag_upToTwoPoints_isAClick()
    {
        TriggerDrag drag;
        drag.begin({100, 100}, {128, 128});
        QVERIFY(!drag.move({130, 128}));
        QVERIFY(!drag.isDragging());
        drag.end();
        QVERIFY(!drag.move({200, 128}));
    }
    void drag_beyondTwoPoints_movesAndIsNoClick()
    {
        TriggerDrag drag;
        drag.begin({100, 100}, {128, 128});
        QCOMPARE(drag.move({131, 128}), QPointF(103, 100));
        QCOMPARE(drag.move({128, 129}), QPointF(100, 101)); // back near the start it still is a drag
        drag.end();
        QVERIFY(drag.isDragging()); // the click that comes with the release must see it
        drag.settle();
        QVERIFY(!drag.isDragging());
    }
    void drag_pressedAgainBeforeItSettled_startsAnew()
    {
        TriggerDrag drag;
        drag.begin({0, 0}, {10, 10});
        drag.move({40, 10});
        drag.end();
        drag.begin({30, 0}, {40, 10});
        drag.move({60, 10});
        drag.settle(); // of the first drag, while the second one goes on
        QVERIFY(drag.isDragging());
    }
};

QTEST_APPLESS_MAIN(PlacementTest)
#include "PlacementTest.moc"

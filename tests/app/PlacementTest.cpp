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
    void windows_lieOnTheVisibleScreen_data()
    {
        QTest::addColumn<QPointF>("found");
        QTest::addColumn<QPointF>("origin");
        const auto panel = [](const char* name, QSizeF size, const std::optional<QRectF>& visible, QPointF origin) {
            const auto frames = visible ? std::optional(ScreenFrames{*visible, *visible}) : std::nullopt;
            QTest::addRow("panel %s", name) << panelOrigin(size, frames) << origin;
        };
        panel("plain", {460, 560}, screen.visible, {968, 12});
        panel("above a desktop panel", {460, 560}, barred.visible, {968, 72});
        panel("screen elsewhere", {460, 560}, QRectF(1440, 200, 800, 600), {1768, 212});
        panel("wider than the screen", {460, 300}, QRectF(0, 0, 400, 400), {-72, 12});
        panel("higher than the screen", {100, 560}, QRectF(0, 0, 400, 400), {288, -172});
        panel("without screen", {460, 560}, {}, {0, 0});
        const auto trigger = [](const char* name, QPointF asked, QPointF origin) {
            QTest::addRow("trigger %s", name) << clampedTriggerOrigin(asked, triggerSize, barred) << origin;
        };
        trigger("inside", {500, 400}, {500, 400});
        trigger("left of the bar", {0, 400}, {42, 400});
        trigger("past the right edge", {2000, 400}, {1372, 400});
        trigger("over the desktop panel at the bottom", {500, -50}, {500, 12});
        trigger("past the top", {500, 2000}, {500, 807});
        QTest::newRow("trigger at first") << defaultTriggerOrigin(triggerSize, barred) << QPointF(1372, 12);
    }
    void windows_lieOnTheVisibleScreen()
    {
        QFETCH(QPointF, found);
        QTEST(found, "origin");
    }

    void drag_beyondTwoPoints_movesAndIsNoClick()
    {
        TriggerDrag drag;
        drag.begin({100, 100}, {128, 128});
        QVERIFY(!drag.move({130, 128}));
        QVERIFY(!drag.isDragging());
        QCOMPARE(drag.move({131, 128}), QPointF(103, 100));
        QCOMPARE(drag.move({128, 129}), QPointF(100, 101)); // back near the start it still is a drag
        drag.end();
        QVERIFY(!drag.move({200, 128}));
        QVERIFY(drag.isDragging()); // the click that comes with the release must see it

        drag.begin({30, 0}, {40, 10});
        drag.move({60, 10});
        drag.settle(); // of the first drag, while the second one goes on
        QVERIFY(drag.isDragging());
        drag.end();
        drag.settle();
        QVERIFY(!drag.isDragging());
    }
};

QTEST_APPLESS_MAIN(PlacementTest)
#include "PlacementTest.moc"

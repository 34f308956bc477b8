// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/AppDelegate.h>
#include <app/PanelWindow.h>
#include <app/TriggerButtonView.h>
#include <app/TriggerButtonWindow.h>
#include <app/TriggerMenu.h>
#include <capture/DraftManager.h>
#include <capture/NoteEditor.h>
#include <capture/NoteManager.h>
#include <checkin/CheckinWindowController.h>
#include <config/ConfigManager.h>
#include <daily/DailyNoteManager.h>
#include <platform/NotificationCenter.h>
#include <setup/SetupWizardWindow.h>
#include <signals/SignalManager.h>
#include <support/DesktopDoubles.h>
#include <support/ManualFileEvents.h>
#include <support/ManualRunLoop.h>
#include <support/RecordingSound.h>
#include <support/TestFiles.h>
#include <support/TestPopups.h>
#include <support/TestWorkspace.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QPushButton>
#include <QSignalSpy>
#include <QTimer>
#include <QtTest/QTest>

using namespace flitmark;
using namespace std::chrono_literals;

namespace {

/// A home with everything the delegate works with, on a desktop without a display.
class Desktop
{
public:
    explicit Desktop(bool isSetUp = true, QSize panelSize = {460, 560})
    {
        configManager.update([&](AppConfig& config) {
            config.vaultPath = home.filePath(QStringLiteral("vault"));
            config.hasCompletedSetup = isSetUp;
            config.panelWidth = panelSize.width();
            config.panelHeight = panelSize.height();
        });
        configManager.save();
        delegate.applicationDidFinishLaunching();
    }
    void showPanel()
    {
        delegate.showPanel();
        QVERIFY(QTest::qWaitForWindowActive(&panel()));
    }

    PanelWindow& panel() { return *delegate.panelWindow(); }
    TriggerButtonWindow& trigger() { return *delegate.triggerWindow(); }
    NoteEditor& editor() { return *panel().findChild<NoteEditor*>(); }
    QPushButton* button(const QString& name)
    {
        for (QPushButton* button : panel().findChildren<QPushButton*>()) {
            if ((button->accessibleName() == name || button->text() == name) && button->isVisibleTo(&panel())) {
                return button;
            }
        }
        return nullptr;
    }

    QTemporaryDir home;
    Directories directories{home.path(), home.filePath(QStringLiteral("support")), home.filePath(QStringLiteral("c"))};
    ManualRunLoop runLoop;
    NotificationCenter center;
    RecordingSound sound;
    FakeScreens screens;
    FakeWindowManager windowManager;
    FakeDialogs dialogs;
    ManualFileEvents fileEvents;
    TestWorkspace workspace;
    TestPopups popups;
    ConfigManager configManager{directories};
    SignalManager signalManager{directories, configManager, runLoop, fileEvents};
    DailyNoteManager dailyNoteManager{{configManager, signalManager, runLoop, fileEvents, workspace}};
    CheckinWindowController controller{
        {configManager, signalManager, dailyNoteManager, runLoop, center, sound, popups}};
    DraftManager draftManager{directories, runLoop};
    NoteManager noteManager{configManager, runLoop, sound};
    AppDelegate delegate{AppServices{directories, runLoop, center, configManager, controller, signalManager,
                                     dailyNoteManager, draftManager, noteManager, screens, windowManager, dialogs,
                                     workspace}};
};

} // namespace

class AppDelegateTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void firstRun_showsTheWizardAloneAndThenTheButton()
    {
        Desktop desktop(false);
        AppDelegate& delegate = desktop.delegate;
        QVERIFY(delegate.setupWindow()->isVisible());
        delegate.togglePanel();
        delegate.showPanel();
        QVERIFY(!delegate.isPanelVisible());

        Q_EMIT delegate.setupWindow()->completed();
        desktop.runLoop.advance(299ms);
        QVERIFY(delegate.triggerWindow() == nullptr);
        desktop.runLoop.advance(1ms);
        QVERIFY(desktop.trigger().isVisible());
        QVERIFY(!delegate.setupWindow()->isVisible());
        desktop.runLoop.advance(200ms);
        QVERIFY(delegate.setupWindow() == nullptr);

        Desktop unfinished(false);
        unfinished.delegate.setupWindow()->close();
        unfinished.runLoop.advance(1min);
        QVERIFY(unfinished.delegate.triggerWindow() == nullptr);
        QVERIFY(!unfinished.configManager.config().hasCompletedSetup);
    }

    void panelSize_isCorrectedAndKept_data()
    {
        QTest::addColumn<QSize>("stored");
        QTest::addColumn<QSize>("panel");
        QTest::addColumn<QSize>("kept");
        QTest::newRow("fits") << QSize(500, 700) << QSize(500, 700) << QSize(500, 700);
        QTest::newRow("too small") << QSize(300, 200) << QSize(460, 360) << QSize(460, 360);
        QTest::newRow("one side too small") << QSize(440, 560) << QSize(460, 560) << QSize(460, 560);
        QTest::newRow("too large") << QSize(900, 900) << QSize(600, 800) << QSize(900, 900);
    }
    void panelSize_isCorrectedAndKept()
    {
        QFETCH(QSize, stored);
        QFETCH(QSize, kept);
        Desktop desktop(true, stored);
        const auto written = [&desktop] {
            const ConfigManager reloaded(desktop.directories);
            return QSizeF(reloaded.config().panelWidth, reloaded.config().panelHeight).toSize();
        };
        QCOMPARE(written(), kept);
        QTEST(desktop.panel().frameRect().size(), "panel");
        desktop.delegate.showPanel();
        desktop.panel().setFrameRect(QRect(100, 100, 520, 640)); // as the user's mouse does
        QTRY_COMPARE(written(), QSize(520, 640));
    }

    void togglePanel_showsItInTheCornerAndAnnouncesIt()
    {
        Desktop desktop;
        QSignalSpy opened(&desktop.center, &NotificationCenter::panelOpened);
        QVERIFY(!desktop.panel().isVisible());
        desktop.delegate.togglePanel();
        QVERIFY(desktop.panel().isVisible());
        QCOMPARE(desktop.panel().frameRect(), QRect(968, 328, 460, 560));
        desktop.runLoop.advance(99ms);
        QCOMPARE(opened.count(), 0);
        desktop.runLoop.advance(1ms);
        QCOMPARE(opened.count(), 1);

        desktop.delegate.togglePanel();
        QVERIFY(!desktop.panel().isVisible());
    }
    void panel_closesByItsButtonByEscapeAndByTheDesktop()
    {
        Desktop desktop;
        const auto closes = [&](const std::function<void()>& act) {
            desktop.showPanel();
            act();
            QVERIFY(!desktop.panel().isVisible() && !desktop.delegate.isPanelVisible());
        };
        closes([&] { desktop.button(QStringLiteral("Close"))->click(); });
        closes([&] { QTest::keyClick(&desktop.editor(), Qt::Key_Escape); });
        closes([&] { desktop.panel().close(); });
    }
    void hidingThePanel_givesTheKeyboardBackOnlyIfThePanelHasIt()
    {
        Desktop desktop;
        // The second time the user has gone on to a third window.
        for (const WindowManager::WindowId active : {desktop.panel().winId(), WindowManager::WindowId(99)}) {
            desktop.windowManager.active = 77;
            desktop.delegate.showPanel();
            desktop.windowManager.active = active;
            desktop.delegate.hidePanel();
            QCOMPARE(desktop.windowManager.activated, QList<WindowManager::WindowId>{77});
        }
    }

    void typedAndSavedByKey_isInTheDraftAndThenInTheNote()
    {
        Desktop desktop;
        desktop.showPanel();
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Buy"));
        desktop.runLoop.advance(100ms); // the panel brings the draft back
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral(" milk"));
        QCOMPARE(desktop.draftManager.currentDraft()->content, QStringLiteral("Buy milk"));
        QTest::keyClick(&desktop.editor(), Qt::Key_Return, Qt::ControlModifier);
        const QString path = desktop.home.filePath(QStringLiteral("vault/Inbox/2026-01-22--140305--buy-milk.md"));
        QVERIFY(readTestFile(path).endsWith("\n---\n\nBuy milk"));
        QVERIFY(desktop.editor().text().isEmpty());
        desktop.runLoop.advance(499ms);
        QVERIFY(desktop.panel().isVisible());
        desktop.runLoop.advance(1ms);
        QVERIFY(!desktop.panel().isVisible());
    }

    void trigger_keepsItsPlaceAndSaveClickable()
    {
        Desktop desktop;
        desktop.delegate.showPanel();
        const QPushButton* save = desktop.button(QStringLiteral("Save"));
        const auto rightOfSave = [&] { return save->mapToGlobal(save->rect().bottomRight()).x(); };
        QCOMPARE(desktop.trigger().pos(), QPoint(1372, 832));
        QTRY_VERIFY(rightOfSave() < desktop.trigger().x());
        Q_EMIT desktop.trigger().view().draggedTo(QPointF(700, 300));
        QCOMPARE(desktop.trigger().pos(), QPoint(700, 300));
        QTRY_COMPARE(rightOfSave(), desktop.panel().frameRect().right() - 16);

        desktop.screens.frames = ScreenFrames{QRectF(0, 0, 640, 600), QRectF(0, 0, 640, 600)};
        Q_EMIT desktop.screens.changed();
        QCOMPARE(desktop.trigger().x(), 572);
        QVERIFY(desktop.trigger().frameGeometry().bottom() < 600 - 12);
        desktop.screens.frames.reset();
        Q_EMIT desktop.screens.changed();
        QCOMPARE(desktop.trigger().x(), 572);
    }
    void trigger_showsTheRunningPomodoro()
    {
        Desktop desktop;
        TriggerButtonView& view = desktop.trigger().view();
        desktop.controller.startPomodoroTimer();
        QVERIFY(!view.isTimerActive());
        desktop.runLoop.advance(8min);
        QVERIFY(view.isTimerActive());
        QVERIFY(view.accessibleDescription().contains(QStringLiteral("12 minutes")));
        desktop.controller.restartTimer();
        QVERIFY(!view.isTimerActive());
    }
    void triggerMenu_opensByPointerAndByKey()
    {
        Desktop desktop;
        TriggerButtonView& view = desktop.trigger().view();
        for (const auto reason : {QContextMenuEvent::Mouse, QContextMenuEvent::Keyboard}) {
            QContextMenuEvent event(reason, QPoint(28, 28), view.mapToGlobal(QPoint(28, 28)));
            QCoreApplication::sendEvent(&view, &event);
            auto* menu = desktop.trigger().findChild<TriggerMenu*>();
            QVERIFY(menu != nullptr && menu->isVisible());
            QCOMPARE(menu->actions().constFirst()->text(), QStringLiteral("Start Pomodoro Timer"));
            menu->close();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }
    void quitting_endsTheProgramWithThePanelOpen()
    {
        Desktop desktop;
        desktop.delegate.showPanel();
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(28, 28), QPoint(1400, 860));
        QCoreApplication::sendEvent(&desktop.trigger().view(), &event);
        auto* menu = desktop.trigger().findChild<TriggerMenu*>();
        QMetaObject::invokeMethod(menu->actions().constLast(), &QAction::trigger, Qt::QueuedConnection);
        QTimer::singleShot(10s, this, [] { QCoreApplication::exit(1); });
        QCOMPARE(QCoreApplication::exec(), 0);
    }
    void dailyReview_isRemindedOfOnceTheButtonIsThere()
    {
        Desktop desktop;
        desktop.runLoop.advance(5h); // past seven in the evening
        QCOMPARE(desktop.popups.takeCalls(), QStringList{QStringLiteral("show review")});
    }

    void trigger_dragDoesNotToggle()
    {
        Desktop desktop;
        TriggerButtonView& view = desktop.trigger().view();
        for (const auto& [points, isVisible] : {std::pair(1, true), std::pair(-3, true), std::pair(0, false)}) {
            QTest::mousePress(&view, Qt::LeftButton, {}, QPoint(28, 28));
            QTest::mouseMove(&view, QPoint(28 + points, 28));
            QTest::mouseRelease(&view, Qt::LeftButton, {}, QPoint(28, 28));
            desktop.runLoop.advance(100ms);
            QCOMPARE(desktop.delegate.isPanelVisible(), isVisible);
        }
    }
};

QTEST_MAIN(AppDelegateTest)
#include "AppDelegateTest.moc"

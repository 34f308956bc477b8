// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/AppDelegate.h>
#include <app/PanelWindow.h>
#include <app/TriggerButtonView.h>
#include <app/TriggerButtonWindow.h>
#include <capture/DraftManager.h>
#include <capture/NoteEditor.h>
#include <capture/NoteManager.h>
#include <config/ConfigManager.h>
#include <platform/NotificationCenter.h>
#include <setup/SetupWizardWindow.h>
#include <support/DesktopDoubles.h>
#include <support/ManualRunLoop.h>
#include <support/RecordingSound.h>
#include <support/TestFiles.h>
#include <support/TestServices.h>

#include <QApplication>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest/QTest>

using namespace flitmark;
using namespace std::chrono_literals;

namespace {

/// A home with everything the delegate works with, on a desktop without a display.
class Desktop
{
public:
    explicit Desktop(const QByteArray& config = R"({"has_completed_setup": true})")
    {
        if (!config.isEmpty()) {
            writeTestFile(directories.ownFolder() + QStringLiteral("/config.json"), config);
        }
        configManager.emplace(directories);
        configManager->update(
            [this](AppConfig& changed) { changed.vaultPath = home.filePath(QStringLiteral("vault")); });
        draftManager.emplace(directories, runLoop);
        noteManager.emplace(*configManager, runLoop, sound);
        delegate.emplace(AppServices{directories, runLoop, center, *configManager, services.controller,
                                     services.signalManager, services.daily, *draftManager, *noteManager, screens,
                                     windowManager, dialogs, workspace});
        delegate->applicationDidFinishLaunching();
    }

    PanelWindow& panel() { return *delegate->panelWindow(); }
    TriggerButtonWindow& trigger() { return *delegate->triggerWindow(); }
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
    TestWorkspace workspace;
    TestServices services;
    std::optional<ConfigManager> configManager;
    std::optional<DraftManager> draftManager;
    std::optional<NoteManager> noteManager;
    std::optional<AppDelegate> delegate;
};

} // namespace

class AppDelegateTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void firstRun_showsTheWizardAloneAndThenTheButton()
    {
        Desktop desktop{QByteArray()};
        AppDelegate& delegate = *desktop.delegate;
        QVERIFY(delegate.setupWindow()->isVisible());
        QCOMPARE(delegate.setupWindow()->windowTitle(), QStringLiteral("Flitmark Setup"));
        QVERIFY(delegate.triggerWindow() == nullptr);
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
    }
    void wizardClosedUnfinished_leavesNothingBehind()
    {
        Desktop desktop{QByteArray()};
        desktop.delegate->setupWindow()->close();
        desktop.runLoop.advance(1min);
        QVERIFY(desktop.delegate->triggerWindow() == nullptr);
        QVERIFY(!desktop.configManager->config().hasCompletedSetup);
    }

    void panelSize_isTakenFromTheConfigurationAndCorrectedThere_data()
    {
        QTest::addColumn<QByteArray>("stored");
        QTest::addColumn<QSize>("panel");
        QTest::addColumn<QSizeF>("kept");
        const auto row = [](const char* name, const char* size, QSize panel, QSizeF kept) {
            QTest::newRow(name) << QByteArray(size) << panel << kept;
        };
        row("fits", R"("panel_width": 500, "panel_height": 700)", {500, 700}, {500, 700});
        row("too small", R"("panel_width": 300, "panel_height": 200)", {460, 360}, {460, 360});
        row("one side too small", R"("panel_width": 440, "panel_height": 560)", {460, 560}, {460, 560});
        row("too large", R"("panel_width": 900, "panel_height": 900)", {600, 800}, {900, 900});
    }
    void panelSize_isTakenFromTheConfigurationAndCorrectedThere()
    {
        QFETCH(QByteArray, stored);
        QFETCH(QSizeF, kept);
        Desktop desktop("{\"has_completed_setup\": true, " + stored + "}");
        const ConfigManager reloaded(desktop.directories);
        QCOMPARE(QSizeF(reloaded.config().panelWidth, reloaded.config().panelHeight), kept);
        QTEST(desktop.panel().frameRect().size(), "panel");
    }
    void panelSize_changedByTheUser_isWritten()
    {
        Desktop desktop;
        desktop.delegate->showPanel();
        desktop.panel().setFrameRect(QRect(100, 100, 520, 640));
        QTRY_COMPARE(ConfigManager(desktop.directories).config().panelWidth, 520.0);
        QCOMPARE(ConfigManager(desktop.directories).config().panelHeight, 640.0);
    }

    void togglePanel_showsItInTheCornerAndAnnouncesIt()
    {
        Desktop desktop;
        QSignalSpy opened(&desktop.center, &NotificationCenter::panelOpened);
        QVERIFY(!desktop.panel().isVisible());

        desktop.delegate->togglePanel();
        QVERIFY(desktop.panel().isVisible());
        QCOMPARE(desktop.panel().frameRect(), QRect(968, 328, 460, 560));
        desktop.runLoop.advance(99ms);
        QCOMPARE(opened.count(), 0);
        desktop.runLoop.advance(1ms);
        QCOMPARE(opened.count(), 1);

        desktop.delegate->togglePanel();
        QVERIFY(!desktop.panel().isVisible());
        QVERIFY(!desktop.delegate->isPanelVisible());
    }
    void panel_closesByItsButtonByEscapeAndByTheDesktop()
    {
        Desktop desktop;
        const auto closes = [&](const std::function<void()>& act) {
            desktop.delegate->showPanel();
            QVERIFY(QTest::qWaitForWindowActive(&desktop.panel()));
            act();
            QVERIFY(!desktop.panel().isVisible());
            QVERIFY(!desktop.delegate->isPanelVisible());
        };
        closes([&] { desktop.button(QStringLiteral("Close"))->click(); });
        closes([&] { QTest::keyClick(&desktop.editor(), Qt::Key_Escape); });
        closes([&] { desktop.panel().close(); });
    }
    void hidingThePanel_givesTheKeyboardBackOnlyIfThePanelHasIt()
    {
        Desktop desktop;
        desktop.windowManager.active = 77;
        desktop.delegate->showPanel();
        desktop.windowManager.active = desktop.panel().winId();
        desktop.delegate->hidePanel();
        QCOMPARE(desktop.windowManager.activated, QList<WindowManager::WindowId>{77});

        desktop.windowManager.active = 77;
        desktop.delegate->showPanel();
        desktop.windowManager.active = 99; // the user has gone on to a third window
        desktop.delegate->hidePanel();
        QCOMPARE(desktop.windowManager.activated.size(), 1);
    }

    void typedRightAfterShowing_isInTheNoteAndInTheDraft()
    {
        Desktop desktop;
        desktop.delegate->showPanel();
        QVERIFY(QTest::qWaitForWindowActive(&desktop.panel()));
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("now"));
        desktop.runLoop.advance(100ms); // the panel brings the draft back
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral(" or never"));
        QCOMPARE(desktop.editor().text(), QStringLiteral("now or never"));
        QCOMPARE(desktop.draftManager->currentDraft()->content, QStringLiteral("now or never"));
    }
    void saving_byKeyWritesTheNoteAndClosesHalfASecondLater()
    {
        Desktop desktop;
        desktop.delegate->showPanel();
        QVERIFY(QTest::qWaitForWindowActive(&desktop.panel()));
        QTest::keyClicks(&desktop.editor(), QStringLiteral("Buy milk"));
        QTest::keyClick(&desktop.editor(), Qt::Key_Return, Qt::ControlModifier);
        const QString path = desktop.home.filePath(QStringLiteral("vault/Inbox/2026-01-22--140305--buy-milk.md"));
        QVERIFY(readTestFile(path).endsWith("\n---\n\nBuy milk"));
        QVERIFY(desktop.editor().text().isEmpty());
        desktop.runLoop.advance(499ms);
        QVERIFY(desktop.panel().isVisible());
        desktop.runLoop.advance(1ms);
        QVERIFY(!desktop.panel().isVisible());
    }

    void trigger_keepsItsPlaceWhenTheScreenShrinks()
    {
        Desktop desktop;
        QCOMPARE(desktop.trigger().pos(), QPoint(1372, 832));
        Q_EMIT desktop.trigger().view().draggedTo(QPointF(700, 300));
        QCOMPARE(desktop.trigger().pos(), QPoint(700, 300));
        Q_EMIT desktop.trigger().view().draggedTo(QPointF(5000, 5000));
        QCOMPARE(desktop.trigger().pos(), QPoint(1372, 832));

        desktop.screens.frames = ScreenFrames{QRectF(0, 0, 800, 600), QRectF(0, 0, 800, 600)};
        Q_EMIT desktop.screens.changed();
        const QPoint corner = desktop.trigger().pos();
        QCOMPARE(corner.x(), 732);
        QVERIFY(corner.y() + 56 <= 600 - 12);
        desktop.screens.frames.reset();
        Q_EMIT desktop.screens.changed();
        QCOMPARE(desktop.trigger().pos(), corner);
    }
    void trigger_overThePanelsCorner_leavesSaveClickable()
    {
        Desktop desktop;
        desktop.delegate->showPanel();
        const QPushButton* save = desktop.button(QStringLiteral("Save"));
        const auto rightOfSave = [&] { return save->mapToGlobal(save->rect().bottomRight()).x(); };
        QTRY_VERIFY(rightOfSave() < desktop.trigger().x());
        Q_EMIT desktop.trigger().view().draggedTo(QPointF(100, 100));
        QTRY_COMPARE(rightOfSave(), desktop.panel().frameRect().right() - 16);
    }
    void trigger_dragDoesNotToggle()
    {
        Desktop desktop;
        TriggerButtonView& view = desktop.trigger().view();
        const auto drag = [&](int points) {
            const QPoint start(28, 28);
            QTest::mousePress(&view, Qt::LeftButton, {}, start);
            QTest::mouseMove(&view, start + QPoint(points, 0));
            QTest::mouseRelease(&view, Qt::LeftButton, {}, start);
            desktop.runLoop.advance(100ms);
        };
        drag(1);
        QVERIFY(desktop.delegate->isPanelVisible());
        drag(-3);
        QVERIFY(desktop.delegate->isPanelVisible());
        drag(0);
        QVERIFY(!desktop.delegate->isPanelVisible());
    }
};

QTEST_MAIN(AppDelegateTest)
#include "AppDelegateTest.moc"

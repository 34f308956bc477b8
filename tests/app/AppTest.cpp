// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/PanelWindow.h>
#include <app/Placement.h>
#include <app/PlatformChoice.h>
#include <app/Translations.h>
#include <app/TriggerButtonView.h>
#include <app/TriggerButtonWindow.h>
#include <app/TriggerDrag.h>
#include <app/UpdateWindow.h>
#include <capture/NoteEditor.h>
#include <checkin/PopupPlacement.h>
#include <settings/SettingsWindow.h>
#include <support/Accessible.h>
#include <ui/Theme.h>

#include <QLineEdit>

#include "Desktop.h"

using namespace flitmark;
using namespace std::chrono_literals;

class AppTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void madeUpSettings_leaveAPanelThatCanBeSeenAndReached()
    {
        Desktop desktop([](AppConfig& config) {
            config.panelWidth = config.panelHeight = 900;
            config.windowMode = QStringLiteral("Normal");
            config.windowOpacity = 0;
        });
        desktop.delegate.showPanel();
        QCOMPARE(desktop.panel().frameRect().size(), QSize(600, 800));
        QVERIFY(desktop.panel().windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint));
        // The toolkit keeps it in 256 steps.
        QVERIFY(std::abs(desktop.panel().windowOpacity() - 0.5) < 0.01);
        QCOMPARE(desktop.settings().panelWidth, 900); // until the user says otherwise
    }
    void composition_isTakenOverOrGivenUpButNotLost()
    {
        const auto compose = [] {
            QInputMethodEvent event(QStringLiteral("ka"), {});
            QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
        };
        const auto commit = [] {
            QInputMethodEvent event;
            event.setCommitString(QStringLiteral("ka"));
            QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
        };
        struct Row
        {
            std::function<void(Desktop&)> act;
            const char* text;
            bool staysOpen;
        };
        const auto pressing = [](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
            return [key, modifiers](Desktop&) { QTest::keyClick(QApplication::focusWidget(), key, modifiers); };
        };
        const auto down = [](Qt::Key key) { QTest::keyPress(QApplication::focusWidget(), key); };
        const QList<Row> rows{
            {pressing(Qt::Key_Escape), "x", true},
            {pressing(Qt::Key_Return), "xka", true},
            {pressing(Qt::Key_Enter, Qt::KeypadModifier), "xka", true},
            {pressing(Qt::Key_Tab, Qt::ControlModifier), "xka", true},
            {[](Desktop& desktop) { desktop.panel().setFocus(); }, "xka", true},
            {[](Desktop& desktop) { desktop.delegate.hidePanel(); }, "xka", false},
            // Some input methods hand in once more what was taken over or given up. A new text may be the same.
            {[=](Desktop&) { down(Qt::Key_Return), commit(), compose(), commit(); }, "xkaka", true},
            {[=](Desktop&) { down(Qt::Key_Escape), commit(), commit(); }, "xka", true},
            // Others commit by Escape, and hand on the key.
            {[=](Desktop& desktop) { commit(), pressing(Qt::Key_Escape)(desktop); }, "xka", true},
            {[=](Desktop&) { commit(), press(Qt::Key_Escape), press(Qt::Key_Escape); }, "xka", false},
        };
        for (const Row& row : rows) {
            Desktop desktop;
            desktop.delegate.showPanel();
            QVERIFY(QTest::qWaitForWindowActive(&desktop.panel()));
            QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("x"));
            compose();
            row.act(desktop);
            QCOMPARE(desktop.panel().findChild<NoteEditor*>()->text(), QLatin1String(row.text));
            QCOMPARE(desktop.delegate.isPanelVisible(), row.staysOpen);
            QCOMPARE(desktop.draftManager.currentDraft()->content, QLatin1String(row.text));
        }
        Desktop desktop;
        desktop.delegate.showSettingsWindow();
        QWidget& window = *desktop.delegate.settingsWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        click(window, QStringLiteral("Vault"));
        type(named<QLineEdit>(window, QStringLiteral("Default Save Subfolder")), QStringLiteral("x"));
        compose();
        press(Qt::Key_Escape);
        QVERIFY(window.isVisible());
        compose();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(desktop.settings().saveSubfolder, QStringLiteral("xka"));
    }
    void trigger_staysOnTheScreen()
    {
        Desktop desktop;
        Q_EMIT desktop.trigger().view().draggedTo(QPointF(700, 300));
        // The screen gets smaller, and goes.
        for (const std::optional<ScreenFrames>& frames :
             {std::optional(ScreenFrames{QRectF(0, 0, 640, 600), QRectF(0, 0, 640, 600)}),
              std::optional<ScreenFrames>()}) {
            desktop.screens.frames = frames;
            Q_EMIT desktop.screens.changed();
            QCOMPARE(desktop.trigger().x(), 572);
            QVERIFY(desktop.trigger().frameGeometry().bottom() < 600 - 12);
        }
    }
    void panel_comesBackFromAScreenThatIsGone()
    {
        Desktop desktop;
        desktop.delegate.showPanel();
        const QRect place = desktop.panel().frameRect();
        desktop.panel().setFrameRect(place.translated(5000, 0));
        Q_EMIT desktop.screens.changed();
        QCOMPARE(desktop.panel().frameRect(), place);
    }
    void startAtLogin_isNotAskedAboutWhereItIsOn()
    {
        Desktop desktop;
        QVERIFY(desktop.loginService.registerProgram());
        desktop.loop.advance(1h);
        QVERIFY(desktop.dialogs.questions.isEmpty());
        QCOMPARE(desktop.loginService.status(), LoginService::Status::Enabled);
    }

    void windows_lieOnTheVisibleScreen()
    {
        // A desktop panel of 60 points at the bottom and a bar of 30 at the left; a screen elsewhere; a tiny one.
        const ScreenFrames barred{QRectF(30, 60, 1410, 815), QRectF(0, 0, 1440, 900)};
        const ScreenFrames other{QRectF(1440, 200, 800, 600), QRectF(1440, 200, 800, 600)};
        const ScreenFrames tiny{QRectF(0, 0, 400, 400), QRectF(0, 0, 400, 400)};
        const QSizeF panel(460, 560);
        const QSizeF trigger(56, 56);
        const QSizeF popup(280, 200);
        for (const auto& [found, origin] : std::initializer_list<std::pair<QPointF, QPointF>>{
                 {panelOrigin(panel, barred), {968, 72}},
                 {panelOrigin(panel, other), {1768, 212}},
                 {panelOrigin(panel, tiny), {-72, -172}},
                 {panelOrigin(panel, {}), {0, 0}},
                 {defaultTriggerOrigin(trigger, barred), {1372, 12}},
                 {clampedTriggerOrigin({0, -50}, trigger, barred), {42, 12}},
                 {clampedTriggerOrigin({2000, 2000}, trigger, barred), {1372, 807}},
                 {checkinOrigin(popup, other), {1940, 580}},
                 {dailyReviewOrigin(popup, other), {1940, 480}},
             }) {
            QCOMPARE(found, origin);
        }
    }

    void clickAfterADrag_isNone()
    {
        TriggerDrag drag;
        drag.begin({100, 100}, {128, 128});
        QCOMPARE(drag.move({131, 128}), QPointF(103, 100));
        QCOMPARE(drag.move({128, 129}), QPointF(100, 101)); // back near the start it still is a drag
        drag.end();
        QVERIFY(drag.isDragging()); // the click that comes with the release must see it
        drag.begin({30, 0}, {40, 10});
        drag.move({60, 10});
        drag.settle(); // of the first drag, while the second one goes on
        QVERIFY(drag.isDragging());
        drag.end();
        drag.settle();
        QVERIFY(!drag.isDragging());
    }

    void updateWindow_tellsAndLeadsToThePage()
    {
        const QUrl page(QStringLiteral("https://example.org/1.3"));
        Updater::State newer{.status = Updater::Status::Available, .version = QStringLiteral("1.3"), .page = page};
        Updater::State withoutPage = newer;
        withoutPage.page.clear();
        const Updater::State failed{.status = Updater::Status::Failed, .reason = QStringLiteral("No network.")};
        for (const auto& [state, said, button] : {std::tuple(newer, "Flitmark 1.3 is available.", "Open Download Page"),
                                                  {withoutPage, "Flitmark 1.3 is available.", "Close"},
                                                  {failed, "No network.", "Close"}}) {
            FakeUpdater updater;
            TestWorkspace workspace;
            UpdateWindow window(updater, workspace);
            window.showCentered(themeOfWindow(ColorPalette::obsidianNative, Scheme::Light),
                                UpdateWindow::Keyboard::Take);
            updater.current = state;
            Q_EMIT updater.stateChanged();
            QVERIFY(visibleTexts(window).contains(QLatin1String(said)));
            click(window, QLatin1String(button));
            QVERIFY(!window.isVisible());
            QCOMPARE(workspace.opened, state.page.isEmpty() ? QList<QUrl>() : QList<QUrl>{page});
        }
    }

    void translation_isTheUsersFirstOneUnlessEnglishComesBefore()
    {
        QTemporaryDir own;
        QTemporaryDir system;
        // The least that is a catalogue: its mark, one hash, one message.
        const QByteArray catalogue =
            QByteArray::fromHex("3cb86418caef9c95cd211cbf60a1bddd42000000080000000000000000690000000101");
        for (const auto& [folder, name] : {std::pair(&own, "de"), {&system, "de"}, {&system, "zh_TW"}}) {
            writeTestFile(folder->filePath(QStringLiteral("flitmark_%1.qm").arg(QLatin1String(name))), catalogue);
        }
        const QString german = own.filePath(QStringLiteral("flitmark_de.qm"));
        for (const auto& [languages, path] : {std::pair("de-AT,de", german),
                                              {"fr-FR,fr,de,en", german},
                                              {"zh-TW", system.filePath(QStringLiteral("flitmark_zh_TW.qm"))},
                                              {"zh-CN,zh", QString()},
                                              {"en-GB,en,de", QString()},
                                              {"C", QString()},
                                              {"fr,en-US,de", QString()}}) {
            const auto found = loadTranslation(listOf(languages), {own.path(), system.path()});
            QCOMPARE(found ? found->filePath() : QString(), path);
        }
    }
    void x11_isChosenUnlessTheUserChose()
    {
        QByteArray argument("flitmark");
        char* argv = argument.data();
        qputenv("WAYLAND_DISPLAY", "wayland-0");
        qputenv("DISPLAY", ":7");
        for (const auto& [byUser, chosen] : {std::pair("", "xcb"), std::pair("wayland", "wayland")}) {
            qputenv("QT_QPA_PLATFORM", byUser);
            {
                const PlatformChoice choice(1, &argv);
                QCOMPARE(qgetenv("QT_QPA_PLATFORM"), chosen);
            }
            QCOMPARE(qgetenv("QT_QPA_PLATFORM"), byUser); // what is started later decides for itself
        }
    }
};

QTEST_MAIN(AppTest)
#include "AppTest.moc"

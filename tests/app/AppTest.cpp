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
#include <setup/SetupWizardWindow.h>
#include <support/Accessible.h>
#include <support/Desktop.h>
#include <ui/Fonts.h>
#include <ui/QuestionWindow.h>
#include <ui/ThemeScope.h>

#include <QLineEdit>
#include <QSignalSpy>
#include <QTextBlock>

using namespace flitmark;
using namespace std::chrono_literals;

class AppTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void madeUpSettings_leaveAPanelThatCanBeSeenAndReached()
    {
        Desktop desktop([](AppConfig& config) {
            config.panelWidth = 900;
            config.panelHeight = 1e300;
            config.windowMode = "Normal";
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
            QInputMethodEvent event("ka", {});
            QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
        };
        const auto commit = [] {
            QInputMethodEvent event;
            event.setCommitString("ka");
            QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
        };
        const auto pressing = [](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
            return [key, modifiers](Desktop&) { QTest::keyClick(QApplication::focusWidget(), key, modifiers); };
        };
        const auto down = [](Qt::Key key) { QTest::keyPress(QApplication::focusWidget(), key); };
        const std::tuple<std::function<void(Desktop&)>, QString, bool> rows[] = {
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
        for (const auto& [act, text, staysOpen] : rows) {
            Desktop desktop;
            desktop.delegate.showPanel();
            QVERIFY(QTest::qWaitForWindowActive(&desktop.panel()));
            QTest::keyClicks(QApplication::focusWidget(), "x");
            compose();
            act(desktop);
            QCOMPARE(desktop.panel().findChild<NoteEditor*>()->text(), text);
            QCOMPARE(desktop.delegate.isPanelVisible(), staysOpen);
            QCOMPARE(desktop.drafts.currentDraft()->content, text);
        }
        Desktop desktop;
        desktop.delegate.showSettingsWindow();
        QWidget& window = *desktop.delegate.settingsWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        click(window, "Vault");
        type(named<QLineEdit>(window, "Default Save Subfolder"), "x");
        compose();
        press(Qt::Key_Escape);
        QVERIFY(window.isVisible());
        compose();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(desktop.settings().saveSubfolder, "xka");
    }
    void windows_followAScreenThatShrinksAndGoes()
    {
        Desktop desktop;
        desktop.delegate.showPanel();
        const QRect place = desktop.panel().frameRect();
        desktop.panel().setFrameRect(place.translated(5000, 0));
        Q_EMIT desktop.screens.changed();
        QCOMPARE(desktop.panel().frameRect(), place);
        Q_EMIT desktop.trigger().view().draggedTo(QPointF(700, 300));
        const ScreenFrames small{{0, 0, 640, 600}, {0, 0, 640, 600}};
        for (const auto& frames : {std::optional(small), std::optional<ScreenFrames>()}) {
            desktop.screens.frames = frames;
            Q_EMIT desktop.screens.changed();
            QCOMPARE(desktop.trigger().x(), 572);
            QVERIFY(desktop.trigger().frameGeometry().bottom() < 600 - 12);
        }
    }
    void startAtLogin_isNotAskedAboutWhereItIsOn()
    {
        Desktop desktop;
        QVERIFY(desktop.loginService.registerProgram());
        desktop.loop.advance(1h);
        QVERIFY(desktop.dialogs.questions.isEmpty());
        QCOMPARE(desktop.loginService.status(), LoginService::Status::Enabled);
    }

    void wizard_endsOnceAndTellsTheKey()
    {
        Desktop desktop([](AppConfig& config) { config.hasCompletedSetup = false; });
        QWidget& wizard = *desktop.delegate.setupWindow();
        click(wizard, "Get Started");
        click(wizard, "Use custom folder path");
        type(named<QLineEdit>(wizard, "Vault path"), "/v");
        click(wizard, "Next");
        click(wizard, "Next");
        QVERIFY(shows(wizard, "On this computer: Alt+N"));
        desktop.keyMonitor.current = {.status = KeyMonitor::Status::Refused, .reason = "Not here."};
        Q_EMIT desktop.keyMonitor.stateChanged();
        QCOMPARE(visibleTexts(wizard).filter("the desktop refused the hotkey. Not here.").size(), 1);
        click(wizard, "Start Using Flitmark");
        desktop.loop.advance(240ms);
        click(wizard, "Start Using Flitmark");
        desktop.loop.advance(1s);
        QVERIFY(desktop.delegate.setupWindow() == nullptr);
        QCOMPARE(desktop.dialogs.questions.size(), 1);
    }
    void question_isDeafAtFirstAndTellsTheKey()
    {
        Desktop desktop;
        desktop.loop.advance(1s);
        QuestionWindow window(desktop.dialogs.questions.value(0), ColorPalette::obsidianNative, desktop.loop);
        QSignalSpy answered(&window, &QuestionWindow::answered);
        window.showCentered();
        QVERIFY(QTest::qWaitForWindowActive(&window) && shows(window, "On this computer: Alt+N"));
        desktop.keyMonitor.current.reason = "Late.";
        Q_EMIT desktop.keyMonitor.stateChanged();
        QVERIFY(!shows(window, "On this computer: Alt+N") && window.accessibleDescription().endsWith("Late."));
        for (const auto& [wait, answers] : {std::pair(499ms, 0), {1ms, 1}}) {
            desktop.loop.advance(wait);
            press(Qt::Key_Return);
            QTest::keyClick(&window, Qt::Key_Escape);
            QCOMPARE(answered.size(), answers);
        }
    }
    void openWindows_followTheDesktopsSchemeAndFont()
    {
        const QPalette palette = QApplication::palette();
        const QFont font = QApplication::font();
        Desktop desktop;
        desktop.delegate.showPanel();
        auto* editor = desktop.panel().findChild<NoteEditor*>();
        QuestionWindow question({.message = "?", .details = {}, .buttons = {"OK"}}, ColorPalette::forestFocus,
                                desktop.loop);
        UpdateWindow updates(desktop.updater, desktop.workspace);
        question.showCentered();
        updates.showCentered(ColorPalette::forestFocus, UpdateWindow::Keyboard::Take);
        for (const auto& [scheme, color] : {std::pair(Scheme::Dark, Qt::black), {Scheme::Light, Qt::white}}) {
            QApplication::setPalette(QPalette(color));
            QCoreApplication::processEvents();
            QCOMPARE(ThemeScope::of(question), themeOfWindow(ColorPalette::forestFocus, scheme));
            QCOMPARE(ThemeScope::of(updates), themeOfWindow(ColorPalette::forestFocus, scheme));
        }
        for (const double points : {16.5, 9.0}) {
            QFont other = font;
            other.setPointSizeF(points);
            QApplication::setFont(other);
            QCoreApplication::processEvents();
            QCOMPARE(editor->font().pixelSize(), fontOf(TextRole::Note).pixelSize());
            QCOMPARE(editor->document()->firstBlock().blockFormat().lineHeight(), rowHeight(TextRole::Note));
        }
        QApplication::setPalette(palette);
        QApplication::setFont(font);
    }

    void windows_lieOnTheVisibleScreen()
    {
        // A desktop panel of 60 points at the bottom and a bar of 30 at the left; a screen elsewhere; a tiny one.
        const ScreenFrames barred{{30, 60, 1410, 815}, {0, 0, 1440, 900}};
        const ScreenFrames other{{1440, 200, 800, 600}, {1440, 200, 800, 600}};
        const QSizeF panel(460, 560);
        const QSizeF trigger(56, 56);
        using Row = std::pair<QPointF, QPointF>;
        for (const auto& [found, origin] : {
                 Row(panelOrigin(panel, barred), {968, 72}),
                 Row(panelOrigin(panel, other), {1768, 212}),
                 Row(panelOrigin(panel, ScreenFrames{{0, 0, 400, 400}, {0, 0, 400, 400}}), {-72, -172}),
                 Row(panelOrigin(panel, {}), {0, 0}),
                 Row(defaultTriggerOrigin(trigger, barred), {1372, 12}),
                 Row(clampedTriggerOrigin({0, -50}, trigger, barred), {42, 12}),
                 Row(clampedTriggerOrigin({2000, 2000}, trigger, barred), {1372, 807}),
                 Row(checkinOrigin({280, 200}, other), {1940, 580}),
                 Row(dailyReviewOrigin({280, 200}, other), {1940, 480}),
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
        using Status = Updater::Status;
        const QUrl page("https://example.org/1.3");
        for (const auto& [status, url, said, button] : {
                 std::tuple(Status::Available, page, "Flitmark 1.3 is available.", "Open Download Page"),
                 {Status::Available, QUrl(), "Flitmark 1.3 is available.", "Close"},
                 {Status::Failed, QUrl(), "No network.", "Close"},
             }) {
            FakeUpdater updater;
            TestWorkspace workspace;
            UpdateWindow window(updater, workspace);
            window.showCentered(ColorPalette::obsidianNative, UpdateWindow::Keyboard::Take);
            updater.current = {.status = status, .version = "1.3", .page = url, .reason = "No network."};
            Q_EMIT updater.stateChanged();
            QVERIFY(shows(window, said));
            click(window, button);
            QVERIFY(!window.isVisible());
            QCOMPARE(workspace.opened, url.isEmpty() ? QList<QUrl>() : QList<QUrl>{url});
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
            writeTestFile(folder->filePath(QStringLiteral("flitmark_%1.qm").arg(name)), catalogue);
        }
        const QString german = own.filePath("flitmark_de.qm");
        for (const auto& [languages, path] : {std::pair("de-AT,de", german),
                                              {"fr-FR,fr,de,en", german},
                                              {"zh-TW", system.filePath("flitmark_zh_TW.qm")},
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

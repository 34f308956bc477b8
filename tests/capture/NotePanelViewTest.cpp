// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/BrowseModel.h>
#include <capture/DraftManager.h>
#include <capture/NewTabView.h>
#include <capture/NoteEditor.h>
#include <capture/NoteManager.h>
#include <capture/NotePanelModel.h>
#include <capture/NotePanelView.h>
#include <config/ConfigManager.h>
#include <daily/DailyTabModel.h>
#include <support/ManualRunLoop.h>
#include <support/RecordingSound.h>
#include <support/TestServices.h>
#include <ui/ChipButton.h>

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest/QTest>

using namespace flitmark;
using namespace std::chrono_literals;

namespace {

/// The panel's view with everything behind it, in a window of its own.
struct Panel
{
    Panel()
    {
        view.resize(460, 560);
        view.show();
        view.activateWindow();
        isActive = QTest::qWaitForWindowActive(&view);
        view.takeKeyboard();
        model.panelAppeared();
    }

    NoteEditor& editor() { return *view.findChild<NoteEditor*>(); }
    template<typename Widget>
    Widget* find(const QString& name)
    {
        for (Widget* widget : view.findChildren<Widget*>()) {
            // Not that of a tab out of sight.
            const QWidget* page = view.findChild<NewTabView*>();
            if (widget->accessibleName() == name && page->isAncestorOf(widget)) {
                return widget;
            }
        }
        return nullptr;
    }
    /// The text of every label that can be seen.
    QStringList labels()
    {
        QStringList texts;
        for (const QLabel* label : view.findChildren<QLabel*>()) {
            if (label->isVisible() && !label->text().isEmpty()) {
                texts.append(label->text());
            }
        }
        return texts;
    }

    QTemporaryDir home;
    Directories directories{home.path(), home.path(), home.path()};
    ManualRunLoop runLoop;
    RecordingSound sound;
    ConfigManager configManager{directories};
    DraftManager draftManager{directories, runLoop};
    NoteManager noteManager{configManager, runLoop, sound};
    NotePanelModel model{configManager, draftManager, noteManager, runLoop};
    TestWorkspace workspace;
    BrowseModel browse{configManager, workspace, runLoop};
    TestServices services;
    DailyTabModel daily{DailyTabModel::Services{services.daily, services.signalManager, services.controller,
                                                services.notifications, services.loop}};
    NotePanelView view{{model, browse, daily}, configManager, nullptr};
    bool isActive = false;
};

} // namespace

class NotePanelViewTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void editor_keysThatWriteAndKeysThatMove()
    {
        Panel panel;
        QVERIFY(panel.isActive);
        NoteEditor& editor = panel.editor();
        QTest::keyClicks(&editor, QStringLiteral("a"));
        // Twice in a row, on an empty line too, and with Shift.
        QTest::keyClick(&editor, Qt::Key_Return);
        QTest::keyClick(&editor, Qt::Key_Return);
        QTest::keyClick(&editor, Qt::Key_Return, Qt::ShiftModifier);
        QTest::keyClick(&editor, Qt::Key_Tab);
        QTest::keyClicks(&editor, QStringLiteral("b"));
        QCOMPARE(panel.model.noteContent(), QStringLiteral("a\n\n\n\tb"));

        QVERIFY(editor.hasFocus());
        QTest::keyClick(&editor, Qt::Key_Tab, Qt::ControlModifier);
        QVERIFY(!editor.hasFocus());
        QCOMPARE(panel.model.noteContent(), QStringLiteral("a\n\n\n\tb"));
    }
    void editor_keepsEveryCharacterItIsGiven_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("no-break space") << QStringLiteral(u"10\u00A0km");
        QTest::newRow("right to left") << QStringLiteral(u"\u05E9\u05DC\u05D5\u05DD, \u0645\u0631\u062D\u0628\u0627");
        QTest::newRow("emoji sequence") << QStringLiteral(u"\U0001F469\u200D\U0001F4BB and \U0001F3F3\uFE0F");
        QTest::newRow("lone surrogate") << QString(QChar(0xD83D)) + QStringLiteral(" x");
        QTest::newRow("markup") << QStringLiteral("<b>not bold</b> & [[link]]");
        QTest::newRow("blank ends") << QStringLiteral("\n\n x \n");
    }
    void editor_keepsEveryCharacterItIsGiven()
    {
        QFETCH(QString, text);
        Panel panel;
        QGuiApplication::clipboard()->setText(text);
        panel.editor().paste();
        QCOMPARE(panel.editor().text(), text);
        QCOMPARE(panel.model.noteContent(), text);
    }
    void editor_givenTheTextItHas_keepsCursorAndUndo()
    {
        Panel panel;
        QTest::keyClicks(&panel.editor(), QStringLiteral("one two"));
        QTest::keyClick(&panel.editor(), Qt::Key_Home);
        panel.model.panelOpened(); // brings the draft, which is this text
        QTest::keyClicks(&panel.editor(), QStringLiteral("zero "));
        QCOMPARE(panel.editor().text(), QStringLiteral("zero one two"));
        panel.editor().undo();
        QCOMPARE(panel.editor().text(), QStringLiteral("one two"));
    }

    void quickTags_areToggledWithoutTakingTheKeyboard()
    {
        Panel panel;
        auto* idea = panel.find<ChipButton>(QStringLiteral("#type/idea"));
        QTest::mouseClick(idea, Qt::LeftButton);
        QVERIFY(idea->isChecked());
        QVERIFY(panel.editor().hasFocus());
        QCOMPARE(panel.model.selectedQuickTags().size(), 1);
        QTest::mouseClick(idea, Qt::LeftButton);
        QVERIFY(!idea->isChecked());

        panel.configManager.update([](AppConfig& config) {
            config.quickTags = {{QUuid::createUuid(), QStringLiteral("*"), QStringLiteral("#new"), true}};
        });
        panel.model.loadDefaultTags();
        QCOMPARE(panel.view.findChildren<ChipButton*>().size(), 1);
        QVERIFY(panel.find<ChipButton>(QStringLiteral("#new"))->isChecked());
    }
    void manyQuickTags_wrapInsideThePanel()
    {
        Panel panel;
        panel.configManager.update([](AppConfig& config) {
            config.quickTags.clear();
            for (int i = 0; i < 30; ++i) {
                config.quickTags.append({QUuid::createUuid(), QStringLiteral("*"), QString::number(i), false});
            }
        });
        QApplication::processEvents();
        int rows = 0;
        for (const ChipButton* chip : panel.view.findChildren<ChipButton*>()) {
            const QRect place(chip->mapTo(&panel.view, QPoint(0, 0)), chip->size());
            QVERIFY(panel.view.rect().adjusted(16, 0, -16, 0).contains(place));
            rows = std::max(rows, place.top());
        }
        QVERIFY(rows > panel.editor().fontMetrics().height());
        QVERIFY(panel.editor().isVisible());
    }

    void footer_countsWordsAndShowsTheOutcome()
    {
        Panel panel;
        QVERIFY(panel.labels().contains(QStringLiteral("0 words")));
        QTest::mouseClick(panel.find<QPushButton>(QStringLiteral("Save")), Qt::LeftButton);
        QVERIFY(panel.labels().contains(QStringLiteral("Nothing to save")));

        QTest::keyClicks(&panel.editor(), QStringLiteral("one two"));
        QVERIFY(panel.labels().contains(QStringLiteral("2 words")));
        panel.configManager.update([](AppConfig& config) { config.vaultPath = QStringLiteral("/dev/null/vault"); });
        QTest::keyClick(&panel.editor(), Qt::Key_Enter, Qt::ControlModifier);
        QVERIFY(panel.labels().contains(QStringLiteral("Error saving")));
        QCOMPARE(panel.editor().text(), QStringLiteral("one two"));
        panel.runLoop.advance(2s);
        QTRY_VERIFY(!panel.labels().contains(QStringLiteral("Error saving")));
    }

    void tabs_followTheModelAndLeadIt()
    {
        Panel panel;
        panel.model.setSelectedTab(NotePanelModel::Tab::daily);
        QVERIFY(!panel.editor().isVisible());
        for (QPushButton* tab : panel.view.findChildren<QPushButton*>()) {
            if (tab->accessibleName() == u"New" || tab->text() == u"New") {
                tab->click();
            }
        }
        QCOMPARE(panel.model.selectedTab(), NotePanelModel::Tab::newNote);
        QVERIFY(panel.editor().isVisible());
    }
    void dailyTab_isToldWhetherItIsShown()
    {
        Panel panel;
        panel.services.setInterval(5);
        writeTestFile(panel.services.notePath, "## Tasks\n- [ ] a\n");
        panel.model.setSelectedTab(NotePanelModel::Tab::daily);
        panel.services.loop.runQueued();
        QCOMPARE(panel.services.daily.todayNote().tasks.size(), 1);
        panel.daily.startPomodoro(1);
        panel.view.hide();
        panel.services.loop.advance(5min);
        QCOMPARE(panel.services.note(), QByteArray("## Tasks\n- [ ] a 🍅\n"));
        panel.model.setSelectedTab(NotePanelModel::Tab::newNote);
        panel.services.loop.advance(5min);
        QCOMPARE(panel.services.note(), QByteArray("## Tasks\n- [ ] a 🍅\n"));
    }
    void escape_closesTheSheetBeforeThePanel()
    {
        Panel panel;
        QSignalSpy closings(&panel.view, &NotePanelView::closeAsked);
        panel.model.setSelectedTab(NotePanelModel::Tab::daily);
        panel.daily.setShowPomodoroTaskPicker(true);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QVERIFY(!panel.daily.showPomodoroTaskPicker());
        QCOMPARE(closings.size(), 0);
        QTest::keyClick(&panel.view, Qt::Key_Escape);
        QCOMPARE(closings.size(), 1);
    }
};

QTEST_MAIN(NotePanelViewTest)
#include "NotePanelViewTest.moc"

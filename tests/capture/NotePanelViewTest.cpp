// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/BrowseModel.h>
#include <capture/DraftManager.h>
#include <capture/NoteEditor.h>
#include <capture/NoteManager.h>
#include <capture/NotePanelModel.h>
#include <capture/NotePanelView.h>
#include <daily/DailyTabModel.h>
#include <support/Accessible.h>
#include <support/TestServices.h>
#include <ui/ChipButton.h>

#include <QClipboard>
#include <QSignalSpy>

using namespace flitmark;
using namespace std::chrono_literals;

namespace {

/// The panel's view with everything behind it, in a window of its own.
struct Panel
{
    Panel()
    {
        view.resize(460, 560);
        showActive(view);
        view.takeKeyboard();
        model.panelAppeared();
    }

    NoteEditor& editor() { return *view.findChild<NoteEditor*>(); }
    TestServices services;
    DraftManager draftManager{services.directories, services.loop};
    NoteManager noteManager{services.config, services.loop, services.sound};
    NotePanelModel model{services.config, draftManager, noteManager, services.loop};
    BrowseModel browse{services.config, services.workspace, services.loop};
    DailyTabModel daily{DailyTabModel::Services{services.daily, services.signalManager, services.controller,
                                                services.notifications, services.loop}};
    NotePanelView view{{model, browse, daily}, services.config, nullptr};
};

} // namespace

class NotePanelViewTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void editor_keysThatWriteAndKeysThatMove()
    {
        Panel panel;
        NoteEditor& editor = panel.editor();
        QTest::keyClicks(&editor, QStringLiteral("a"));
        // Twice in a row, on an empty line too, and with Shift.
        QTest::keyClick(&editor, Qt::Key_Return);
        QTest::keyClick(&editor, Qt::Key_Return);
        QTest::keyClick(&editor, Qt::Key_Return, Qt::ShiftModifier);
        QTest::keyClick(&editor, Qt::Key_Tab);
        QTest::keyClicks(&editor, QStringLiteral("b"));
        QCOMPARE(panel.model.noteContent(), QStringLiteral("a\n\n\n\tb"));
        QTest::keyClick(&editor, Qt::Key_Tab, Qt::ControlModifier);
        QVERIFY(!editor.hasFocus());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
        QVERIFY(editor.hasFocus());
        QTest::keyClick(&editor, Qt::Key_Backtab, Qt::ShiftModifier);
        QVERIFY(!editor.hasFocus());
        QCOMPARE(panel.model.noteContent(), QStringLiteral("a\n\n\n\tb"));
    }
    void editor_keepsEveryCharacterItIsGiven()
    {
        for (const QString& text : {QStringLiteral(u"10\u00A0km"),
                                    QStringLiteral(u"\u05E9\u05DC\u05D5\u05DD, \u0645\u0631\u062D\u0628\u0627"),
                                    QStringLiteral(u"\U0001F469\u200D\U0001F4BB and \U0001F3F3\uFE0F"),
                                    QString(QChar(0xD83D)) + QStringLiteral(" x"),
                                    QStringLiteral("<b>not bold</b> & [[link]]"), QStringLiteral("\n\n x \n")}) {
            Panel panel;
            QGuiApplication::clipboard()->setText(text);
            panel.editor().paste();
            QVERIFY(panel.editor().text() == text && panel.model.noteContent() == text);
        }
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

    void manyQuickTags_wrapInsideThePanel()
    {
        Panel panel;
        panel.services.config.update([](AppConfig& config) {
            config.quickTags.resize(30, {QUuid::createUuid(), QStringLiteral("*"), QStringLiteral("#tag"), false});
        });
        QApplication::processEvents();
        const QList<ChipButton*> chips = panel.view.findChildren<ChipButton*>();
        QCOMPARE(chips.size(), 30);
        for (const ChipButton* chip : chips) {
            QVERIFY(panel.view.rect().contains(QRect(chip->mapTo(&panel.view, QPoint()), chip->size())));
        }
    }

    void dailyTab_isToldWhetherItIsShown()
    {
        Panel panel;
        panel.services.setInterval(5);
        writeTestFile(panel.services.notePath, "## Tasks\n- [ ] a\n");
        panel.model.setSelectedTab(NotePanelModel::Tab::daily);
        panel.services.loop.runQueued();
        panel.daily.startPomodoro(1);
        panel.view.hide();
        for (const auto tab : {NotePanelModel::Tab::daily, NotePanelModel::Tab::newNote}) {
            panel.model.setSelectedTab(tab);
            panel.services.loop.advance(5min);
            QCOMPARE(panel.services.note(), QByteArray("## Tasks\n- [ ] a 🍅\n"));
        }
    }
    void escape_closesTheSheetBeforeThePanel()
    {
        Panel panel;
        QSignalSpy closings(&panel.view, &NotePanelView::closeAsked);
        panel.model.setSelectedTab(NotePanelModel::Tab::daily);
        panel.daily.setShowPomodoroTaskPicker(true);
        press(Qt::Key_Escape);
        QVERIFY(!panel.daily.showPomodoroTaskPicker());
        QCOMPARE(closings.size(), 0);
        QTest::keyClick(&panel.view, Qt::Key_Escape);
        QCOMPARE(closings.size(), 1);
    }
};

QTEST_MAIN(NotePanelViewTest)
#include "NotePanelViewTest.moc"

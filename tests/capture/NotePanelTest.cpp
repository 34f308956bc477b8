// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/BrowseModel.h>
#include <capture/NoteEditor.h>
#include <capture/NotePanelModel.h>
#include <capture/NotePanelView.h>
#include <daily/tab/DailyTabModel.h>
#include <support/Accessible.h>
#include <support/TestServices.h>
#include <ui/ChipButton.h>

#include <QClipboard>
#include <QSignalSpy>

using namespace flitmark;
using namespace std::chrono_literals;

namespace {

/// The panel with everything behind it, in a window of its own. The third quick tag is one that every note gets.
struct Panel : TestServices
{
    Panel()
    {
        config.update([](AppConfig& settings) { settings.quickTags[2].isDefault = true; });
        view.resize(460, 560);
        showActive(view);
        view.takeKeyboard();
    }

    NoteEditor& editor() { return *view.findChild<NoteEditor*>(); }
    QUuid tag(int index) const { return config.config().quickTags[index].id; }
    QByteArray draftFile() const { return readTestFile(drafts.draftURL()); }
    void saveDraft(const char* text, const char* title = "") { drafts.save(text, title, "Fleeting"); }

    NotePanelModel model{config, drafts, notes, loop};
    BrowseModel browse{config, workspace, loop};
    DailyTabModel dailyTab{{daily, signalManager, controller, notifications, loop}};
    NotePanelView view{{model, browse, dailyTab}, config, nullptr};
};

} // namespace

class NotePanelTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typing_writesTheDraftEachTime()
    {
        Panel panel;
        for (const auto& [text, words] :
             {std::pair("", 0), std::pair("one  two ", 2), std::pair("one\ntwo", 1), std::pair(" \n ", 1)}) {
            panel.model.setNoteContent(text);
            QCOMPARE(panel.model.wordCount(), words);
            QCOMPARE(panel.draftFile().contains("\"one"), QByteArray(text).contains("one"));
        }
        QCOMPARE(panel.draftFile(), QByteArray());
    }
    void saveNote_appendsTheTagsThereAre()
    {
        Panel panel;
        panel.model.setNoteContent(" Call Ann \n");
        panel.model.toggleQuickTag(panel.tag(2));
        panel.model.toggleQuickTag(panel.tag(0));
        panel.model.toggleQuickTag(QUuid::createUuid()); // deleted in the settings since
        panel.model.saveNote();
        const QByteArray saved = readTestFile(panel.vault + "/Inbox/2026-01-22--093000--call-ann.md");
        QVERIFY(saved.endsWith("---\n\n Call Ann \n\n\n#priority/high #type/idea"));
        QVERIFY(panel.draftFile().isEmpty());
    }
    void opening_bringsTheDraftButNeverEmpties()
    {
        Panel panel;
        panel.saveDraft("unsaved");
        panel.model.panelAppeared();
        QVERIFY(!panel.draftFile().isEmpty());
        panel.drafts.clear();
        panel.model.panelOpened();
        QCOMPARE(panel.model.noteContent(), "unsaved");
        panel.saveDraft("", "a title alone");
        panel.model.panelOpened();
        QCOMPARE(panel.model.noteContent(), "unsaved");
        panel.saveDraft("drafted");
        panel.model.panelOpened();
        QCOMPARE(panel.model.noteContent(), "drafted");
    }

    void editor_keysThatWriteAndKeysThatMove()
    {
        Panel panel;
        NoteEditor& editor = panel.editor();
        QTest::keyClicks(&editor, "a");
        // Twice in a row, on an empty line too, and with Shift.
        QTest::keyClick(&editor, Qt::Key_Return);
        QTest::keyClick(&editor, Qt::Key_Return);
        QTest::keyClick(&editor, Qt::Key_Return, Qt::ShiftModifier);
        QTest::keyClick(&editor, Qt::Key_Tab);
        QTest::keyClicks(&editor, "b");
        QCOMPARE(panel.model.noteContent(), "a\n\n\n\tb");
        QTest::keyClick(&editor, Qt::Key_Tab, Qt::ControlModifier);
        panel.model.panelOpened(); // comes a moment after the panel was shown
        QVERIFY(!editor.hasFocus());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
        QVERIFY(editor.hasFocus());
        QTest::keyClick(&editor, Qt::Key_Backtab, Qt::ShiftModifier);
        QVERIFY(!editor.hasFocus());
        QCOMPARE(panel.model.noteContent(), "a\n\n\n\tb");
    }
    void editor_keepsEveryCharacterItIsGiven()
    {
        for (const QString& text :
             QStringList{"10\u00A0km", "\u05E9\u05DC\u05D5\u05DD, \u0645\u0631\u062D\u0628\u0627",
                         "\U0001F469\u200D\U0001F4BB and \U0001F3F3\uFE0F", QString(QChar(0xD83D)) + " x",
                         "<b>not bold</b> & [[link]]", "\n\n x \n"}) {
            Panel panel;
            QGuiApplication::clipboard()->setText(text);
            panel.editor().paste();
            QVERIFY(panel.editor().text() == text && panel.model.noteContent() == text);
        }
    }
    void editor_givenTheTextItHas_keepsCursorAndUndo()
    {
        Panel panel;
        QTest::keyClicks(&panel.editor(), "one two");
        QTest::keyClick(&panel.editor(), Qt::Key_Home);
        panel.model.panelOpened(); // brings the draft, which is this text
        QTest::keyClicks(&panel.editor(), "zero ");
        QCOMPARE(panel.editor().text(), "zero one two");
        panel.editor().undo();
        QCOMPARE(panel.editor().text(), "one two");
    }

    void manyQuickTags_wrapInsideThePanel()
    {
        Panel panel;
        panel.config.update([](AppConfig& config) {
            config.quickTags.resize(30, {QUuid::createUuid(), "*", "#tag", false});
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
        panel.setInterval(5);
        writeTestFile(panel.notePath, "## Tasks\n- [ ] a\n");
        panel.model.setSelectedTab(NotePanelModel::Tab::daily);
        panel.loop.runQueued();
        panel.dailyTab.startPomodoro(1);
        panel.view.hide();
        for (const auto tab : {NotePanelModel::Tab::daily, NotePanelModel::Tab::newNote}) {
            panel.model.setSelectedTab(tab);
            panel.loop.advance(5min);
            QCOMPARE(panel.note(), QByteArray("## Tasks\n- [ ] a 🍅\n"));
        }
    }
    void escape_closesTheSheetBeforeThePanel()
    {
        Panel panel;
        QSignalSpy closings(&panel.view, &NotePanelView::closeAsked);
        panel.model.setSelectedTab(NotePanelModel::Tab::daily);
        panel.dailyTab.setShowPomodoroTaskPicker(true);
        press(Qt::Key_Escape);
        QVERIFY(!panel.dailyTab.showPomodoroTaskPicker());
        QCOMPARE(closings.size(), 0);
        QTest::keyClick(&panel.view, Qt::Key_Escape);
        QCOMPARE(closings.size(), 1);
    }
};

QTEST_MAIN(NotePanelTest)
#include "NotePanelTest.moc"

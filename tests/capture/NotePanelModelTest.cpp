// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/DraftManager.h>
#include <capture/NoteManager.h>
#include <capture/NotePanelModel.h>
#include <support/TestServices.h>

#include <QSignalSpy>

using namespace flitmark;
using namespace std::chrono_literals;
using StatusType = NotePanelModel::StatusType;

namespace {

/// The panel's model with everything it needs. The third quick tag is one that every note gets.
struct Panel : TestServices
{
    Panel()
    {
        config.update([](AppConfig& settings) { settings.quickTags[2].isDefault = true; });
    }
    QUuid tag(int index) const { return config.config().quickTags[index].id; }
    QString inbox() const { return vault + QStringLiteral("/Inbox/"); }
    QByteArray draftFile() const { return readTestFile(drafts.draftURL()); }

    DraftManager drafts{directories, loop};
    NoteManager notes{config, loop, sound};
    NotePanelModel model{config, drafts, notes, loop};
    QSignalSpy closed{&model, &NotePanelModel::closeRequested};
};

} // namespace

class NotePanelModelTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typing_writesTheDraftEachTime()
    {
        Panel panel;
        QSignalSpy changed(&panel.model, &NotePanelModel::noteContentChanged);
        for (const char* text : {"a", "a b", "a b"}) {
            panel.model.setNoteContent(QString::fromUtf8(text));
            QVERIFY(panel.draftFile().contains('"' + QByteArray(text) + '"'));
        }
        QCOMPARE(changed.count(), 2);
        QCOMPARE(panel.drafts.currentDraft()->noteType, QStringLiteral("Fleeting"));
        panel.model.setNoteContent(QStringLiteral(" \n"));
        QCOMPARE(panel.draftFile(), QByteArray());
    }
    void wordCount_countsBetweenSpaces()
    {
        Panel panel;
        const QList<std::pair<const char*, int>> rows = {{"", 0}, {"one  two ", 2}, {"one\ntwo", 1}, {" \n ", 1}};
        for (const auto& [text, words] : rows) {
            panel.model.setNoteContent(QString::fromUtf8(text));
            QCOMPARE(panel.model.wordCount(), words);
        }
    }
    void saveNote_blank_writesNothing()
    {
        Panel panel;
        panel.model.setNoteContent(QStringLiteral(" \n\t "));
        panel.model.saveNote();
        QCOMPARE(panel.model.statusMessage(), QStringLiteral("Nothing to save"));
        QVERIFY(panel.model.showStatus() && panel.model.statusType() == StatusType::info);
        panel.loop.advance(10s);
        QCOMPARE(panel.closed.count(), 0);
        QVERIFY(!QFileInfo::exists(panel.vault));
        QCOMPARE(panel.model.noteContent(), QStringLiteral(" \n\t "));
    }
    void saveNote_success_startsAnewAndClosesLater()
    {
        Panel panel;
        panel.model.setNoteContent(QStringLiteral(" Call Ann \n"));
        for (const int index : {2, 3, 0, 3}) {
            panel.model.toggleQuickTag(panel.tag(index));
        }
        // A tag that has been deleted in the settings since appends nothing.
        panel.model.toggleQuickTag(QUuid::createUuid());
        QSignalSpy listed(&panel.model, &NotePanelModel::existingNotesChanged);
        panel.model.saveNote();
        const QByteArray saved = readTestFile(panel.inbox() + QStringLiteral("2026-01-22--093000--call-ann.md"));
        QVERIFY(saved.endsWith("---\n\n Call Ann \n\n\n#priority/high #type/idea"));
        QCOMPARE(panel.model.statusMessage(), QStringLiteral("Saved"));
        QCOMPARE(panel.model.statusType(), StatusType::success);
        QCOMPARE(panel.model.noteContent(), QString());
        QCOMPARE(panel.model.selectedQuickTags(), QSet<QUuid>{panel.tag(2)});
        QCOMPARE(panel.draftFile(), QByteArray());
        QCOMPARE(listed.count(), 1);
        QCOMPARE(panel.model.existingNotes()[0].preview, QStringLiteral(" Call Ann "));
        panel.loop.advance(499ms);
        QCOMPARE(panel.closed.count(), 0);
        panel.loop.advance(1ms);
        QCOMPARE(panel.closed.count(), 1);
    }
    void saveNote_failure_leavesEverything()
    {
        Panel panel;
        writeTestFile(panel.vault, "a file where the vault should be");
        panel.model.setNoteContent(QStringLiteral("precious"));
        panel.model.toggleQuickTag(panel.tag(1));
        panel.model.saveNote();
        QCOMPARE(panel.output->lines(), QStringList{QStringLiteral("Failed to save note: Not a directory")});
        panel.loop.advance(1s);
        QCOMPARE(panel.model.statusMessage(), QStringLiteral("Error saving"));
        QCOMPARE(panel.model.statusType(), StatusType::error);
        QCOMPARE(panel.model.noteContent(), QStringLiteral("precious"));
        QCOMPARE(panel.model.selectedQuickTags(), QSet<QUuid>{panel.tag(1)});
        QVERIFY(panel.draftFile().contains("precious"));
        QCOMPARE(panel.closed.count(), 0);
    }
    void status_eachMessageHidesTheLine()
    {
        Panel panel;
        panel.model.showStatusMessage(QStringLiteral("one"), StatusType::info);
        panel.loop.advance(1500ms);
        panel.model.showStatusMessage(QStringLiteral("two"), StatusType::error);
        QVERIFY(panel.model.showStatus());
        panel.loop.advance(500ms);
        QVERIFY(!panel.model.showStatus());
        QSignalSpy changed(&panel.model, &NotePanelModel::statusChanged);
        panel.loop.advance(10s);
        QCOMPARE(changed.count(), 0);
    }
    void tags_areOnlyAddedUntilCleared()
    {
        Panel panel;
        panel.model.setNoteContent(QStringLiteral("text"));
        panel.model.toggleQuickTag(panel.tag(0));
        QSignalSpy changed(&panel.model, &NotePanelModel::selectedQuickTagsChanged);
        panel.model.loadDefaultTags();
        panel.model.loadDefaultTags();
        QCOMPARE(panel.model.selectedQuickTags(), (QSet<QUuid>{panel.tag(0), panel.tag(2)}));
        QCOMPARE(changed.count(), 1);
        panel.model.clearNote();
        QCOMPARE(panel.model.selectedQuickTags(), QSet<QUuid>{panel.tag(2)});
        QVERIFY(panel.model.noteContent().isEmpty() && panel.draftFile().isEmpty());
    }
    void opening_bringsNotesAndTheDraftButNeverEmpties()
    {
        Panel panel;
        writeTestFile(panel.inbox() + QStringLiteral("old.md"), "# Old");
        panel.drafts.save(QStringLiteral("unsaved"), {}, QStringLiteral("Fleeting"));
        panel.model.panelAppeared();
        QCOMPARE(panel.model.existingNotes().value(0).title, QStringLiteral("Old"));
        QCOMPARE(panel.model.selectedQuickTags(), QSet<QUuid>{panel.tag(2)});
        QVERIFY(!panel.draftFile().isEmpty());
        QSignalSpy focus(&panel.model, &NotePanelModel::editorFocusRequested);
        panel.drafts.clear();
        panel.model.panelOpened();
        QCOMPARE(panel.model.noteContent(), QStringLiteral("unsaved"));
        panel.drafts.save({}, QStringLiteral("a title alone"), QStringLiteral("Fleeting"));
        panel.model.panelOpened();
        QCOMPARE(panel.model.noteContent(), QStringLiteral("unsaved"));
        panel.drafts.save(QStringLiteral("drafted"), {}, QStringLiteral("Fleeting"));
        panel.model.panelOpened();
        QCOMPARE(panel.model.noteContent(), QStringLiteral("drafted"));
        QCOMPARE(focus.count(), 3);
    }
};

QTEST_GUILESS_MAIN(NotePanelModelTest)
#include "NotePanelModelTest.moc"

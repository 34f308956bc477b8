// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/DraftManager.h>
#include <capture/NoteManager.h>
#include <capture/NotePanelModel.h>
#include <support/TestServices.h>

using namespace flitmark;

namespace {

/// The panel's model with everything it needs. The third quick tag is one that every note gets.
struct Panel : TestServices
{
    Panel()
    {
        config.update([](AppConfig& settings) { settings.quickTags[2].isDefault = true; });
    }
    QUuid tag(int index) const { return config.config().quickTags[index].id; }
    QByteArray draftFile() const { return readTestFile(drafts.draftURL()); }

    DraftManager drafts{directories, loop};
    NoteManager notes{config, loop, sound};
    NotePanelModel model{config, drafts, notes, loop};
};

} // namespace

class NotePanelModelTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typing_writesTheDraftEachTime()
    {
        Panel panel;
        for (const auto& [text, words] :
             {std::pair("", 0), std::pair("one  two ", 2), std::pair("one\ntwo", 1), std::pair(" \n ", 1)}) {
            panel.model.setNoteContent(QString::fromUtf8(text));
            QCOMPARE(panel.model.wordCount(), words);
            QCOMPARE(panel.draftFile().contains("\"one"), QByteArray(text).contains("one"));
        }
        QCOMPARE(panel.draftFile(), QByteArray());
    }
    void saveNote_appendsTheChosenTagsInTheirOrder()
    {
        Panel panel;
        panel.model.setNoteContent(QStringLiteral(" Call Ann \n"));
        // The last one has been deleted in the settings since: it appends nothing.
        for (const QUuid& tag : {panel.tag(2), panel.tag(3), panel.tag(0), panel.tag(3), QUuid::createUuid()}) {
            panel.model.toggleQuickTag(tag);
        }
        panel.model.saveNote();
        const QByteArray saved = readTestFile(panel.vault + QStringLiteral("/Inbox/2026-01-22--093000--call-ann.md"));
        QVERIFY(saved.endsWith("---\n\n Call Ann \n\n\n#priority/high #type/idea"));
        QCOMPARE(panel.model.selectedQuickTags(), QSet<QUuid>{panel.tag(2)});
        QVERIFY(panel.model.noteContent().isEmpty() && panel.draftFile().isEmpty());
    }
    void opening_bringsTheDraftButNeverEmpties()
    {
        Panel panel;
        panel.drafts.save(QStringLiteral("unsaved"), {}, QStringLiteral("Fleeting"));
        panel.model.panelAppeared();
        QVERIFY(!panel.draftFile().isEmpty());
        panel.drafts.clear();
        panel.model.panelOpened();
        QCOMPARE(panel.model.noteContent(), QStringLiteral("unsaved"));
        panel.drafts.save({}, QStringLiteral("a title alone"), QStringLiteral("Fleeting"));
        panel.model.panelOpened();
        QCOMPARE(panel.model.noteContent(), QStringLiteral("unsaved"));
        panel.drafts.save(QStringLiteral("drafted"), {}, QStringLiteral("Fleeting"));
        panel.model.panelOpened();
        QCOMPARE(panel.model.noteContent(), QStringLiteral("drafted"));
    }
    void demo_leavesTheDraftAlone()
    {
        Panel panel;
        panel.drafts.save(QStringLiteral("unsaved"), {}, QStringLiteral("Fleeting"));
        const QByteArray draft = panel.draftFile();
        NotePanelModel demo(panel.config, panel.drafts, panel.notes, panel.loop, DemoMode::On);
        demo.panelAppeared();
        QVERIFY(demo.noteContent().startsWith(QStringLiteral("Quick capture demo for Flitmark.\n\n- ")));
        demo.panelOpened();
        demo.clearNote();
        QCOMPARE(panel.draftFile(), draft);
    }
};

QTEST_GUILESS_MAIN(NotePanelModelTest)
#include "NotePanelModelTest.moc"

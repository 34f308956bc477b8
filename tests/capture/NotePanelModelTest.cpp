// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/DraftManager.h>
#include <capture/NoteManager.h>
#include <capture/NotePanelModel.h>
#include <config/ConfigManager.h>
#include <support/ManualRunLoop.h>
#include <support/OutputCapture.h>
#include <support/RecordingSound.h>
#include <support/TestFiles.h>

#include <QSignalSpy>

using namespace flitmark;
using namespace std::chrono_literals;

namespace {

/// The panel's model with everything it needs, in a home of its own.
struct Panel
{
    explicit Panel(const QString& homePath)
        : home(homePath)
    {
        config.update([this](AppConfig& settings) {
            settings.vaultPath = home + QStringLiteral("/vault");
            settings.quickTags[2].isDefault = true;
        });
    }

    QUuid tag(int index) const { return config.config().quickTags[index].id; }
    QStringList savedFiles() const { return QDir(home + QStringLiteral("/vault/Inbox")).entryList(QDir::Files); }
    QByteArray savedText() const
    {
        return savedFiles().size() == 1 ? readTestFile(home + QStringLiteral("/vault/Inbox/") + savedFiles()[0])
                                        : QByteArray();
    }
    bool hasDraftFile() const { return QFileInfo::exists(drafts.draftURL()); }

    QString home;
    Directories directories{.home = home, .applicationSupport = home + QStringLiteral("/conf"), .cache = {}};
    ManualRunLoop loop;
    RecordingSound sound;
    ConfigManager config{directories};
    DraftManager drafts{directories, loop};
    NoteManager notes{config, loop, sound};
    NotePanelModel model{config, drafts, notes, loop};
};

} // namespace

class NotePanelModelTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_panel.reset();
        m_home = std::make_unique<QTemporaryDir>();
        m_panel = std::make_unique<Panel>(m_home->path());
    }
    void typing_writesTheDraftEachTime();
    void wordCount_countsBetweenSpaces_data();
    void wordCount_countsBetweenSpaces();
    void saveNote_blank_writesNothing();
    void saveNote_success_startsAnew();
    void saveNote_quickTags_inConfiguredOrder();
    void saveNote_failure_leavesEverything();
    void saveNote_closesLater();
    void status_eachMessageHidesTheLine();
    void defaultTags_areOnlyAdded();
    void clearNote_resets();
    void appearing_bringsDraftNotesAndTags();
    void opening_restoresButNeverEmpties();
    void selectedTab_announcesChanges();

private:
    std::unique_ptr<QTemporaryDir> m_home;
    std::unique_ptr<Panel> m_panel;
};

void NotePanelModelTest::typing_writesTheDraftEachTime()
{
    QSignalSpy changed(&m_panel->model, &NotePanelModel::noteContentChanged);
    m_panel->model.setNoteContent(QStringLiteral("a"));
    QVERIFY(readTestFile(m_panel->drafts.draftURL()).contains("\"a\""));
    m_panel->model.setNoteContent(QStringLiteral("a b"));
    QVERIFY(readTestFile(m_panel->drafts.draftURL()).contains("\"a b\""));
    QCOMPARE(m_panel->drafts.currentDraft()->noteType, QStringLiteral("Fleeting"));
    QVERIFY(m_panel->drafts.currentDraft()->title.isEmpty());
    m_panel->model.setNoteContent(QStringLiteral("a b"));
    QCOMPARE(changed.count(), 2);
    m_panel->model.setNoteContent(QStringLiteral(" \n"));
    QVERIFY(!m_panel->hasDraftFile());
}

void NotePanelModelTest::wordCount_countsBetweenSpaces_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("words");
    QTest::newRow("none") << QString() << 0;
    QTest::newRow("two") << QStringLiteral("one  two ") << 2;
    QTest::newRow("on two lines") << QStringLiteral("one\ntwo") << 1;
    QTest::newRow("a line break is a piece") << QStringLiteral(" \n ") << 1;
}

void NotePanelModelTest::wordCount_countsBetweenSpaces()
{
    QFETCH(const QString, text);
    QFETCH(const int, words);
    m_panel->model.setNoteContent(text);
    QCOMPARE(m_panel->model.wordCount(), words);
}

void NotePanelModelTest::saveNote_blank_writesNothing()
{
    QSignalSpy closed(&m_panel->model, &NotePanelModel::closeRequested);
    m_panel->model.setNoteContent(QStringLiteral(" \n\t "));
    m_panel->model.saveNote();
    QCOMPARE(m_panel->model.statusMessage(), QStringLiteral("Nothing to save"));
    QCOMPARE(m_panel->model.statusType(), NotePanelModel::StatusType::info);
    QVERIFY(m_panel->model.showStatus());
    m_panel->loop.advance(10s);
    QCOMPARE(closed.count(), 0);
    QVERIFY(!QFileInfo::exists(m_panel->home + QStringLiteral("/vault")));
    QCOMPARE(m_panel->model.noteContent(), QStringLiteral(" \n\t "));
}

void NotePanelModelTest::saveNote_success_startsAnew()
{
    m_panel->model.setNoteContent(QStringLiteral(" Call Ann \n"));
    m_panel->model.toggleQuickTag(m_panel->tag(0));
    QSignalSpy listed(&m_panel->model, &NotePanelModel::existingNotesChanged);
    m_panel->model.saveNote();
    QCOMPARE(m_panel->savedFiles(), QStringList{QStringLiteral("2026-01-22--140305--call-ann.md")});
    QVERIFY(m_panel->savedText().endsWith("---\n\n Call Ann \n\n\n#priority/high"));
    QCOMPARE(m_panel->model.statusMessage(), QStringLiteral("Saved"));
    QCOMPARE(m_panel->model.statusType(), NotePanelModel::StatusType::success);
    QCOMPARE(m_panel->model.noteContent(), QString());
    QCOMPARE(m_panel->model.selectedQuickTags(), QSet<QUuid>{m_panel->tag(2)});
    QVERIFY(!m_panel->hasDraftFile());
    QCOMPARE(listed.count(), 1);
    QCOMPARE(m_panel->model.existingNotes().size(), 1);
    QCOMPARE(m_panel->model.existingNotes()[0].preview, QStringLiteral(" Call Ann "));
}

void NotePanelModelTest::saveNote_quickTags_inConfiguredOrder()
{
    m_panel->model.setNoteContent(QStringLiteral("text"));
    for (const int index : {2, 3, 0}) {
        m_panel->model.toggleQuickTag(m_panel->tag(index));
    }
    m_panel->model.toggleQuickTag(m_panel->tag(3));
    // A tag that has been deleted in the settings since appends nothing.
    m_panel->model.toggleQuickTag(QUuid::createUuid());
    m_panel->model.saveNote();
    QVERIFY(m_panel->savedText().endsWith("\n\ntext\n\n#priority/high #type/idea"));
}

void NotePanelModelTest::saveNote_failure_leavesEverything()
{
    writeTestFile(m_panel->home + QStringLiteral("/vault"), "a file where the vault should be");
    m_panel->model.setNoteContent(QStringLiteral("precious"));
    m_panel->model.toggleQuickTag(m_panel->tag(1));
    const QSet<QUuid> tags = m_panel->model.selectedQuickTags();
    QSignalSpy closed(&m_panel->model, &NotePanelModel::closeRequested);
    {
        OutputCapture output;
        m_panel->model.saveNote();
        QCOMPARE(output.lines(), QStringList{QStringLiteral("Failed to save note: Not a directory")});
    }
    m_panel->loop.advance(1s);
    QCOMPARE(m_panel->model.statusMessage(), QStringLiteral("Error saving"));
    QCOMPARE(m_panel->model.statusType(), NotePanelModel::StatusType::error);
    QCOMPARE(m_panel->model.noteContent(), QStringLiteral("precious"));
    QCOMPARE(m_panel->model.selectedQuickTags(), tags);
    QVERIFY(m_panel->hasDraftFile());
    QCOMPARE(closed.count(), 0);
}

void NotePanelModelTest::saveNote_closesLater()
{
    QSignalSpy closed(&m_panel->model, &NotePanelModel::closeRequested);
    m_panel->model.setNoteContent(QStringLiteral("text"));
    m_panel->model.saveNote();
    m_panel->loop.advance(499ms);
    QCOMPARE(closed.count(), 0);
    m_panel->loop.advance(1ms);
    QCOMPARE(closed.count(), 1);
}

void NotePanelModelTest::status_eachMessageHidesTheLine()
{
    NotePanelModel& model = m_panel->model;
    QVERIFY(!model.showStatus());
    model.showStatusMessage(QStringLiteral("one"), NotePanelModel::StatusType::info);
    m_panel->loop.advance(1500ms);
    model.showStatusMessage(QStringLiteral("two"), NotePanelModel::StatusType::error);
    QVERIFY(model.showStatus());
    m_panel->loop.advance(500ms);
    QVERIFY(!model.showStatus());
    QCOMPARE(model.statusMessage(), QStringLiteral("two"));
    QSignalSpy changed(&model, &NotePanelModel::statusChanged);
    m_panel->loop.advance(10s);
    QCOMPARE(changed.count(), 0);
}

void NotePanelModelTest::defaultTags_areOnlyAdded()
{
    NotePanelModel& model = m_panel->model;
    model.toggleQuickTag(m_panel->tag(0));
    QSignalSpy changed(&model, &NotePanelModel::selectedQuickTagsChanged);
    model.loadDefaultTags();
    model.loadDefaultTags();
    QCOMPARE(model.selectedQuickTags(), (QSet<QUuid>{m_panel->tag(0), m_panel->tag(2)}));
    QCOMPARE(changed.count(), 1);
}

void NotePanelModelTest::clearNote_resets()
{
    NotePanelModel& model = m_panel->model;
    model.setNoteContent(QStringLiteral("text"));
    model.toggleQuickTag(m_panel->tag(0));
    model.clearNote();
    QVERIFY(model.noteContent().isEmpty());
    QCOMPARE(model.selectedQuickTags(), QSet<QUuid>{m_panel->tag(2)});
    QVERIFY(!m_panel->drafts.currentDraft());
    QVERIFY(!m_panel->hasDraftFile());
    QVERIFY(!model.showStatus());
}

void NotePanelModelTest::appearing_bringsDraftNotesAndTags()
{
    writeTestFile(m_panel->home + QStringLiteral("/vault/Inbox/old.md"), "# Old");
    m_panel->drafts.save(QStringLiteral("unsaved"), {}, QStringLiteral("Fleeting"));
    m_panel->model.panelAppeared();
    QCOMPARE(m_panel->model.noteContent(), QStringLiteral("unsaved"));
    QCOMPARE(m_panel->model.existingNotes().size(), 1);
    QCOMPARE(m_panel->model.existingNotes()[0].title, QStringLiteral("Old"));
    QCOMPARE(m_panel->model.selectedQuickTags(), QSet<QUuid>{m_panel->tag(2)});
    QVERIFY(m_panel->hasDraftFile());
}

void NotePanelModelTest::opening_restoresButNeverEmpties()
{
    NotePanelModel& model = m_panel->model;
    QSignalSpy focus(&model, &NotePanelModel::editorFocusRequested);
    model.setNoteContent(QStringLiteral("typed"));
    m_panel->drafts.clear();
    model.panelOpened();
    QCOMPARE(model.noteContent(), QStringLiteral("typed"));
    m_panel->drafts.save({}, QStringLiteral("a title alone"), QStringLiteral("Fleeting"));
    model.panelOpened();
    QCOMPARE(model.noteContent(), QStringLiteral("typed"));
    m_panel->drafts.save(QStringLiteral("drafted"), {}, QStringLiteral("Fleeting"));
    model.panelOpened();
    QCOMPARE(model.noteContent(), QStringLiteral("drafted"));
    QCOMPARE(focus.count(), 3);
}

void NotePanelModelTest::selectedTab_announcesChanges()
{
    NotePanelModel& model = m_panel->model;
    QCOMPARE(model.selectedTab(), NotePanelModel::Tab::newNote);
    QSignalSpy changed(&model, &NotePanelModel::selectedTabChanged);
    model.setSelectedTab(NotePanelModel::Tab::daily);
    model.setSelectedTab(NotePanelModel::Tab::daily);
    QCOMPARE(model.selectedTab(), NotePanelModel::Tab::daily);
    QCOMPARE(changed.count(), 1);
}

QTEST_GUILESS_MAIN(NotePanelModelTest)
#include "NotePanelModelTest.moc"

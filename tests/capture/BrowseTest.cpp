// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/BrowseList.h>
#include <capture/BrowseModel.h>
#include <capture/BrowseView.h>
#include <support/Accessible.h>
#include <support/TestServices.h>

#include <QPushButton>
#include <QScrollBar>

#include <sys/stat.h>

using namespace flitmark;

namespace {

/// The tab over a vault of real files, in a window of its own.
struct Tab : TestServices
{
    explicit Tab(const QByteArrayList& files = {}, const QByteArrayList& folders = {})
    {
        for (const QByteArray& name : files) {
            writeTestFile(path(name), "text");
        }
        for (const QByteArray& name : folders + QByteArrayList{""}) {
            QVERIFY(QDir().mkpath(path(name)));
        }
        view.resize(460, 500);
        showActive(view);
        view.appeared();
    }

    QString path(const QByteArray& name) const { return vault + u'/' + QString::fromUtf8(name); }
    /// What is listed now, or was when the tab appeared.
    QString names()
    {
        QStringList all;
        for (const VaultItem& item : model.browseItems()) {
            all.append(item.name);
        }
        return all.join(u'|');
    }
    BrowseList& list() { return *view.findChild<BrowseList*>(); }
    QPoint middleOf(const char* name)
    {
        const QAbstractItemModel& items = *list().model();
        return list().visualRect(items.match(items.index(0, 0), Qt::DisplayRole, name)[0]).center();
    }

    BrowseModel model{config, workspace, loop};
    BrowseView view{model};
};

} // namespace

class BrowseTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void items_areChosenAndOrdered()
    {
        Tab tab({"b.md", "A.md", "c.txt", "d.MD", ".hidden.md", "noextension", "Ä.md", "e.md.bak"},
                {"zoo", "Archive", ".obsidian", "folder.md", "Icon\r"});
        makeTestLink(tab.path("zoo"), tab.path("a link"));
        makeTestLink(tab.path("nowhere"), tab.path("dead.md"));
        tab.model.refresh();
        QCOMPARE(tab.names(), "a link|Archive|folder.md|zoo|A.md|b.md|Ä.md");
        QCOMPARE(tab.model.summary(), "4 folders, 3 notes");
        QCOMPARE(tab.model.browseItems()[5].id(), tab.path("b.md"));
    }
    void preview()
    {
        Tab tab({"note.md"});
        // Reading this one would wait without end.
        QCOMPARE(::mkfifo(QFile::encodeName(tab.path("pipe.md")).constData(), 0600), 0);
        const std::pair<QByteArray, QByteArray> rows[] = {
            {"---\ntags: [a]\n---\n\n# Title\n## Sub\n  Text of it\nMore", "  Text of it"},
            {QByteArray(90, 'x'), QByteArray(80, 'x')},
            {"---\ntags: [a]\nText", ""},
            {"# Title\n#tag\n", ""},
            {"---\n" + QByteArray(50, 'k').append('\n').repeated(1000) + "---\nText", "Text"},
            // Across the first read.
            {QByteArray(4090, '#').append("\nText across\n"), "Text across"},
        };
        for (const auto& [content, expected] : rows) {
            writeTestFile(tab.path("note.md"), content);
            tab.model.refresh();
            QCOMPARE(tab.model.previewOf(0).toUtf8(), expected);
            QCOMPARE(tab.model.previewOf(1) + tab.model.previewOf(-1), QString());
        }
    }
    void navigation()
    {
        Tab tab({}, {"one/two/three"});
        BrowseModel& model = tab.model;
        for (const qsizetype index : {0, 0, 0, 7}) {
            model.activate(index);
        }
        QCOMPARE(model.browsePathStack().join(u'|'),
                 tab.path("one|") + tab.path("one/two|") + tab.path("one/two/three"));
        model.navigateToPath(3);
        model.navigateToPath(-1);
        QCOMPARE(*model.currentBrowsePath(), tab.path("one/two/three"));
        model.navigateToPath(1);
        QCOMPARE(model.browsePathStack().join(u'|'), tab.path("one|") + tab.path("one/two"));
        QCOMPARE(tab.names(), "three");
    }
    void otherVault_startsAtItsRoot()
    {
        Tab tab({"one/note.md"});
        tab.model.activate(0);
        tab.config.update([](AppConfig& config) { config.windowOpacity = 0.5; });
        QCOMPARE(*tab.model.currentBrowsePath(), tab.path("one"));
        const QString other = tab.folder.filePath("Other");
        writeTestFile(other + "/note.md", "");
        tab.config.update([&](AppConfig& config) { config.vaultPath = other + u'/'; });
        QVERIFY(!tab.model.currentBrowsePath());
        QCOMPARE(tab.model.browseItems().constFirst().id(), other + "/note.md");
        for (const char* noVault : {"", ".", "/nowhere/at/all"}) {
            tab.config.update([&](AppConfig& config) { config.vaultPath = noVault; });
            QCOMPARE(tab.names(), QString());
        }
    }

    void keyboard_opensNotesAndStaysInTheTabOfAnEmptyFolder()
    {
        Tab tab({"a.md", "My note.md"}, {"0 nothing"});
        const QUrl link("obsidian://open?vault=Vault&file=My%20note");
        tab.view.takeKeyboard();
        QTest::keyClicks(&tab.list(), "my");
        press(Qt::Key_Return);
        QCOMPARE(tab.workspace.opened, QList<QUrl>{link});
        // Without a program for links the file itself is opened.
        tab.workspace.missingSchemes = QStringList("obsidian");
        press(Qt::Key_Return);
        QCOMPARE(tab.workspace.opened, (QList<QUrl>{link, link, QUrl::fromLocalFile(tab.path("My note.md"))}));
        press(Qt::Key_Home);
        press(Qt::Key_Return);
        QVERIFY(!tab.list().isVisible() && named<QPushButton>(tab.view, "0 nothing")->hasFocus());
        click(tab.view, "Vault");
        QVERIFY(tab.list().isVisible());
    }
    void onlyAWholeClick_opensAndADoubleClickOnlyOnce()
    {
        Tab tab({"Projects/todo.md", "an idea.md", "b.md"});
        QWidget* area = tab.list().viewport();
        QTest::mouseClick(area, Qt::LeftButton, {}, QPoint(20, area->height() - 4));
        QTest::mouseClick(area, Qt::RightButton, {}, tab.middleOf("b.md"));
        QTest::mousePress(area, Qt::LeftButton, {}, tab.middleOf("b.md"));
        QTest::mouseRelease(area, Qt::LeftButton, {}, tab.middleOf("an idea.md"));
        QCOMPARE(tab.model.browsePathStack(), QStringList());
        const QPoint folder = tab.middleOf("Projects");
        QTest::mouseClick(area, Qt::LeftButton, {}, folder);
        QTest::mouseDClick(area, Qt::LeftButton, {}, folder);
        QCOMPARE(tab.model.browsePathStack().size(), 1);
        QCOMPARE(tab.workspace.opened, QList<QUrl>());
    }
    void longList_keepsItsPlaceAndReadsOnlyWhatIsPainted()
    {
        QByteArrayList files;
        for (int i = 100; i < 200; ++i) {
            files.append(QByteArray::number(i) + ".md");
        }
        Tab tab(files);
        QScrollBar* bar = tab.list().verticalScrollBar();
        bar->setValue(1500);
        click(tab.view, "Refresh");
        QTest::qWait(0);
        QCOMPARE(bar->value(), 1500);
        tab.view.grab();
        // The disk could be slow, or the notes very many.
        writeTestFile(tab.path("199.md"), "not read before");
        QCOMPARE(tab.model.previewOf(99), "not read before");
    }
};

QTEST_MAIN(BrowseTest)
#include "BrowseTest.moc"

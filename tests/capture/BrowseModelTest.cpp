// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/BrowseModel.h>
#include <capture/NoteFile.h>
#include <support/TestServices.h>

#include <QSignalSpy>

#include <sys/stat.h>

namespace flitmark {

class BrowseModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup()
    {
        m_model.reset();
        m_services.reset();
    }
    void items_areChosenAndOrdered();
    void unreadableFolder_printsALine();
    void preview_data();
    void preview();
    void preview_isReadWhenAskedFor();
    void icon_data();
    void icon();
    void summary_data();
    void summary();
    void navigation();
    void goneFolder_isEmpty();
    void otherVault_startsAtItsRoot();
    void noVault_isEmpty_data();
    void noVault_isEmpty();
    void open_data();
    void open();
    void demo();

private:
    QString path(const char* name) const { return m_services->vault + u'/' + QString::fromUtf8(name); }
    void addFolder(const char* name) { QVERIFY(QDir().mkpath(path(name))); }
    QStringList names() const
    {
        QStringList all;
        for (const VaultItem& item : m_model->browseItems()) {
            all.append(item.name);
        }
        return all;
    }
    void makeModel(DemoMode demoMode = DemoMode::Off)
    {
        m_model = std::make_unique<BrowseModel>(m_services->config, m_services->workspace, m_services->loop, demoMode);
        m_model->refresh();
    }

    std::unique_ptr<TestServices> m_services;
    std::unique_ptr<BrowseModel> m_model;
};

void BrowseModelTest::init()
{
    m_services = std::make_unique<TestServices>();
    addFolder("");
}

void BrowseModelTest::items_areChosenAndOrdered()
{
    for (const char* name : {"b.md", "A.md", "c.txt", "d.MD", ".hidden.md", "noextension", "Ä.md", "e.md.bak"}) {
        writeTestFile(path(name), "text");
    }
    for (const char* name : {"zoo", "Archive", ".obsidian", "folder.md", "Icon\r"}) {
        addFolder(name);
    }
    QVERIFY(QFile::link(path("zoo"), path("a link")));
    QVERIFY(QFile::link(path("nowhere"), path("dead.md")));
    makeModel();
    QSignalSpy changes(m_model.get(), &BrowseModel::browseItemsChanged);
    m_model->refresh();
    QCOMPARE(changes.size(), 1);
    QCOMPARE(names(), QStringList({QStringLiteral("a link"), QStringLiteral("Archive"), QStringLiteral("folder.md"),
                                   QStringLiteral("zoo"), QStringLiteral("A.md"), QStringLiteral("b.md"),
                                   QStringLiteral("Ä.md")}));
    const VaultItem item = m_model->browseItems()[5];
    QCOMPARE(item.id(), path("b.md"));
    QVERIFY(!item.isDirectory && m_model->browseItems()[0].isDirectory);
    QCOMPARE(item.modificationDate(), QFileInfo(path("b.md")).lastModified());
}

void BrowseModelTest::unreadableFolder_printsALine()
{
    writeTestFile(path("file"), "");
    QCOMPARE(listVaultItems(path("file"), NameOrder(QLocale::c())).size(), 0);
    QCOMPARE(m_services->output->lines(), QStringList(QStringLiteral("Failed to load vault items: Not a directory")));
}

void BrowseModelTest::preview_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("preview");

    const QByteArray longLine(90, 'x');
    QTest::newRow("after front matter and headings")
        << QByteArray("---\ntags: [a]\n---\n\n# Title\n## Sub\n  Text of it\nMore") << "  Text of it";
    QTest::newRow("cut at 80") << longLine << QString::fromLatin1(longLine.first(80));
    QTest::newRow("front matter left open") << QByteArray("---\ntags: [a]\nText") << "";
    QTest::newRow("headings only") << QByteArray("# Title\n#tag\n") << "";
    QTest::newRow("far down") << "---\n" + QByteArray(50, 'k').append('\n').repeated(1000) + "---\nText"
                              << "Text";
    QTest::newRow("across the first read") << QByteArray(4090, '#').append("\nText across\n") << "Text across";
    QTest::newRow("empty") << QByteArray() << "";
}

void BrowseModelTest::preview()
{
    QFETCH(QByteArray, content);
    writeTestFile(path("note.md"), content);
    makeModel();
    QTEST(m_model->previewOf(0), "preview");
    QCOMPARE(m_model->previewOf(1), QString());
    QCOMPARE(m_model->previewOf(-1), QString());
}

void BrowseModelTest::preview_isReadWhenAskedFor()
{
    writeTestFile(path("note.md"), "Old");
    // Reading this one would wait without end.
    QCOMPARE(::mkfifo(QFile::encodeName(path("pipe.md")).constData(), 0600), 0);
    makeModel();
    writeTestFile(path("note.md"), "New");
    QCOMPARE(m_model->previewOf(0), QStringLiteral("New"));
    writeTestFile(path("note.md"), "Newer");
    QCOMPARE(m_model->previewOf(0), QStringLiteral("New"));
    QCOMPARE(m_model->previewOf(1), QString());
    m_model->refresh();
    QCOMPARE(m_model->previewOf(0), QStringLiteral("Newer"));
    m_model->refresh();
    QVERIFY(QFile::remove(path("note.md")));
    QCOMPARE(m_model->previewOf(0), QString());
}

void BrowseModelTest::icon_data()
{
    QTest::addColumn<bool>("isDirectory");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("icon");

    QTest::newRow("daily before task") << true << "Daily Tasks"
                                       << "calendar";
    QTest::newRow("task") << true << "TASKS"
                          << "checklist";
    QTest::newRow("client before personal") << true << "personal clients"
                                            << "person.2";
    QTest::newRow("personal") << true << "Personal"
                              << "person";
    QTest::newRow("plain folder") << true << "Projects"
                                  << "folder.fill";
    QTest::newRow("bulb is for notes") << true << "💡"
                                       << "folder.fill";
    QTest::newRow("task note before bulb") << false << "💡 ToDo.md"
                                           << "checkmark.circle";
    QTest::newRow("idea") << false << "💡 Plan.md"
                          << "lightbulb.fill";
    QTest::newRow("daily is for folders") << false << "daily.md"
                                          << "doc.text";
}

void BrowseModelTest::icon()
{
    QFETCH(bool, isDirectory);
    QFETCH(QString, name);
    QTEST((VaultItem{QString(), name, isDirectory, !isDirectory, 0}.icon()), "icon");
}

void BrowseModelTest::summary_data()
{
    QTest::addColumn<QByteArrayList>("folders");
    QTest::addColumn<QByteArrayList>("notes");
    QTest::addColumn<QString>("summary");

    QTest::newRow("nothing") << QByteArrayList() << QByteArrayList() << "0 notes";
    QTest::newRow("notes") << QByteArrayList() << QByteArrayList({"a.md", "b.md"}) << "2 notes";
    QTest::newRow("folders") << QByteArrayList({"a", "b", "c"}) << QByteArrayList() << "3 folders";
    QTest::newRow("both") << QByteArrayList({"a"}) << QByteArrayList({"a.md", "b.md"}) << "1 folders, 2 notes";
}

void BrowseModelTest::summary()
{
    QFETCH(QByteArrayList, folders);
    QFETCH(QByteArrayList, notes);
    for (const QByteArray& name : folders) {
        addFolder(name.constData());
    }
    for (const QByteArray& name : notes) {
        writeTestFile(path(name.constData()), "");
    }
    makeModel();
    QTEST(m_model->summary(), "summary");
}

void BrowseModelTest::navigation()
{
    addFolder("one/two/three");
    writeTestFile(path("one/two/note.md"), "");
    makeModel();
    QSignalSpy paths(m_model.get(), &BrowseModel::currentBrowsePathChanged);
    m_model->activate(0);
    m_model->activate(0);
    QCOMPARE(names(), QStringList({QStringLiteral("three"), QStringLiteral("note.md")}));
    m_model->activate(0);
    m_model->activate(7);
    QCOMPARE(paths.size(), 3);
    QCOMPARE(m_model->browsePathStack(), QStringList({path("one"), path("one/two"), path("one/two/three")}));
    QCOMPARE(m_model->trailLabel(1), QStringLiteral("two"));

    for (const qsizetype outside : {qsizetype{3}, qsizetype{-1}}) {
        m_model->navigateToPath(outside);
        QCOMPARE(*m_model->currentBrowsePath(), path("one/two/three"));
    }
    m_model->navigateToPath(1);
    QCOMPARE(m_model->browsePathStack(), QStringList({path("one"), path("one/two")}));
    QCOMPARE(*m_model->currentBrowsePath(), path("one/two"));
    QCOMPARE(m_model->browseItems().size(), 2);

    m_model->navigateToRoot();
    QVERIFY(!m_model->currentBrowsePath() && m_model->browsePathStack().isEmpty());
    QCOMPARE(names(), QStringList(QStringLiteral("one")));
}

void BrowseModelTest::goneFolder_isEmpty()
{
    writeTestFile(path("one/note.md"), "");
    makeModel();
    QVERIFY(QDir(m_services->vault).removeRecursively());
    m_model->activate(0);
    QCOMPARE(m_model->browseItems().size(), 0);
    m_model->refresh();
    m_model->navigateToRoot();
    QCOMPARE(m_model->summary(), QStringLiteral("0 notes"));
    QCOMPARE(m_services->output->lines(), QStringList());
    QVERIFY(!QFileInfo::exists(m_services->vault));
}

void BrowseModelTest::otherVault_startsAtItsRoot()
{
    addFolder("one");
    makeModel();
    m_model->activate(0);
    m_services->config.update([](AppConfig& config) { config.windowOpacity = 0.5; });
    QCOMPARE(*m_model->currentBrowsePath(), path("one"));
    const QString other = m_services->folder.filePath(QStringLiteral("Other"));
    writeTestFile(other + QStringLiteral("/note.md"), "");
    m_services->config.update([&](AppConfig& config) { config.vaultPath = other + u'/'; });
    QVERIFY(!m_model->currentBrowsePath());
    QCOMPARE(m_model->browseItems().constFirst().id(), other + QStringLiteral("/note.md"));
}

void BrowseModelTest::noVault_isEmpty_data()
{
    QTest::addColumn<QString>("vault");
    QTest::newRow("empty") << "";
    QTest::newRow("relative") << ".";
    QTest::newRow("missing") << "/nowhere/at/all";
}

void BrowseModelTest::noVault_isEmpty()
{
    QFETCH(QString, vault);
    m_services->config.update([&](AppConfig& config) { config.vaultPath = vault; });
    makeModel();
    QCOMPARE(m_model->browseItems().size(), 0);
}

void BrowseModelTest::open_data()
{
    QTest::addColumn<QStringList>("missingSchemes");
    QTest::addColumn<QByteArrayList>("opened");

    const QByteArray link = "obsidian://open?vault=Vault&file=My%20note";
    QTest::newRow("link") << QStringList() << QByteArrayList({link});
    QTest::newRow("no application for links")
        << QStringList(QStringLiteral("obsidian")) << QByteArrayList({link, "My note.md"});
    QTest::newRow("no application at all")
        << QStringList({QStringLiteral("obsidian"), QStringLiteral("file")}) << QByteArrayList({link, "My note.md"});
}

void BrowseModelTest::open()
{
    QFETCH(QStringList, missingSchemes);
    m_services->workspace.missingSchemes = missingSchemes;
    writeTestFile(path("My note.md"), "");
    makeModel();
    m_model->activate(0);
    QByteArrayList urls;
    for (const QUrl& url : std::as_const(m_services->workspace.opened)) {
        urls.append(url.isLocalFile() ? QDir(m_services->vault).relativeFilePath(url.toLocalFile()).toUtf8()
                                      : url.toEncoded());
    }
    QTEST(urls, "opened");
}

void BrowseModelTest::demo()
{
    makeModel(DemoMode::On);
    QCOMPARE(m_model->summary(), QStringLiteral("5 folders, 2 notes"));
    QCOMPARE(m_model->browseItems()[6].id(), QStringLiteral("/tmp/weekly-review.md"));
    QCOMPARE(m_model->browseItems()[3].modificationDate(), m_services->loop.now().addSecs(-8600));
    QCOMPARE(m_model->previewOf(5), QStringLiteral("Finalize release notes + screenshot pack"));
    QCOMPARE(m_model->previewOf(0), QString());
}

} // namespace flitmark

QTEST_GUILESS_MAIN(flitmark::BrowseModelTest)
#include "BrowseModelTest.moc"

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/BrowseModel.h>
#include <support/TestServices.h>

#include <QSignalSpy>

#include <sys/stat.h>

using namespace flitmark;

class BrowseModelTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_model.reset();
        m_services = std::make_unique<TestServices>();
        addFolder("");
    }
    void cleanupTestCase()
    {
        m_model.reset();
        m_services.reset();
    }
    void items_areChosenAndOrdered()
    {
        for (const char* name : {"b.md", "A.md", "c.txt", "d.MD", ".hidden.md", "noextension", "Ä.md", "e.md.bak"}) {
            writeTestFile(path(name), "text");
        }
        for (const char* name : {"zoo", "Archive", ".obsidian", "folder.md", "Icon\r"}) {
            addFolder(name);
        }
        makeTestLink(path("zoo"), path("a link"));
        makeTestLink(path("nowhere"), path("dead.md"));
        makeModel();
        QCOMPARE(names(), QStringLiteral("a link|Archive|folder.md|zoo|A.md|b.md|Ä.md"));
        QCOMPARE(m_model->summary(), QStringLiteral("4 folders, 3 notes"));
        const VaultItem item = m_model->browseItems()[5];
        QCOMPARE(item.id(), path("b.md"));
        QVERIFY(!item.isDirectory && m_model->browseItems()[0].isDirectory);
        QCOMPARE(item.modificationDate(), QFileInfo(path("b.md")).lastModified());
        QCOMPARE(listVaultItems(path("b.md"), NameOrder(QLocale::c())).size(), 0);
        QCOMPARE(m_services->output->lines().join(u'|'), QStringLiteral("Failed to load vault items: Not a directory"));
    }
    void preview_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QByteArray>("preview");
        const auto row = [](const char* name, const QByteArray& content, const QByteArray& preview) {
            QTest::newRow(name) << content << preview;
        };
        row("behind front matter", "---\ntags: [a]\n---\n\n# Title\n## Sub\n  Text of it\nMore", "  Text of it");
        row("cut at 80", QByteArray(90, 'x'), QByteArray(80, 'x'));
        row("front matter left open", "---\ntags: [a]\nText", "");
        row("headings only", "# Title\n#tag\n", "");
        row("far down", "---\n" + QByteArray(50, 'k').append('\n').repeated(1000) + "---\nText", "Text");
        row("across the first read", QByteArray(4090, '#').append("\nText across\n"), "Text across");
    }
    void preview()
    {
        QFETCH(QByteArray, content);
        writeTestFile(path("note.md"), content);
        makeModel();
        QTEST(m_model->previewOf(0).toUtf8(), "preview");
        QCOMPARE(m_model->previewOf(1) + m_model->previewOf(-1), QString());
    }
    void preview_isReadWhenAskedFor()
    {
        writeTestFile(path("note.md"), "Old");
        // Reading this one would wait without end.
        QCOMPARE(::mkfifo(QFile::encodeName(path("pipe.md")).constData(), 0600), 0);
        makeModel();
        for (const char* text : {"New", "Newer"}) {
            writeTestFile(path("note.md"), text);
            QCOMPARE(m_model->previewOf(0), QStringLiteral("New"));
        }
        QCOMPARE(m_model->previewOf(1), QString());
        m_model->refresh();
        QCOMPARE(m_model->previewOf(0), QStringLiteral("Newer"));
    }
    void icon()
    {
        const auto icon = [](const char* name, bool isDirectory) {
            return VaultItem{QString(), QString::fromUtf8(name), isDirectory, !isDirectory, 0}.icon();
        };
        QCOMPARE(icon("Daily Tasks", true), QStringLiteral("calendar"));
        QCOMPARE(icon("TASKS", true), QStringLiteral("checklist"));
        QCOMPARE(icon("personal clients", true), QStringLiteral("person.2"));
        QCOMPARE(icon("Personal", true), QStringLiteral("person"));
        QCOMPARE(icon("💡", true), QStringLiteral("folder.fill"));
        QCOMPARE(icon("💡 ToDo.md", false), QStringLiteral("checkmark.circle"));
        QCOMPARE(icon("💡 Plan.md", false), QStringLiteral("lightbulb.fill"));
        QCOMPARE(icon("daily.md", false), QStringLiteral("doc.text"));
    }
    void navigation()
    {
        addFolder("one/two/three");
        writeTestFile(path("one/two/note.md"), "");
        makeModel();
        QCOMPARE(m_model->summary(), QStringLiteral("1 folders"));
        QSignalSpy paths(m_model.get(), &BrowseModel::currentBrowsePathChanged);
        m_model->activate(0);
        m_model->activate(0);
        QCOMPARE(names(), QStringLiteral("three|note.md"));
        m_model->activate(0);
        m_model->activate(7);
        QCOMPARE(paths.size(), 3);
        QCOMPARE(m_model->browsePathStack(), QStringList({path("one"), path("one/two"), path("one/two/three")}));
        QCOMPARE(m_model->trailLabel(1), QStringLiteral("two"));
        m_model->navigateToPath(3);
        m_model->navigateToPath(-1);
        QCOMPARE(*m_model->currentBrowsePath(), path("one/two/three"));
        m_model->navigateToPath(1);
        QCOMPARE(m_model->browsePathStack(), QStringList({path("one"), path("one/two")}));
        QCOMPARE(names(), QStringLiteral("three|note.md"));
        QVERIFY(QDir(m_services->vault).removeRecursively());
        m_model->refresh();
        m_model->navigateToRoot();
        QVERIFY(!m_model->currentBrowsePath() && m_model->browsePathStack().isEmpty());
        QCOMPARE(m_model->summary(), QStringLiteral("0 notes"));
        QCOMPARE(m_services->output->lines(), QStringList());
        QVERIFY(!QFileInfo::exists(m_services->vault));
    }
    void otherVault_startsAtItsRoot()
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
        for (const char* noVault : {"", ".", "/nowhere/at/all"}) {
            m_services->config.update([&](AppConfig& config) { config.vaultPath = QString::fromUtf8(noVault); });
            QCOMPARE(names(), QString());
        }
    }
    void open_fallsBackToTheFile()
    {
        writeTestFile(path("My note.md"), "");
        makeModel();
        m_model->activate(0);
        const QUrl link(QStringLiteral("obsidian://open?vault=Vault&file=My%20note"));
        QCOMPARE(m_services->workspace.opened, QList<QUrl>{link});
        m_services->workspace.missingSchemes = QStringList(QStringLiteral("obsidian"));
        m_model->activate(0);
        QCOMPARE(m_services->workspace.opened, (QList<QUrl>{link, link, QUrl::fromLocalFile(path("My note.md"))}));
    }
    void demo()
    {
        makeModel(DemoMode::On);
        QCOMPARE(m_model->summary(), QStringLiteral("5 folders, 2 notes"));
        QCOMPARE(m_model->browseItems()[6].id(), QStringLiteral("/tmp/weekly-review.md"));
        QCOMPARE(m_model->browseItems()[3].modificationDate(), m_services->loop.now().addSecs(-8600));
        QCOMPARE(m_model->previewOf(5), QStringLiteral("Finalize release notes + screenshot pack"));
    }

private:
    QString path(const char* name) const { return m_services->vault + u'/' + QString::fromUtf8(name); }
    void addFolder(const char* name) { QVERIFY(QDir().mkpath(path(name))); }
    QString names() const
    {
        QStringList all;
        for (const VaultItem& item : m_model->browseItems()) {
            all.append(item.name);
        }
        return all.join(u'|');
    }
    void makeModel(DemoMode demoMode = DemoMode::Off)
    {
        m_model = std::make_unique<BrowseModel>(m_services->config, m_services->workspace, m_services->loop, demoMode);
        m_model->refresh();
    }

    std::unique_ptr<TestServices> m_services;
    std::unique_ptr<BrowseModel> m_model;
};

QTEST_GUILESS_MAIN(BrowseModelTest)
#include "BrowseModelTest.moc"

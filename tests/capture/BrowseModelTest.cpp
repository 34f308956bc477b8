// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/BrowseModel.h>
#include <support/TestServices.h>

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
        QCOMPARE(m_model->browseItems()[5].id(), path("b.md"));
    }
    void preview()
    {
        const std::pair<QByteArray, QByteArray> rows[] = {
            {"---\ntags: [a]\n---\n\n# Title\n## Sub\n  Text of it\nMore", "  Text of it"},
            {QByteArray(90, 'x'), QByteArray(80, 'x')},
            {"---\ntags: [a]\nText", ""},
            {"# Title\n#tag\n", ""},
            {"---\n" + QByteArray(50, 'k').append('\n').repeated(1000) + "---\nText", "Text"},
            // Across the first read.
            {QByteArray(4090, '#').append("\nText across\n"), "Text across"},
        };
        // Reading this one would wait without end.
        QCOMPARE(::mkfifo(QFile::encodeName(path("pipe.md")).constData(), 0600), 0);
        makeModel();
        for (const auto& [content, expected] : rows) {
            writeTestFile(path("note.md"), content);
            m_model->refresh();
            QCOMPARE(m_model->previewOf(0).toUtf8(), expected);
            QCOMPARE(m_model->previewOf(1) + m_model->previewOf(-1), QString());
        }
    }
    void navigation()
    {
        addFolder("one/two/three");
        makeModel();
        for (const qsizetype index : {0, 0, 0, 7}) {
            m_model->activate(index);
        }
        QCOMPARE(m_model->browsePathStack(), QStringList({path("one"), path("one/two"), path("one/two/three")}));
        m_model->navigateToPath(3);
        m_model->navigateToPath(-1);
        QCOMPARE(*m_model->currentBrowsePath(), path("one/two/three"));
        m_model->navigateToPath(1);
        QCOMPARE(m_model->browsePathStack(), QStringList({path("one"), path("one/two")}));
        QCOMPARE(names(), QStringLiteral("three"));
        QVERIFY(QDir(m_services->vault).removeRecursively());
        m_model->refresh();
        m_model->navigateToRoot();
        QVERIFY(m_model->browsePathStack().isEmpty() && !QFileInfo::exists(m_services->vault));
        QCOMPARE(m_model->summary(), QStringLiteral("0 notes"));
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
    void makeModel()
    {
        m_model = std::make_unique<BrowseModel>(m_services->config, m_services->workspace, m_services->loop);
        m_model->refresh();
    }

    std::unique_ptr<TestServices> m_services;
    std::unique_ptr<BrowseModel> m_model;
};

QTEST_GUILESS_MAIN(BrowseModelTest)
#include "BrowseModelTest.moc"

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/NoteManager.h>
#include <support/TestServices.h>

#include <QDirIterator>

using namespace flitmark;

class NoteManagerTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_manager.reset();
        m_services = std::make_unique<TestServices>();
        m_manager = std::make_unique<NoteManager>(m_services->config, m_services->loop, m_services->sound);
    }
    void cleanupTestCase()
    {
        m_manager.reset();
        m_services.reset();
    }
    void save_writesOneFile()
    {
        const QString inbox = m_services->vault + QStringLiteral("/Inbox");
        const auto saved = save(QStringLiteral("# Shopping\n\nBuy milk today"));
        QCOMPARE(saved.value(), inbox + QStringLiteral("/2026-01-22--093000--buy-milk-today.md"));
        const QByteArray created = m_services->loop.now().toUTC().toString(Qt::ISODateWithMs).toUtf8();
        QCOMPARE(readTestFile(*saved), "---\ncreated: " + created +
                                           "\ntype: fleeting\ntags: [fleeting]\n---\n\n# Shopping\n\nBuy milk today");
        // Within the same second a title replaces its note.
        m_services->loop.setWallClock(m_services->loop.now().addMSecs(500));
        QCOMPARE(save(QStringLiteral("Buy milk today\ntwo")).value(), *saved);
        QVERIFY(readTestFile(*saved).endsWith("two"));
        m_services->loop.setWallClock(m_services->loop.now().addMSecs(500));
        QVERIFY(save(QStringLiteral("Buy milk today")).value() != *saved);
        QCOMPARE(QDir(inbox).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(), 2);

        m_services->config.update([](AppConfig& config) { config.saveSubfolder = QStringLiteral("Some/Where"); });
        const auto other = save(QStringLiteral("# only a heading"), "Unheard");
        QCOMPARE(other.value(), m_services->vault + QStringLiteral("/Some/Where/2026-01-22--093001.md"));
        QVERIFY(readTestFile(*other).contains("\ntype: unheard\n---\n"));
    }
    void save_strangeText_losesNothing()
    {
        const auto saved = save(QStringLiteral("be") + QChar(0xD83D) + QStringLiteral("fore\n") + QChar(0xDCA1));
        QVERIFY(saved.value().endsWith(QStringLiteral("--before.md")));
        const QByteArray bytes = readTestFile(*saved);
        QCOMPARE(QString::fromUtf8(bytes).toUtf8(), bytes);
        QVERIFY(!QString::fromUtf8(bytes).contains(QChar::ReplacementCharacter));
        const QString title = (QString(1, QChar(0x0939)) + QString(200, QChar(0x0301))).repeated(50);
        QVERIFY(QString::fromUtf8(readTestFile(save(title).value())).endsWith(title));
    }
    void save_sound_onlyWhenWantedAndSaved()
    {
        for (const bool isWanted : {true, false}) {
            m_services->config.update([&](AppConfig& config) { config.playSoundOnSave = isWanted; });
            QVERIFY(save(QStringLiteral("a")));
        }
        m_services->config.update([](AppConfig& config) { config.vaultPath.clear(); });
        m_services->config.update([](AppConfig& config) { config.playSoundOnSave = true; });
        QVERIFY(!save(QStringLiteral("c")));
        QCOMPARE(m_services->sound.played(), QStringList{QStringLiteral("Pop")});
    }
    void save_badVault_failsAndWritesNothing_data()
    {
        QTest::addColumn<QString>("vault");
        QTest::addColumn<QString>("message");
        const QString notAbsolute = QStringLiteral("The vault path is not an absolute path: \"%1\"");
        QTest::newRow("empty") << QString() << notAbsolute.arg(QString());
        QTest::newRow("relative") << QStringLiteral("notes") << notAbsolute.arg(QStringLiteral("notes"));
        QTest::newRow("below a file") << QStringLiteral("%1/plain/vault") << QStringLiteral("Not a directory");
        QTest::newRow("NUL") << QStringLiteral("%1/n") + QChar::Null + u'x' << QStringLiteral("Invalid argument");
        QTest::newRow("dangling link") << QStringLiteral("%1/dangling") << QStringLiteral("No such file or directory");
    }
    void save_badVault_failsAndWritesNothing()
    {
        QFETCH(QString, vault);
        const QString folder = m_services->folder.path();
        writeTestFile(folder + QStringLiteral("/plain"), "a file");
        makeTestLink(QStringLiteral("missing"), folder + QStringLiteral("/dangling"));
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(folder));
        const QStringList filesBefore = everything();
        m_services->config.update(
            [&](AppConfig& config) { config.vaultPath = vault.replace(QStringLiteral("%1"), folder); });
        const auto saved = save(QStringLiteral("precious"));
        QDir::setCurrent(before);
        QTEST(saved.error().message, "message");
        QCOMPARE(everything(), filesBefore);
    }
    void save_links_theUsersInboxAloneLeadsOut()
    {
        const QString shared = m_services->folder.filePath(QStringLiteral("shared"));
        QVERIFY(QDir().mkpath(shared));
        makeTestLink(QStringLiteral("../shared"), m_services->vault + QStringLiteral("/Inbox"));
        makeTestLink(QStringLiteral("../outside"), m_services->vault + QStringLiteral("/Away"));
        m_services->config.update([](AppConfig& config) { config.saveSubfolder = QStringLiteral("Away/Sub"); });
        const auto saved = save(QStringLiteral("text"), "Other");
        QCOMPARE(QFileInfo(saved.value()).path(), m_services->vault + QStringLiteral("/Inbox"));
        QCOMPARE(QDir(shared).entryList(QDir::Files).size(), 1);
        QVERIFY(!QFileInfo::exists(m_services->folder.filePath(QStringLiteral("outside"))));
    }

private:
    QStringList everything() const
    {
        QStringList found;
        QDirIterator all(m_services->folder.path(), QDir::AllEntries | QDir::Hidden | QDir::System,
                         QDirIterator::Subdirectories);
        while (all.hasNext()) {
            found.append(all.next());
        }
        found.sort();
        return found;
    }
    tl::expected<QString, FileError> save(const QString& content, const char* noteType = "Fleeting")
    {
        return m_manager->save(QString(), content, QString::fromUtf8(noteType));
    }

    std::unique_ptr<TestServices> m_services;
    std::unique_ptr<NoteManager> m_manager;
};

QTEST_GUILESS_MAIN(NoteManagerTest)
#include "NoteManagerTest.moc"

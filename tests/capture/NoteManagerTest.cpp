// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/NoteManager.h>
#include <support/TestServices.h>

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
        QCOMPARE(m_services->sound.played(), QStringList{QStringLiteral("Pop")});
        m_services->config.update([](AppConfig& config) { config.playSoundOnSave = false; });
        // Within the same second a title replaces its note.
        m_services->loop.setWallClock(m_services->loop.now().addMSecs(500));
        QCOMPARE(save(QStringLiteral("Buy milk today\ntwo")).value(), *saved);
        QVERIFY(readTestFile(*saved).endsWith("two"));
        m_services->loop.setWallClock(m_services->loop.now().addMSecs(500));
        QVERIFY(save(QStringLiteral("Buy milk today")).value() != *saved);
        QCOMPARE(QDir(inbox).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(), 2);
        QCOMPARE(m_services->sound.played().size(), 1);
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
    void save_badVault_failsAndWritesNothing()
    {
        const QString folder = m_services->folder.path();
        writeTestFile(folder + QStringLiteral("/plain"), "a file");
        makeTestLink(QStringLiteral("missing"), folder + QStringLiteral("/dangling"));
        QVERIFY(QDir::setCurrent(folder));
        const QStringList before = QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System);
        for (const auto& [vault, message] : {
                 std::pair(QString(), "The vault path is not an absolute path: \"\""),
                 {QStringLiteral("notes"), "The vault path is not an absolute path: \"notes\""},
                 {folder + QStringLiteral("/plain/vault"), "Not a directory"},
                 {folder + QStringLiteral("/n") + QChar::Null + u'x', "Invalid argument"},
                 {folder + QStringLiteral("/dangling"), "No such file or directory"},
             }) {
            m_services->config.update([&path = vault](AppConfig& config) { config.vaultPath = path; });
            QCOMPARE(save(QStringLiteral("precious")).error().message, QString::fromLatin1(message));
            QCOMPARE(QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System), before);
        }
        QVERIFY(QDir::setCurrent(QStringLiteral("/")) && m_services->sound.played().isEmpty());
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
    tl::expected<QString, FileError> save(const QString& content, const char* noteType = "Fleeting")
    {
        return m_manager->save(QString(), content, QString::fromUtf8(noteType));
    }

    std::unique_ptr<TestServices> m_services;
    std::unique_ptr<NoteManager> m_manager;
};

QTEST_GUILESS_MAIN(NoteManagerTest)
#include "NoteManagerTest.moc"

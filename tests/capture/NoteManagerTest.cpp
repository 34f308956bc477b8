// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/NoteManager.h>
#include <config/ConfigManager.h>
#include <support/ManualRunLoop.h>
#include <support/RecordingSound.h>
#include <support/TestFiles.h>

#include <QDirIterator>

#include <optional>

using namespace flitmark;

class NoteManagerTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void save_writesOneFileIntoTheTypesFolder();
    void save_unknownType_goesToTheSubfolder();
    void save_sameSecondAndTitle_replaces();
    void save_halfACharacter_isValidUtf8();
    void save_hugeTitle_succeeds();
    void save_sound_onlyWhenWantedAndSaved();
    void save_badVault_failsAndWritesNothing_data();
    void save_badVault_failsAndWritesNothing();
    void save_subfolderLinkedOutside_staysInTheVault();
    void save_ownInboxLink_isFollowed();

private:
    QString path(const QString& name) const { return m_home->filePath(name); }
    QStringList everything() const
    {
        QStringList found;
        QDirIterator all(m_home->path(), QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
        while (all.hasNext()) {
            found.append(all.next());
        }
        found.sort();
        return found;
    }
    tl::expected<QString, FileError> save(const QString& content, const QString& noteType = QStringLiteral("Fleeting"))
    {
        return m_manager->save(QString(), content, noteType);
    }

    std::unique_ptr<QTemporaryDir> m_home;
    std::optional<ConfigManager> m_config;
    std::optional<ManualRunLoop> m_loop;
    std::optional<RecordingSound> m_sound;
    std::optional<NoteManager> m_manager;
};

void NoteManagerTest::init()
{
    m_manager.reset();
    m_home = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir().mkpath(path(QStringLiteral("vault"))));
    m_config.emplace(
        Directories{.home = m_home->path(), .applicationSupport = path(QStringLiteral("conf")), .cache = {}});
    m_config->update([this](AppConfig& config) { config.vaultPath = path(QStringLiteral("vault")); });
    m_loop.emplace();
    m_sound.emplace();
    m_manager.emplace(*m_config, *m_loop, *m_sound);
}

void NoteManagerTest::save_writesOneFileIntoTheTypesFolder()
{
    const auto saved = save(QStringLiteral("# Shopping\n\nBuy milk today"));
    QVERIFY(saved);
    QCOMPARE(*saved, path(QStringLiteral("vault/Inbox/2026-01-22--140305--buy-milk-today.md")));
    QCOMPARE(QString::fromUtf8(readTestFile(*saved)),
             QStringLiteral("---\ncreated: %1\ntype: fleeting\ntags: [fleeting]\n---\n\n# Shopping\n\nBuy milk today")
                 .arg(m_loop->now().toUTC().toString(Qt::ISODateWithMs)));
    QCOMPARE(
        QDir(path(QStringLiteral("vault/Inbox"))).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
        QStringList{QStringLiteral("2026-01-22--140305--buy-milk-today.md")});
}

void NoteManagerTest::save_unknownType_goesToTheSubfolder()
{
    m_config->update([](AppConfig& config) { config.saveSubfolder = QStringLiteral("Some/Where"); });
    const auto saved = save(QStringLiteral("# only a heading"), QStringLiteral("Unheard"));
    QVERIFY(saved);
    QCOMPARE(*saved, path(QStringLiteral("vault/Some/Where/2026-01-22--140305.md")));
    QVERIFY(readTestFile(*saved).contains("\ntype: unheard\n---\n"));
}

void NoteManagerTest::save_sameSecondAndTitle_replaces()
{
    const auto first = save(QStringLiteral("title\none"));
    m_loop->setWallClock(m_loop->now().addMSecs(500));
    const auto second = save(QStringLiteral("title\ntwo"));
    m_loop->setWallClock(m_loop->now().addMSecs(500));
    const auto later = save(QStringLiteral("title\nthree"));
    QVERIFY(first && second && later);
    QCOMPARE(*second, *first);
    QVERIFY(*later != *first);
    QVERIFY(readTestFile(*first).endsWith("two"));
}

void NoteManagerTest::save_halfACharacter_isValidUtf8()
{
    const auto saved = save(QStringLiteral("be") + QChar(0xD83D) + QStringLiteral("fore\n") + QChar(0xDCA1));
    QVERIFY(saved);
    QVERIFY(saved->endsWith(QStringLiteral("--before.md")));
    const QByteArray bytes = readTestFile(*saved);
    QCOMPARE(QString::fromUtf8(bytes).toUtf8(), bytes);
    QVERIFY(!QString::fromUtf8(bytes).contains(QChar::ReplacementCharacter));
}

void NoteManagerTest::save_hugeTitle_succeeds()
{
    const QString title = (QString(1, QChar(0x0939)) + QString(200, QChar(0x0301))).repeated(50);
    const auto saved = save(title);
    QVERIFY(saved);
    QVERIFY(QString::fromUtf8(readTestFile(*saved)).endsWith(title));
}

void NoteManagerTest::save_sound_onlyWhenWantedAndSaved()
{
    QVERIFY(save(QStringLiteral("a")));
    QCOMPARE(m_sound->played(), QStringList{QStringLiteral("Pop")});
    m_config->update([](AppConfig& config) { config.playSoundOnSave = false; });
    QVERIFY(save(QStringLiteral("b")));
    m_config->update([](AppConfig& config) {
        config.playSoundOnSave = true;
        config.vaultPath.clear();
    });
    QVERIFY(!save(QStringLiteral("c")));
    QCOMPARE(m_sound->played().size(), 1);
}

void NoteManagerTest::save_badVault_failsAndWritesNothing_data()
{
    QTest::addColumn<QString>("vault");
    QTest::addColumn<QString>("message");
    const QString notAbsolute = QStringLiteral("The vault path is not an absolute path: \"%1\"");
    QTest::newRow("empty") << QString() << notAbsolute.arg(QString());
    QTest::newRow("relative") << QStringLiteral("notes") << notAbsolute.arg(QStringLiteral("notes"));
    QTest::newRow("home") << QStringLiteral("~/notes") << notAbsolute.arg(QStringLiteral("~/notes"));
    QTest::newRow("a file") << QStringLiteral("%1/plain") << QStringLiteral("Not a directory");
    QTest::newRow("below a file") << QStringLiteral("%1/plain/vault") << QStringLiteral("Not a directory");
    QTest::newRow("refused") << QStringLiteral("/proc/notes") << QStringLiteral("No such file or directory");
    QTest::newRow("NUL") << QString(QStringLiteral("%1/new") + QChar::Null + QStringLiteral("x"))
                         << QStringLiteral("Invalid argument");
    QTest::newRow("dangling link") << QStringLiteral("%1/dangling") << QStringLiteral("No such file or directory");
}

void NoteManagerTest::save_badVault_failsAndWritesNothing()
{
    QFETCH(const QString, vault);
    QFETCH(const QString, message);
    writeTestFile(path(QStringLiteral("plain")), "a file");
    makeTestLink(QStringLiteral("missing"), path(QStringLiteral("dangling")));
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_home->path()));
    const QStringList filesBefore = everything();
    m_config->update(
        [&](AppConfig& config) { config.vaultPath = vault.contains(u"%1") ? vault.arg(m_home->path()) : vault; });
    const auto saved = save(QStringLiteral("precious"));
    QDir::setCurrent(before);
    QVERIFY(!saved);
    QCOMPARE(saved.error().message, message);
    QCOMPARE(everything(), filesBefore);
    QCOMPARE(readTestFile(path(QStringLiteral("plain"))), QByteArray("a file"));
}

void NoteManagerTest::save_subfolderLinkedOutside_staysInTheVault()
{
    makeTestLink(QStringLiteral("../outside"), path(QStringLiteral("vault/Away")));
    m_config->update([](AppConfig& config) { config.saveSubfolder = QStringLiteral("Away/Sub"); });
    const auto saved = save(QStringLiteral("text"), QStringLiteral("Other"));
    QVERIFY(saved);
    QCOMPARE(QFileInfo(*saved).path(), path(QStringLiteral("vault/Inbox")));
    QVERIFY(!QFileInfo::exists(path(QStringLiteral("outside"))));
}

void NoteManagerTest::save_ownInboxLink_isFollowed()
{
    QVERIFY(QDir().mkpath(path(QStringLiteral("shared"))));
    makeTestLink(QStringLiteral("../shared"), path(QStringLiteral("vault/Inbox")));
    QVERIFY(save(QStringLiteral("text")));
    QCOMPARE(QDir(path(QStringLiteral("shared"))).entryList(QDir::Files).size(), 1);
    QVERIFY(QFileInfo(path(QStringLiteral("vault/Inbox"))).isSymLink());
}

QTEST_GUILESS_MAIN(NoteManagerTest)
#include "NoteManagerTest.moc"

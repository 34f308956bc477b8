// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Links.h>
#include <core/VaultPathResolver.h>
#include <support/TestFiles.h>

using namespace flitmark;

class VaultPathResolverTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_root = QFileInfo(m_folder->path()).canonicalFilePath();
        QVERIFY(QDir(m_root).mkpath(QStringLiteral("vault/Real/Deep")));
        QVERIFY(QDir(m_root).mkpath(QStringLiteral("outside/Deep")));
    }
    void subfolder_isCleanedOrReplaced()
    {
        const auto resolve = [](const QString& subfolder, const char* vault = "/V") {
            return VaultPathResolver::saveDirectory(QString::fromUtf8(vault), subfolder, QStringLiteral("F")).value();
        };
        QCOMPARE(resolve(QStringLiteral(u" \u2003\tProjects//Work/\n\u2028")), QStringLiteral("/V/Projects/Work"));
        for (const char* kept : {"Inbox/ Sub", ".obsidian", "...", "a/~notes", "..\\x", "\U0001F4A1/\u00e4"}) {
            QCOMPARE(resolve(QString::fromUtf8(kept)), QStringLiteral("/V/") + QString::fromUtf8(kept));
        }
        for (const char* bad :
             {"../x", "a/../b", "a/..", "./a", "/etc", " /etc", "~/x", "~root", "a:b", "", " \t\n "}) {
            QCOMPARE(resolve(QString::fromUtf8(bad)), QStringLiteral("/V/F"));
        }
        QCOMPARE(resolve(QStringLiteral("a") + QChar::Null + QStringLiteral("b")), QStringLiteral("/V/F"));
        for (const char* vault : {"/V/.", "/x/../V", "//V///"}) {
            QCOMPARE(resolve(QStringLiteral("a"), vault), QStringLiteral("/V/a"));
        }
        QCOMPARE(resolve(QStringLiteral("a"), "/"), QStringLiteral("/a"));
        for (const char* fallback : {"", "//", "a/..", "/Inbox"}) {
            const QString fine = QStringLiteral("fine");
            QCOMPARE(VaultPathResolver::saveDirectory(fine, fine, QString::fromUtf8(fallback)).error(),
                     VaultPathResolverError::invalidFallbackSubfolder);
        }
    }
    void links_neverLeadOutOfTheVault_data()
    {
        QTest::addColumn<QString>("target");
        QTest::addColumn<QString>("subfolder");
        QTest::addColumn<bool>("isAllowed");
        const auto row = [](const char* name, const char* target, const char* subfolder, bool isAllowed) {
            QTest::newRow(name) << QString::fromLatin1(target) << QString::fromLatin1(subfolder) << isAllowed;
        };
        // %1 stands for the folder that holds both the vault and the world outside it.
        row("to the outside", "%1/outside", "Link", false);
        row("to the outside, in the middle", "%1/outside", "Link/Deep", false);
        row("to the outside, relative, below it nothing yet", "../outside", "Link/Sub/More", false);
        row("out and back in", "../outside/../vault/Real", "Link/Sub", true);
        row("to the vault's parent", "..", "Link/Sub", false);
        row("to nothing outside", "%1/missing/more", "Link/Sub", false);
        row("through nothing to the outside", "missing/../../outside", "Link/Sub", false);
        row("to a sibling with the vault's name in front", "../vault2", "Link", false);
        row("to itself", "Link", "Link/Sub", false);
        row("inside, relative", "Real/Deep", "Link", true);
        row("to nothing inside", "%1/vault/missing", "Link/Sub", true);
        row("to the vault itself", ".", "Link/Sub", true);
        row("through another link to the outside", "Second/x", "Link", false);
        row("through another link inside", "Third/x", "Link", true);
    }
    void links_neverLeadOutOfTheVault()
    {
        QFETCH(const QString, target);
        QFETCH(const QString, subfolder);
        QFETCH(const bool, isAllowed);
        QVERIFY(QDir(m_root).mkdir(QStringLiteral("vault2")));
        makeTestLink(target.contains(u"%1") ? target.arg(m_root) : target, path("vault/Link"));
        makeTestLink(QStringLiteral("../outside"), path("vault/Second"));
        makeTestLink(QStringLiteral("Real"), path("vault/Third"));
        makeTestLink(QStringLiteral("vault"), path("way"));
        // An accepted folder keeps the names of links, those of the vault itself too; nothing is created.
        for (const QString& vault : {path("vault"), path("way")}) {
            QCOMPARE(VaultPathResolver::saveDirectory(vault, subfolder, QStringLiteral("Inbox")).value(),
                     vault + u'/' + (isAllowed ? subfolder : QStringLiteral("Inbox")));
        }
        QVERIFY(!QFileInfo::exists(path("vault/Inbox")) && !QFileInfo::exists(path("vault/Real/Sub")));
    }
    void resolveLinks_followsWhatIsThere()
    {
        // Taking ".." away by its letters would end in the vault; the system goes to the link's target first.
        makeTestLink(QStringLiteral("../outside/Deep"), path("vault/Link"));
        QCOMPARE(resolveLinks(path("vault/Link/../x")), path("outside/x"));
        QCOMPARE(resolveLinks(QStringLiteral("/..")), QStringLiteral("/"));
        makeTestLink(QStringLiteral("b"), path("a"));
        makeTestLink(QStringLiteral("a"), path("b"));
        QVERIFY(!resolveLinks(path("a/x")));
    }

private:
    QString path(const char* name) const { return m_root + u'/' + QString::fromUtf8(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_root;
};

QTEST_GUILESS_MAIN(VaultPathResolverTest)
#include "VaultPathResolverTest.moc"

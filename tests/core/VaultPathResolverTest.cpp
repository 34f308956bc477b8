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
    void init();
    void subfolder_isCleanedOrReplaced_data();
    void subfolder_isCleanedOrReplaced();
    void fallback_mustBeProper_data();
    void fallback_mustBeProper();
    void vaultPath_isStandardised_data();
    void vaultPath_isStandardised();
    void links_neverLeadOutOfTheVault_data();
    void links_neverLeadOutOfTheVault();
    void vaultBehindALink_containsItsFolders();
    void siblingWithLongerName_isOutside();
    void resolving_createsNothing();
    void resolveLinks_followsWhatIsThere();

private:
    QString path(const QString& name) const { return m_root + u'/' + name; }
    QString resolve(const QString& subfolder) const
    {
        return VaultPathResolver::saveDirectory(path(QStringLiteral("vault")), subfolder, QStringLiteral("Inbox"))
            .value_or(QStringLiteral("failed"));
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_root;
};

void VaultPathResolverTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_root = QFileInfo(m_folder->path()).canonicalFilePath();
    QVERIFY(QDir(m_root).mkpath(QStringLiteral("vault/Real/Deep")));
    QVERIFY(QDir(m_root).mkpath(QStringLiteral("outside/Deep")));
}

void VaultPathResolverTest::subfolder_isCleanedOrReplaced_data()
{
    QTest::addColumn<QString>("subfolder");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char* name, const QString& subfolder, const char* expected) {
        QTest::newRow(name) << subfolder << QString::fromUtf8(expected);
    };
    row("plain", QStringLiteral("Inbox"), "/V/Inbox");
    row("trimmed", QStringLiteral("  Projects/Work\n"), "/V/Projects/Work");
    row("trimmed of every kind of white space", QStringLiteral(u"\u2003\tA\u2028\u0085"), "/V/A");
    row("empty pieces", QStringLiteral("a//b/"), "/V/a/b");
    row("inner spaces stay", QStringLiteral("Inbox/ Sub"), "/V/Inbox/ Sub");
    row("hidden", QStringLiteral(".obsidian"), "/V/.obsidian");
    row("three dots are a name", QStringLiteral("..."), "/V/...");
    row("tilde inside", QStringLiteral("a/~notes"), "/V/a/~notes");
    row("backslash is a character", QStringLiteral("..\\x"), "/V/..\\x");
    row("beyond the basic plane", QStringLiteral(u"\U0001F4A1/\u00e4"), "/V/\U0001F4A1/\u00e4");
    row("parent", QStringLiteral("../x"), "/V/Fallback");
    row("parent inside", QStringLiteral("a/../b"), "/V/Fallback");
    row("parent at the end", QStringLiteral("a/.."), "/V/Fallback");
    row("current folder", QStringLiteral("./a"), "/V/Fallback");
    row("absolute", QStringLiteral("/etc"), "/V/Fallback");
    row("absolute behind spaces", QStringLiteral(" /etc"), "/V/Fallback");
    row("home", QStringLiteral("~/x"), "/V/Fallback");
    row("named home", QStringLiteral("~root"), "/V/Fallback");
    row("colon", QStringLiteral("a:b"), "/V/Fallback");
    row("empty", QString(), "/V/Fallback");
    row("blank", QStringLiteral(" \t\n "), "/V/Fallback");
    row("NUL", QStringLiteral("a") + QChar::Null + QStringLiteral("b"), "/V/Fallback");
    row("NUL alone", QString(QChar::Null), "/V/Fallback");
}

void VaultPathResolverTest::subfolder_isCleanedOrReplaced()
{
    QFETCH(const QString, subfolder);
    QFETCH(const QString, expected);
    QCOMPARE(VaultPathResolver::saveDirectory(QStringLiteral("/V"), subfolder, QStringLiteral("Fallback")).value(),
             expected);
}

void VaultPathResolverTest::fallback_mustBeProper_data()
{
    QTest::addColumn<QString>("fallback");
    QTest::newRow("empty") << QString();
    QTest::newRow("slashes") << QStringLiteral("//");
    QTest::newRow("parent") << QStringLiteral("a/..");
    QTest::newRow("absolute") << QStringLiteral("/Inbox");
}

void VaultPathResolverTest::fallback_mustBeProper()
{
    QFETCH(const QString, fallback);
    const auto result = VaultPathResolver::saveDirectory(QStringLiteral("/V"), QStringLiteral("fine"), fallback);
    QVERIFY(!result);
    QCOMPARE(result.error(), VaultPathResolverError::invalidFallbackSubfolder);
}

void VaultPathResolverTest::vaultPath_isStandardised_data()
{
    QTest::addColumn<QString>("vault");
    QTest::addColumn<QString>("expected");
    QTest::newRow("current folder") << QStringLiteral("/V/.") << QStringLiteral("/V/a");
    QTest::newRow("parent") << QStringLiteral("/V/x/../y") << QStringLiteral("/V/y/a");
    QTest::newRow("slashes") << QStringLiteral("//V///") << QStringLiteral("/V/a");
    QTest::newRow("root") << QStringLiteral("/") << QStringLiteral("/a");
}

void VaultPathResolverTest::vaultPath_isStandardised()
{
    QFETCH(const QString, vault);
    QFETCH(const QString, expected);
    QCOMPARE(VaultPathResolver::saveDirectory(vault, QStringLiteral("a"), QStringLiteral("Inbox")).value(), expected);
}

void VaultPathResolverTest::links_neverLeadOutOfTheVault_data()
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
    row("to the outside, below it nothing yet", "%1/outside", "Link/Sub/More", false);
    row("to the outside, relative", "../outside", "Link/Sub", false);
    row("out and back in", "../outside/../vault/Real", "Link/Sub", true);
    row("to the vault's parent", "..", "Link/Sub", false);
    row("to nothing outside", "%1/missing", "Link", false);
    row("to nothing outside, in the middle", "%1/missing/more", "Link/Sub", false);
    row("to nothing outside, relative", "../missing", "Link/Sub", false);
    row("through nothing to the outside", "missing/../../outside", "Link/Sub", false);
    row("to a sibling with the vault's name in front", "%1/vault-two", "Link", false);
    row("to itself", "Link", "Link/Sub", false);
    row("inside", "%1/vault/Real", "Link/Sub", true);
    row("inside, relative", "Real/Deep", "Link", true);
    row("to nothing inside", "%1/vault/missing", "Link/Sub", true);
    row("to the vault itself", ".", "Link/Sub", true);
    row("through another link to the outside", "Second/x", "Link", false);
    row("through another link inside", "Third/x", "Link", true);
}

void VaultPathResolverTest::links_neverLeadOutOfTheVault()
{
    QFETCH(const QString, target);
    QFETCH(const QString, subfolder);
    QFETCH(const bool, isAllowed);
    makeTestLink(target.contains(u"%1") ? target.arg(m_root) : target, path(QStringLiteral("vault/Link")));
    makeTestLink(QStringLiteral("../outside"), path(QStringLiteral("vault/Second")));
    makeTestLink(QStringLiteral("Real"), path(QStringLiteral("vault/Third")));

    // An accepted folder keeps the names of links.
    QCOMPARE(resolve(subfolder), path(QStringLiteral("vault/")) + (isAllowed ? subfolder : QStringLiteral("Inbox")));
}

void VaultPathResolverTest::vaultBehindALink_containsItsFolders()
{
    const QString link = path(QStringLiteral("way"));
    makeTestLink(QStringLiteral("vault"), link);
    makeTestLink(path(QStringLiteral("vault/Real")), path(QStringLiteral("vault/Home")));
    makeTestLink(path(QStringLiteral("outside")), path(QStringLiteral("vault/Away")));
    const auto resolveThere = [&link](const QString& subfolder) {
        return VaultPathResolver::saveDirectory(link, subfolder, QStringLiteral("Inbox")).value();
    };
    QCOMPARE(resolveThere(QStringLiteral("Real/x")), link + QStringLiteral("/Real/x"));
    QCOMPARE(resolveThere(QStringLiteral("Home/x")), link + QStringLiteral("/Home/x"));
    QCOMPARE(resolveThere(QStringLiteral("Away/x")), link + QStringLiteral("/Inbox"));
}

void VaultPathResolverTest::siblingWithLongerName_isOutside()
{
    QVERIFY(QDir(m_root).mkdir(QStringLiteral("vault2")));
    makeTestLink(QStringLiteral("../vault2"), path(QStringLiteral("vault/Link")));
    QCOMPARE(resolve(QStringLiteral("Link")), path(QStringLiteral("vault/Inbox")));
}

void VaultPathResolverTest::resolving_createsNothing()
{
    const QStringList before = QDir(m_root).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    resolve(QStringLiteral("New/Folder"));
    QVERIFY(!QFileInfo::exists(path(QStringLiteral("vault/New"))));
    QVERIFY(!QFileInfo::exists(path(QStringLiteral("vault/Inbox"))));
    QCOMPARE(QDir(m_root).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), before);
}

void VaultPathResolverTest::resolveLinks_followsWhatIsThere()
{
    // Taking ".." away by its letters would end in the vault; the system goes to the link's target first.
    makeTestLink(QStringLiteral("../outside/Deep"), path(QStringLiteral("vault/Link")));
    QCOMPARE(resolveLinks(path(QStringLiteral("vault/Link/../x"))), path(QStringLiteral("outside/x")));
    QCOMPARE(resolveLinks(QStringLiteral("/..")), QStringLiteral("/"));
    makeTestLink(QStringLiteral("b"), path(QStringLiteral("a")));
    makeTestLink(QStringLiteral("a"), path(QStringLiteral("b")));
    QVERIFY(!resolveLinks(path(QStringLiteral("a/x"))));
}

QTEST_GUILESS_MAIN(VaultPathResolverTest)
#include "VaultPathResolverTest.moc"

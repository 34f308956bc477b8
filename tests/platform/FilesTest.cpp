// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Files.h>
#include <platform/FolderListing.h>
#include <support/TestFiles.h>

#include <sys/stat.h>
#include <sys/xattr.h>

#include <algorithm>

using namespace flitmark;

namespace {

mode_t modeOf(const QString& path)
{
    struct stat info = {};
    return ::stat(QFile::encodeName(path).constData(), &info) == 0 ? info.st_mode & 07777U : 0;
}

ino_t inodeOf(const QString& path)
{
    struct stat info = {};
    return ::stat(QFile::encodeName(path).constData(), &info) == 0 ? info.st_ino : 0;
}

} // namespace

class FilesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void replaceFile_writesTheWholeContent_data();
    void replaceFile_writesTheWholeContent();
    void replaceFile_keepsLinks_data();
    void replaceFile_keepsLinks();
    void replaceFile_throughALinkAndItsParent_landsWhereTheSystemWould();
    void replaceFile_keepsPermissionsAndAttributes();
    void replaceFile_intoADevice_leavesTheDevice();
    void writing_failure_leavesEverything_data();
    void writing_failure_leavesEverything();
    void replaceFile_readOnlyFile_isRefused();
    void replaceFile_folderWithoutPermission_writesInPlace();
    void overwriteFile_keepsTheFileOthersHoldOpen_data();
    void overwriteFile_keepsTheFileOthersHoldOpen();
    void readFile_readsWhatHasNoSize();
    void readFile_failure_hasTheSystemsWords_data();
    void readFile_failure_hasTheSystemsWords();
    void nulInPath_isNoOtherFile();
    void createFolder_makesParentsOrSaysWhy();
    void keepUnreadable_copiesBeside();
    void listFolder_followsLinksAndSkipsHidden();

private:
    QString path(const QString& name) const { return m_folder->filePath(name); }
    QStringList names() const
    {
        return QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void FilesTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

void FilesTest::replaceFile_writesTheWholeContent_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::newRow("shorter") << QByteArray("a long text") << QByteArray("short");
    QTest::newRow("longer, with a NUL") << QByteArray("x") << QByteArray("a\0b", 3);
    QTest::newRow("empty") << QByteArray("x") << QByteArray();
    QTest::newRow("big") << QByteArray("x") << QByteArray(5'000'000, 'y');
}

void FilesTest::replaceFile_writesTheWholeContent()
{
    QFETCH(const QByteArray, before);
    QFETCH(const QByteArray, after);
    const QString file = path(QStringLiteral("file"));
    for (const Flush flush : {Flush::ToDisk, Flush::Later}) {
        QVERIFY(replaceFile(file, before, flush));
        QVERIFY(replaceFile(file, after, flush));
        QCOMPARE(readFile(file).value(), after);
    }
    QCOMPARE(names(), QStringList{QStringLiteral("file")});
}

void FilesTest::replaceFile_keepsLinks_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<bool>("exists");
    QTest::newRow("absolute") << QStringLiteral("%1/sub/real") << true;
    QTest::newRow("relative") << QStringLiteral("sub/real") << true;
    QTest::newRow("to nothing yet") << QStringLiteral("sub/real") << false;
}

void FilesTest::replaceFile_keepsLinks()
{
    QFETCH(const QString, target);
    QFETCH(const bool, exists);
    const QString real = path(QStringLiteral("sub/real"));
    const QString link = path(QStringLiteral("link"));
    const QString first = path(QStringLiteral("first"));
    QVERIFY(QDir().mkpath(path(QStringLiteral("sub"))));
    if (exists) {
        writeTestFile(real, "old");
    }
    makeTestLink(target.contains(u"%1") ? target.arg(m_folder->path()) : target, link);
    makeTestLink(QStringLiteral("link"), first);

    QVERIFY(replaceFile(first, "new"));
    QCOMPARE(readTestFile(real), QByteArray("new"));
    QVERIFY(QFileInfo(link).isSymLink());
    QVERIFY(QFileInfo(first).isSymLink());
    QCOMPARE(names().size(), 3);
}

void FilesTest::replaceFile_throughALinkAndItsParent_landsWhereTheSystemWould()
{
    QVERIFY(QDir().mkpath(path(QStringLiteral("a/b"))));
    makeTestLink(QStringLiteral("a/b"), path(QStringLiteral("inner")));
    makeTestLink(QStringLiteral("inner/../file"), path(QStringLiteral("link")));
    QVERIFY(replaceFile(path(QStringLiteral("link")), "text"));
    QCOMPARE(readTestFile(path(QStringLiteral("a/file"))), QByteArray("text"));
    QVERIFY(!QFileInfo::exists(path(QStringLiteral("file"))));
}

void FilesTest::replaceFile_keepsPermissionsAndAttributes()
{
    const QString file = path(QStringLiteral("file"));
    const QByteArray name = QFile::encodeName(file);
    writeTestFile(file, "old");
    QCOMPARE(::chmod(name.constData(), 0640), 0);
    const bool hasAttributes = ::setxattr(name.constData(), "user.colour", "red", 3, 0) == 0;

    QVERIFY(replaceFile(file, "new"));
    QCOMPARE(modeOf(file), mode_t(0640));
    if (hasAttributes) {
        QByteArray value(16, '\0');
        const ssize_t size =
            ::getxattr(name.constData(), "user.colour", value.data(), static_cast<size_t>(value.size()));
        QCOMPARE(value.left(size), QByteArray("red"));
    }

    const mode_t mask = ::umask(027);
    const bool isWritten = replaceFile(path(QStringLiteral("fresh")), "new").has_value();
    ::umask(mask);
    QVERIFY(isWritten);
    QCOMPARE(modeOf(path(QStringLiteral("fresh"))), mode_t(0640));
}

void FilesTest::replaceFile_intoADevice_leavesTheDevice()
{
    makeTestLink(QStringLiteral("/dev/null"), path(QStringLiteral("nowhere")));
    QVERIFY(replaceFile(path(QStringLiteral("nowhere")), "text"));
    QVERIFY(!QFileInfo(QStringLiteral("/dev/null")).isFile());

    QCOMPARE(::mkfifo(QFile::encodeName(path(QStringLiteral("pipe"))).constData(), 0600), 0);
    QVERIFY(!replaceFile(path(QStringLiteral("pipe")), "text"));
    QVERIFY(!QFileInfo(path(QStringLiteral("pipe"))).isFile());
}

void FilesTest::writing_failure_leavesEverything_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("message");
    QTest::newRow("below a file") << QStringLiteral("file/sub") << QStringLiteral("Not a directory");
    QTest::newRow("no such folder") << QStringLiteral("missing/sub") << QStringLiteral("No such file or directory");
    QTest::newRow("a folder") << QStringLiteral("folder") << QStringLiteral("Is a directory");
    QTest::newRow("links in a circle") << QStringLiteral("circle")
                                       << QStringLiteral("Too many levels of symbolic links");
    QTest::newRow("name too long") << QString(300, u'x') << QStringLiteral("File name too long");
    QTest::newRow("empty path") << QString() << QStringLiteral("No such file or directory");
}

void FilesTest::writing_failure_leavesEverything()
{
    QFETCH(const QString, target);
    QFETCH(const QString, message);
    writeTestFile(path(QStringLiteral("file")), "text");
    QVERIFY(QDir().mkpath(path(QStringLiteral("folder"))));
    makeTestLink(QStringLiteral("circle"), path(QStringLiteral("circle")));
    const QStringList before = names();
    const QString targetPath = target.isEmpty() ? target : path(target);
    for (const auto write : {+[](const QString& to) { return replaceFile(to, "new"); },
                             +[](const QString& to) { return overwriteFile(to, "new"); }}) {
        const auto written = write(targetPath);
        QVERIFY(!written);
        QCOMPARE(written.error().message, message);
    }
    QCOMPARE(names(), before);
    QCOMPARE(readTestFile(path(QStringLiteral("file"))), QByteArray("text"));
    QVERIFY(QDir(path(QStringLiteral("folder"))).isEmpty());
}

void FilesTest::replaceFile_readOnlyFile_isRefused()
{
    if (isSuperuser()) {
        QSKIP("no file is read-only for a superuser");
    }
    const QString file = path(QStringLiteral("file"));
    writeTestFile(file, "old");
    QVERIFY(QFile::setPermissions(file, QFile::ReadOwner));
    QCOMPARE(replaceFile(file, "new").error().message, QStringLiteral("Permission denied"));
    QCOMPARE(readTestFile(file), QByteArray("old"));
    QCOMPARE(names().size(), 1);
}

void FilesTest::replaceFile_folderWithoutPermission_writesInPlace()
{
    if (isSuperuser()) {
        QSKIP("no folder is read-only for a superuser");
    }
    const QString folder = path(QStringLiteral("folder"));
    const QString file = folder + QStringLiteral("/file");
    writeTestFile(file, "old");
    const ino_t inode = inodeOf(file);
    QVERIFY(QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner));
    const bool isWritten = replaceFile(file, "new").has_value();
    const bool isNewWritten = replaceFile(folder + QStringLiteral("/other"), "new").has_value();
    QVERIFY(QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QVERIFY(isWritten);
    QVERIFY(!isNewWritten);
    QCOMPARE(readTestFile(file), QByteArray("new"));
    QCOMPARE(inodeOf(file), inode);
}

void FilesTest::overwriteFile_keepsTheFileOthersHoldOpen_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::newRow("shorter") << QByteArray("a long text") << QByteArray("short");
    QTest::newRow("longer") << QByteArray("short") << QByteArray("a long text");
    QTest::newRow("empty") << QByteArray("text") << QByteArray();
}

void FilesTest::overwriteFile_keepsTheFileOthersHoldOpen()
{
    QFETCH(const QByteArray, before);
    QFETCH(const QByteArray, after);
    const QString file = path(QStringLiteral("file"));
    QVERIFY(overwriteFile(file, before));
    QFile watcher(file);
    QVERIFY(watcher.open(QIODevice::ReadOnly));
    QVERIFY(overwriteFile(file, after));
    QCOMPARE(watcher.readAll(), after);
    QCOMPARE(readTestFile(file), after);
}

void FilesTest::readFile_readsWhatHasNoSize()
{
    // Files of the kernel claim to be empty.
    QVERIFY(readFile(QStringLiteral("/proc/self/status")).value().startsWith("Name:"));
    writeTestFile(path(QStringLiteral("big")), QByteArray(100'000, 'z'));
    QCOMPARE(readFile(path(QStringLiteral("big"))).value(), QByteArray(100'000, 'z'));
}

void FilesTest::readFile_failure_hasTheSystemsWords_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("message");
    QTest::newRow("missing") << QStringLiteral("missing") << QStringLiteral("No such file or directory");
    QTest::newRow("folder") << QStringLiteral(".") << QStringLiteral("Is a directory");
    QTest::newRow("below a file") << QStringLiteral("file/x") << QStringLiteral("Not a directory");
}

void FilesTest::readFile_failure_hasTheSystemsWords()
{
    QFETCH(const QString, name);
    QFETCH(const QString, message);
    writeTestFile(path(QStringLiteral("file")), "text");
    const auto bytes = readFile(path(name));
    QVERIFY(!bytes);
    QCOMPARE(bytes.error().message, message);
}

void FilesTest::nulInPath_isNoOtherFile()
{
    const QString file = path(QStringLiteral("file"));
    writeTestFile(file, "text");
    const QString withNul = file + QChar::Null + QStringLiteral("x");
    QVERIFY(!readFile(withNul));
    QVERIFY(!replaceFile(withNul, "new"));
    QVERIFY(!overwriteFile(withNul, "new"));
    QVERIFY(!createFolder(path(QStringLiteral("new")) + QChar::Null + QStringLiteral("/sub")));
    QVERIFY(!listFolder(m_folder->path() + QChar::Null, [](const QString&) { return true; }));
    QCOMPARE(readTestFile(file), QByteArray("text"));
    QCOMPARE(names(), QStringList{QStringLiteral("file")});
}

void FilesTest::createFolder_makesParentsOrSaysWhy()
{
    writeTestFile(path(QStringLiteral("file")), "text");
    QVERIFY(createFolder(path(QStringLiteral("a/b//c/"))));
    QVERIFY(QFileInfo(path(QStringLiteral("a/b/c"))).isDir());
    QVERIFY(createFolder(path(QStringLiteral("a/b"))));
    QCOMPARE(createFolder(path(QStringLiteral("file"))).error().message, QStringLiteral("Not a directory"));
    QCOMPARE(createFolder(path(QStringLiteral("file/a/b"))).error().message, QStringLiteral("Not a directory"));
    QVERIFY(!createFolder(QStringLiteral("/proc/none/a")));
    QVERIFY(!createFolder(QString()));
}

void FilesTest::keepUnreadable_copiesBeside()
{
    writeTestFile(path(QStringLiteral("file")), "broken");
    writeTestFile(path(QStringLiteral("file.unreadable")), "older");
    keepUnreadable(path(QStringLiteral("file")));
    keepUnreadable(path(QStringLiteral("missing")));
    QCOMPARE(readTestFile(path(QStringLiteral("file"))), QByteArray("broken"));
    QCOMPARE(readTestFile(path(QStringLiteral("file.unreadable"))), QByteArray("broken"));
    QCOMPARE(names().size(), 2);
}

void FilesTest::listFolder_followsLinksAndSkipsHidden()
{
    writeTestFile(path(QStringLiteral("a.md")), "text");
    writeTestFile(path(QStringLiteral("unwanted.txt")), "text");
    writeTestFile(path(QStringLiteral(".hidden.md")), "text");
    QVERIFY(QDir().mkpath(path(QStringLiteral("folder.md"))));
    makeTestLink(QStringLiteral("folder.md"), path(QStringLiteral("link.md")));
    makeTestLink(QStringLiteral("missing"), path(QStringLiteral("dangling.md")));
    const QDateTime modified(QDate(2020, 2, 29), QTime(1, 2, 3, 4));
    QFile file(path(QStringLiteral("a.md")));
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(modified, QFile::FileModificationTime));

    auto entries = listFolder(m_folder->path(), [](const QString& name) { return name.endsWith(u".md"); }).value();
    std::sort(entries.begin(), entries.end(), [](const auto& a, const auto& b) { return a.name < b.name; });
    QCOMPARE(entries.size(), 3);
    QCOMPARE(entries[0].name, QStringLiteral("a.md"));
    QVERIFY(entries[0].isFile && !entries[0].isFolder);
    QCOMPARE(entries[0].modificationDate(), modified);
    QVERIFY(entries[1].isFolder && !entries[1].isFile);
    QCOMPARE(entries[2].name, QStringLiteral("link.md"));
    QVERIFY(entries[2].isFolder);

    const auto all = [](const QString&) { return true; };
    QCOMPARE(listFolder(path(QStringLiteral("a.md")), all).error().message, QStringLiteral("Not a directory"));
    QVERIFY(listFolder(path(QStringLiteral("folder.md")), all).value().isEmpty());
}

QTEST_GUILESS_MAIN(FilesTest)
#include "FilesTest.moc"

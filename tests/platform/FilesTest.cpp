// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Files.h>
#include <support/TestFiles.h>

#include <sys/stat.h>
#include <sys/xattr.h>

using namespace flitmark;

class FilesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }
    void writing_leavesTheWholeContent()
    {
        const QString file = path("file");
        const QByteArrayList contents = {"a long text",         "short", "longer again",
                                         QByteArray("a\0b", 3), "",      QByteArray(5'000'000, 'y')};
        for (const QByteArray& content : contents) {
            for (const Flush flush : {Flush::ToDisk, Flush::Later}) {
                QVERIFY(replaceFile(file, "x", flush) && replaceFile(file, content, flush));
                QCOMPARE(readFile(file).value(), content);
            }
        }
        // Whoever has the file open sees what is written over it.
        QFile watcher(file);
        QVERIFY(watcher.open(QIODevice::ReadOnly));
        for (const QByteArray& content : contents) {
            QVERIFY(overwriteFile(file, content) && watcher.seek(0));
            QCOMPARE(watcher.readAll(), content);
        }
        QCOMPARE(names(), QStringLiteral("file"));
        // Files of the kernel claim to be empty.
        QVERIFY(readFile(QStringLiteral("/proc/self/status")).value().startsWith("Name:"));
    }
    void replaceIfUnchanged_writesThroughALinkAndOnlyOverWhatWasRead()
    {
        writeTestFile(path("sub/real"), "old");
        makeTestLink(QStringLiteral("sub/real"), path("link"));
        const QByteArray name = QFile::encodeName(path("sub/real"));
        QCOMPARE(::chmod(name.constData(), 0640), 0);
        const bool hasAttributes = ::setxattr(name.constData(), "user.colour", "red", 3, 0) == 0;

        QCOMPARE(replaceFileIfUnchanged(path("link"), "older", "new").value(), ReplaceOutcome::Changed);
        QCOMPARE(readTestFile(path("sub/real")), "old");
        QCOMPARE(replaceFileIfUnchanged(path("link"), "old", "new").value(), ReplaceOutcome::Replaced);
        QCOMPARE(readTestFile(path("sub/real")), "new");
        QVERIFY(QFileInfo(path("link")).isSymLink());
        QCOMPARE(QDir(path("sub")).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("real")});
        struct stat info = {};
        QCOMPARE(::stat(name.constData(), &info), 0);
        QCOMPARE(info.st_mode & 07777U, 0640U);
        QByteArray value(3, '\0');
        QVERIFY(!hasAttributes || ::getxattr(name.constData(), "user.colour", value.data(), 3) == 3);
        QVERIFY(!replaceFileIfUnchanged(path("gone"), "", "new"));
        QVERIFY(!QFileInfo::exists(path("gone")));
    }
    void replaceFile_keepsLinks_data()
    {
        QTest::addColumn<QString>("target");
        QTest::addColumn<bool>("exists");
        QTest::newRow("absolute") << path("sub/real") << true;
        QTest::newRow("relative") << QStringLiteral("sub/real") << true;
        QTest::newRow("to nothing yet") << QStringLiteral("sub/real") << false;
        // The system goes to where the inner link leads before it goes up.
        QTest::newRow("up from behind a link") << QStringLiteral("inner/../real") << false;
    }
    void replaceFile_keepsLinks()
    {
        QFETCH(QString, target);
        QFETCH(const bool, exists);
        QVERIFY(QDir().mkpath(path("sub/deep")));
        makeTestLink(QStringLiteral("sub/deep"), path("inner"));
        if (exists) {
            writeTestFile(path("sub/real"), "old");
        }
        makeTestLink(target.startsWith(u'/') ? path("sub/real") : target, path("link"));
        makeTestLink(QStringLiteral("link"), path("first"));
        QVERIFY(replaceFile(path("first"), "new"));
        QCOMPARE(readTestFile(path("sub/real")), QByteArray("new"));
        QVERIFY(QFileInfo(path("link")).isSymLink() && QFileInfo(path("first")).isSymLink());
        QCOMPARE(names(), QStringLiteral("first,inner,link,sub"));
    }
    void replaceFile_keepsPermissionsAndAttributes()
    {
        const QByteArray name = QFile::encodeName(path("file"));
        writeTestFile(path("file"), "old");
        QCOMPARE(::chmod(name.constData(), 0640), 0);
        const bool hasAttributes = ::setxattr(name.constData(), "user.colour", "red", 3, 0) == 0;
        QVERIFY(replaceFile(path("file"), "new"));
        QByteArray value("red");
        if (hasAttributes) {
            value.fill('\0');
            QCOMPARE(::getxattr(name.constData(), "user.colour", value.data(), 3), 3);
        }
        QCOMPARE(value, QByteArray("red"));
        const mode_t mask = ::umask(027);
        const bool isWritten = replaceFile(path("fresh"), "new").has_value();
        ::umask(mask);
        QVERIFY(isWritten);
        for (const char* file : {"file", "fresh"}) {
            QCOMPARE(statusOf(path(file)).st_mode & 07777U, 0640U);
        }
    }
    void replaceFile_intoADevice_leavesTheDevice()
    {
        makeTestLink(QStringLiteral("/dev/null"), path("nowhere"));
        QVERIFY(replaceFile(path("nowhere"), "text"));
        QVERIFY(!QFileInfo(QStringLiteral("/dev/null")).isFile());
        QCOMPARE(::mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
        QVERIFY(!replaceFile(path("pipe"), "text"));
        QVERIFY(!QFileInfo(path("pipe")).isFile());
    }
    void failure_leavesEverything_data()
    {
        QTest::addColumn<QString>("target");
        QTest::addColumn<QString>("message");
        const auto row = [](const char* name, const QString& target, const char* message) {
            QTest::newRow(name) << target << QString::fromLatin1(message);
        };
        row("below a file", QStringLiteral("file/sub"), "Not a directory");
        row("no such folder", QStringLiteral("missing/sub"), "No such file or directory");
        row("a folder", QStringLiteral("folder"), "Is a directory");
        row("links in a circle", QStringLiteral("circle"), "Too many levels of symbolic links");
        row("name too long", QString(300, u'x'), "File name too long");
        row("NUL", QStringLiteral("file") + QChar::Null + u'x', "Invalid argument");
    }
    void failure_leavesEverything()
    {
        QFETCH(const QString, target);
        QFETCH(const QString, message);
        writeTestFile(path("file"), "text");
        QVERIFY(QDir().mkpath(path("folder")));
        makeTestLink(QStringLiteral("circle"), path("circle"));
        const QString to = m_folder->path() + u'/' + target;
        QCOMPARE(replaceFile(to, "new").error().message, message);
        QCOMPARE(overwriteFile(to, "new").error().message, message);
        QCOMPARE(readFile(to).error().message, message);
        QCOMPARE(names(), QStringLiteral("circle,file,folder"));
        QCOMPARE(readTestFile(path("file")), QByteArray("text"));
        QVERIFY(QDir(path("folder")).isEmpty());
    }
    void replaceFile_withoutPermission_isRefusedOrWritesInPlace()
    {
        if (isSuperuser()) {
            QSKIP("nothing is read-only for a superuser");
        }
        const QString file = path("folder/file");
        writeTestFile(file, "old");
        const ino_t inode = statusOf(file).st_ino;
        QVERIFY(QFile::setPermissions(file, QFile::ReadOwner));
        QCOMPARE(replaceFile(file, "new").error().message, QStringLiteral("Permission denied"));
        QCOMPARE(readTestFile(file), QByteArray("old"));
        QVERIFY(QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner));
        QVERIFY(QFile::setPermissions(path("folder"), QFile::ReadOwner | QFile::ExeOwner));
        const bool isWritten = replaceFile(file, "new").has_value();
        const bool isNewWritten = replaceFile(path("folder/other"), "new").has_value();
        QVERIFY(QFile::setPermissions(path("folder"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        QVERIFY(isWritten && !isNewWritten);
        QCOMPARE(readTestFile(file), QByteArray("new"));
        QCOMPARE(statusOf(file).st_ino, inode);
    }
    void createFolder_makesParentsOrSaysWhy()
    {
        writeTestFile(path("file"), "text");
        QVERIFY(createFolder(path("a/b//c/")) && createFolder(path("a/b")));
        QVERIFY(QFileInfo(path("a/b/c")).isDir());
        for (const char* bad : {"file", "file/a/b"}) {
            QCOMPARE(createFolder(path(bad)).error().message, QStringLiteral("Not a directory"));
        }
        for (const QString& bad : {QStringLiteral("/proc/none/a"), QString(), path("new") + QChar::Null + u'x'}) {
            QVERIFY(!createFolder(bad));
        }
        QCOMPARE(names(), QStringLiteral("a,file"));
    }

private:
    QString path(const char* name) const { return m_folder->filePath(QString::fromUtf8(name)); }
    QString names() const
    {
        const auto all = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
        return QDir(m_folder->path()).entryList(all).join(u',');
    }
    static struct stat statusOf(const QString& path)
    {
        struct stat info = {};
        ::stat(QFile::encodeName(path).constData(), &info);
        return info;
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(FilesTest)
#include "FilesTest.moc"

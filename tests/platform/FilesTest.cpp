// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Directories.h>
#include <platform/Files.h>
#include <support/TestFiles.h>

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

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
        QCOMPARE(names(), "file");
        // Files of the kernel claim to be empty.
        QVERIFY(readFile("/proc/self/status").value().startsWith("Name:"));
    }
    void directories_followTheEnvironment()
    {
        qputenv("HOME", QFile::encodeName(m_folder->path()));
        qunsetenv("XDG_CACHE_HOME");
        qputenv("XDG_CONFIG_HOME", "relative/is/ignored");
        QCOMPARE(Directories::ofUser().applicationSupport, path(".config"));
        QCOMPARE(Directories::ofUser().cache, path(".cache"));
        qputenv("XDG_CONFIG_HOME", "/elsewhere//config/");
        QCOMPARE(Directories::ofUser().ownFolder(), "/elsewhere/config/Flitmark");
        QVERIFY(QDir().mkpath(path("Library/Application Support")));
        QCOMPARE(Directories::ofUser().applicationSupport, path("Library/Application Support"));
        QCOMPARE(Directories::ofUser().configHome, "/elsewhere/config");
    }
    void replacing_keepsLinksPermissionsAndAttributes()
    {
        QVERIFY(QDir().mkpath(path("sub/deep")));
        makeTestLink("sub/deep", path("inner"));
        // The system goes to where the inner link leads before it goes up.
        for (const QString& target : {path("sub/real"), QString("sub/real"), QString("inner/../real")}) {
            QFile::remove(path("sub/real"));
            QFile::remove(path("link"));
            QFile::remove(path("first"));
            makeTestLink(target, path("link"));
            makeTestLink("link", path("first"));
            const mode_t mask = ::umask(027);
            const bool isWritten = replaceFile(path("first"), "fresh").has_value();
            ::umask(mask);
            QVERIFY(isWritten);
            QCOMPARE(statusOf(path("sub/real")).st_mode & 07777U, 0640U);
            QVERIFY(QFile::setPermissions(path("sub/real"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOther));
            const QByteArray name = QFile::encodeName(path("sub/real"));
            const bool hasAttributes = ::setxattr(name.constData(), "user.colour", "red", 3, 0) == 0;
            QVERIFY(replaceFile(path("first"), "old"));
            QCOMPARE(replaceFileIfUnchanged(path("first"), "older", "new").value(), ReplaceOutcome::Changed);
            QCOMPARE(readTestFile(path("sub/real")), "old");
            QCOMPARE(replaceFileIfUnchanged(path("first"), "old", "new").value(), ReplaceOutcome::Replaced);
            QCOMPARE(readTestFile(path("sub/real")), "new");
            QVERIFY(QFileInfo(path("link")).isSymLink() && QFileInfo(path("first")).isSymLink());
            QCOMPARE(QDir(path("sub")).entryList(QDir::Files | QDir::Hidden), QStringList{"real"});
            QCOMPARE(statusOf(path("sub/real")).st_mode & 07777U, 0601U);
            QByteArray value(3, '\0');
            QVERIFY(!hasAttributes || ::getxattr(name.constData(), "user.colour", value.data(), 3) == 3);
        }
        QVERIFY(!replaceFileIfUnchanged(path("gone"), "", "new") && !QFileInfo::exists(path("gone")));
    }
    void replaceFile_intoADevice_leavesTheDevice()
    {
        makeTestLink("/dev/null", path("nowhere"));
        QVERIFY(replaceFile(path("nowhere"), "text"));
        QVERIFY(!QFileInfo("/dev/null").isFile());
        QCOMPARE(::mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
        QVERIFY(!replaceFile(path("pipe"), "text"));
        QVERIFY(!QFileInfo(path("pipe")).isFile());
    }
    void failure_leavesEverything()
    {
        writeTestFile(path("file"), "text");
        QVERIFY(QDir().mkpath(path("folder")));
        makeTestLink("circle", path("circle"));
        for (const auto& [target, message] : {
                 std::pair(QString("file/sub"), "Not a directory"),
                 {"missing/sub", "No such file or directory"},
                 {"folder", "Is a directory"},
                 {"circle", "Too many levels of symbolic links"},
                 {QString(300, u'x'), "File name too long"},
                 {QString("file") + QChar::Null + u'x', "Invalid argument"},
             }) {
            const QString to = m_folder->path() + u'/' + target;
            QCOMPARE(replaceFile(to, "new").error().message, message);
            QCOMPARE(overwriteFile(to, "new").error().message, message);
            QCOMPARE(readFile(to).error().message, message);
        }
        QCOMPARE(names(), "circle,file,folder");
        QCOMPARE(readTestFile(path("file")), QByteArray("text"));
        QVERIFY(QDir(path("folder")).isEmpty());
    }
    void replaceFile_withoutPermission_isRefusedOrWritesInPlace()
    {
        if (::geteuid() == 0) {
            QSKIP("nothing is read-only for a superuser");
        }
        const QString file = path("folder/file");
        writeTestFile(file, "old");
        const ino_t inode = statusOf(file).st_ino;
        QVERIFY(QFile::setPermissions(file, QFile::ReadOwner));
        QCOMPARE(replaceFile(file, "new").error().message, "Permission denied");
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

private:
    QString path(const char* name) const { return m_folder->filePath(name); }
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

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <support/TestServices.h>

#include <sys/mount.h>

#include <thread>

using namespace flitmark;

namespace {

/// A disk of 256 KiB at a folder, for who may mount one.
class SmallDisk
{
public:
    explicit SmallDisk(const QString& folder)
        : m_folder(folder)
        , m_isMounted(::mount("tmpfs", QFile::encodeName(folder).constData(), "tmpfs", 0, "size=256k") == 0)
    {
    }
    ~SmallDisk()
    {
        if (m_isMounted) {
            ::umount2(QFile::encodeName(m_folder).constData(), MNT_DETACH);
        }
    }
    Q_DISABLE_COPY_MOVE(SmallDisk)

    bool isMounted() const { return m_isMounted; }
    /// Leaves no byte free.
    void fill() const
    {
        QFile ballast(ballastPath());
        QVERIFY(ballast.open(QFile::WriteOnly | QFile::Unbuffered));
        while (ballast.write(QByteArray(4096, 'b')) > 0) {
        }
    }
    void makeRoom() const { QVERIFY(QFile::remove(ballastPath())); }
    void protect() const { remount(MS_RDONLY); }
    void unprotect() const { remount(0); }

private:
    void remount(unsigned long flags) const
    {
        QCOMPARE(::mount("tmpfs", QFile::encodeName(m_folder).constData(), "tmpfs", MS_REMOUNT | flags, nullptr), 0);
    }
    QString ballastPath() const { return m_folder + "/ballast"; }

    QString m_folder;
    bool m_isMounted = false;
};

QString filesIn(const QString& folder)
{
    return QDir(folder).entryList(QDir::Files | QDir::Hidden).join(u',');
}

} // namespace

/// What the world can do to files of all kinds at once: nothing of the user's is lost by it.
class FaultsTest final : public QObject
{
    Q_OBJECT

    using Act = void (SmallDisk::*)() const;

private Q_SLOTS:
    void unwritableDisk_losesNothingAndIsSurvived_data()
    {
        QTest::addColumn<Act>("breaks");
        QTest::addColumn<Act>("mends");
        QTest::addColumn<QString>("error");
        QTest::newRow("full") << Act(&SmallDisk::fill) << Act(&SmallDisk::makeRoom)
                              << QString("No space left on device");
        QTest::newRow("read-only") << Act(&SmallDisk::protect) << Act(&SmallDisk::unprotect)
                                   << QString("Read-only file system");
    }
    void unwritableDisk_losesNothingAndIsSurvived()
    {
        QFETCH(Act, breaks);
        QFETCH(Act, mends);
        QFETCH(QString, error);
        TestServices s;
        const SmallDisk disk(s.folder.path());
        if (!disk.isMounted()) {
            QSKIP("only a superuser can mount a small disk");
        }
        QVERIFY(QDir().mkpath(s.directories.ownFolder()));
        writeTestFile(s.notePath, "## Tasks\n- [ ] a\n" + QByteArray(20'000, 'j'));
        s.config.save();
        s.drafts.save("old thought", {}, {});
        s.daily.loadTodayNote();
        s.loop.runQueued();
        const QString thought = "new thought " + QString(9000, u'x');
        const auto toggle = [&] { return s.daily.toggleTask(s.daily.todayNote().tasks.first().lineNumber); };
        const auto save = [&] { return s.notes.save({}, thought, "Fleeting").has_value(); };
        const auto stored = [&] { return DraftManager(s.directories, s.loop).currentDraft()->content; };
        const auto onDisk = [&] {
            return s.note() + readTestFile(s.drafts.draftURL()) + readTestFile(s.config.configURL());
        };
        const QByteArray before = onDisk();

        (disk.*breaks)();
        s.drafts.save(thought, {}, {});
        s.config.update([](AppConfig& changed) { changed.saveSubfolder = QString(9000, u'y'); });
        s.config.save();
        QVERIFY(!save());
        QVERIFY(!toggle());
        QCOMPARE(s.daily.lastError(), "Failed to toggle task: " + error);
        QCOMPARE(onDisk(), before);
        QCOMPARE(s.drafts.currentDraft()->content, thought);
        QCOMPARE(filesIn(s.directories.ownFolder()), ".draft.json,config.json");
        QCOMPARE(filesIn(QFileInfo(s.notePath).path()), "2026-01-22.md");
        QCOMPARE(filesIn(s.vault + "/Inbox"), QString());

        (disk.*mends)();
        s.drafts.save(thought, {}, {});
        QCOMPARE(stored(), thought);
        QVERIFY(save());
        QVERIFY(toggle());
    }

    void twoCopiesWithOneDraft_leaveAWholeOne()
    {
        TestServices s;
        s.drafts.save("x", {}, {});
        const auto type = [&s](QChar letter) {
            DraftManager copy(s.directories, s.loop);
            for (int length = 1; length < 2000; length += 7) {
                copy.save(QString(length, letter), {}, {});
            }
        };
        std::thread one(type, u'x');
        std::thread other(type, u'y');
        QByteArray torn;
        for (int i = 0; i < 500; ++i) {
            const QByteArray file = readTestFile(s.drafts.draftURL());
            if (!file.endsWith('\n') || (file.contains('x') && file.contains("yy"))) {
                torn = file;
            }
        }
        one.join();
        other.join();
        QCOMPARE(torn, QByteArray());
        QCOMPARE(filesIn(s.directories.ownFolder()), ".draft.json,config.json");
    }
};

QTEST_GUILESS_MAIN(FaultsTest)
#include "FaultsTest.moc"

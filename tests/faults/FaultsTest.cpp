// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/DraftManager.h>
#include <capture/NoteManager.h>
#include <support/TestServices.h>

#include <sys/mount.h>

using namespace flitmark;

namespace {

/// A file system of its own that holds 256 KiB, for who may mount one.
class SmallDisk
{
public:
    SmallDisk() { m_isMounted = ::mount("tmpfs", path().constData(), "tmpfs", 0, "size=256k") == 0; }
    ~SmallDisk()
    {
        if (m_isMounted) {
            ::umount2(path().constData(), MNT_DETACH);
        }
    }
    Q_DISABLE_COPY_MOVE(SmallDisk)

    bool isMounted() const { return m_isMounted; }
    QString filePath(const QString& name) const { return m_folder.filePath(name); }
    /// Leaves no byte free.
    void fill() const
    {
        QFile file(filePath(QStringLiteral("ballast")));
        if (file.open(QFile::WriteOnly | QFile::Unbuffered)) {
            while (file.write(QByteArray(4096, 'b')) > 0) {
            }
        }
    }
    void makeRoom() const { QFile::remove(filePath(QStringLiteral("ballast"))); }

private:
    QByteArray path() const { return QFile::encodeName(m_folder.path()); }

    QTemporaryDir m_folder;
    bool m_isMounted = false;
};

QStringList filesIn(const QString& folder)
{
    return QDir(folder).entryList(QDir::Files | QDir::Hidden);
}

} // namespace

/// What the world can do to the files: nothing of the user's is lost by any of it.
class FaultsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fullDisk_losesNothingAndIsSurvived()
    {
        const SmallDisk disk;
        if (!disk.isMounted()) {
            QSKIP("only a superuser can mount a small disk");
        }
        TestServices services("## Today's Focus\nOld\n\n## Tasks\n- [ ] a\n");
        services.config.update([&disk](AppConfig& changed) { changed.vaultPath = disk.filePath(QStringLiteral("V")); });
        const QString daily = disk.filePath(QStringLiteral("V/Daily/2026/2026-01-22.md"));
        const QByteArray text = "## Tasks\n- [ ] a\n" + QByteArray(20000, 'j') + "\n";
        writeTestFile(daily, text);
        const Directories onDisk{
            .home = disk.filePath({}), .applicationSupport = disk.filePath(QStringLiteral("S")), .cache = {}};
        ConfigManager config(onDisk);
        config.save();
        DraftManager draft(onDisk, services.loop);
        draft.save(QStringLiteral("old thought"), {}, {});
        const QByteArray savedDraft = readTestFile(draft.draftURL());
        const QByteArray savedConfig = readTestFile(config.configURL());
        NoteManager notes(services.config, services.loop, services.sound);
        services.daily.loadTodayNote();
        services.loop.runQueued();
        disk.fill();

        const QString thought = QStringLiteral("new thought ") + QString(9000, u'x');
        draft.save(thought, {}, {});
        QCOMPARE(draft.currentDraft()->content, thought);
        QVERIFY(!notes.save({}, thought, QStringLiteral("Fleeting")));
        QVERIFY(!services.daily.toggleTask(services.daily.todayNote().tasks.first().lineNumber));
        QVERIFY(services.daily.lastError()->contains(QStringLiteral("No space left")));
        config.update([](AppConfig& changed) { changed.saveSubfolder = QString(9000, u'y'); });
        config.save();

        QCOMPARE(readTestFile(daily), text);
        QCOMPARE(readTestFile(draft.draftURL()), savedDraft);
        QCOMPARE(readTestFile(config.configURL()), savedConfig);
        QCOMPARE(filesIn(QFileInfo(daily).path()), QStringList(QStringLiteral("2026-01-22.md")));
        QCOMPARE(filesIn(onDisk.ownFolder()).size(), 2);
        QVERIFY(filesIn(disk.filePath(QStringLiteral("V/Inbox"))).isEmpty());

        disk.makeRoom();
        draft.save(thought, {}, {});
        QCOMPARE(DraftManager(onDisk, services.loop).currentDraft()->content, thought);
        QVERIFY(notes.save({}, thought, QStringLiteral("Fleeting")));
        QVERIFY(services.daily.toggleTask(services.daily.todayNote().tasks.first().lineNumber));
    }

    void vanishedVault_isNotMadeAgainByAnEdit()
    {
        TestServices services("## Today's Focus\nOld\n\n## Tasks\n- [ ] a\n");
        services.controller.startPomodoroTimer();
        QVERIFY(QDir(services.vault).removeRecursively());
        QVERIFY(!services.daily.toggleTask(4));
        QCOMPARE(services.daily.lastError(), QStringLiteral("Failed to toggle task: No such file or directory"));
        QVERIFY(!services.daily.updateFocus(QStringLiteral("New")));
        QVERIFY(!QFileInfo::exists(services.vault));
        // A new thought is another matter: it gets its folder.
        NoteManager notes(services.config, services.loop, services.sound);
        const auto saved = notes.save({}, QStringLiteral("thought"), QStringLiteral("Fleeting"));
        QVERIFY(saved && QFileInfo::exists(*saved));
    }

    void clockSetBack_letsThePomodoroEndAllTheSame()
    {
        TestServices services("## Tasks\n- [ ] a\n");
        services.controller.startPomodoroTimer();
        services.loop.advance(std::chrono::minutes(5));
        services.loop.setWallClock(services.loop.now().addSecs(-3600));
        services.loop.advance(std::chrono::seconds(2));
        QVERIFY(services.controller.timeRemainingRatio() <= 1.0 && services.controller.timeRemainingRatio() > 0.0);
        services.loop.advance(std::chrono::minutes(15));
        QVERIFY(services.popups.isCheckinVisible());
    }

    void twoCopiesWithOneDraft_leaveAWholeOne()
    {
        TestServices services;
        DraftManager one(services.directories, services.loop);
        DraftManager other(services.directories, services.loop);
        for (int i = 0; i < 500; ++i) {
            DraftManager& writer = i % 2 == 0 ? one : other;
            writer.save(QStringLiteral("%1 %2").arg(i).arg(QString(i * 7, u'x')), {}, {});
            if (i % 50 == 0) {
                one.clear();
                other.save(QString::number(i), {}, {});
            }
            const auto read = DraftManager(services.directories, services.loop).currentDraft();
            QVERIFY(read && read->content == writer.currentDraft().value_or(*other.currentDraft()).content);
        }
    }
};

QTEST_GUILESS_MAIN(FaultsTest)
#include "FaultsTest.moc"

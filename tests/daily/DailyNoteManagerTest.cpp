// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <support/FullDisk.h>
#include <support/TestServices.h>

#include <QSignalSpy>

using namespace flitmark;
using Event = FileEventSource::Event;
using namespace std::chrono_literals;

namespace {

const QByteArray note = "## Focus\n**Old**\n## Tasks\n- [ ] a\n- [x] b 🍅\n## Pomodoro\n**Today:** 3/8 completed\n"
                        "| # | Time | Focus |\n|---|---|---|\n";

QByteArray changed(QByteArray text, const char* before, const char* after)
{
    return text.replace(before, after);
}

/// Makes the edit of this name.
bool edit(DailyNoteManager& manager, const QString& name)
{
    const QString go = QStringLiteral("Go");
    return name == u"update focus"           ? manager.updateFocus(go)
           : name == u"add pomodoro entry"   ? manager.addPomodoroEntry(go)
           : name == u"toggle task"          ? manager.toggleTask(3)
           : name == u"add pomodoro to task" ? manager.addPomodoroToTask(3)
           : name == u"add new task"         ? manager.addNewTask(go)
                                             : manager.removePomodoroFromTask(4);
}

} // namespace

class DailyNoteManagerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { m_services.reset(); }

    void path_isBuiltAnewByDateAndVault()
    {
        start({});
        QVERIFY(!manager().todayNote().exists);
        m_services->config.update([](AppConfig& config) { config.vaultPath = QStringLiteral("/My Vault/"); });
        loop().setWallClock(QDateTime(QDate(2027, 1, 1), QTime(0, 0)));
        QCOMPARE(manager().getTodayNotePath(), QStringLiteral("/My Vault/Daily/2027/2027-01-01.md"));
        QCOMPARE(manager().todayNote().path, path());
        manager().loadTodayNote();
        loop().runQueued();
        // What is opened is the published note, whatever the date is by now.
        loop().advance(24h);
        manager().openInObsidian();
        QCOMPARE(m_services->workspace.opened.last().toEncoded(),
                 QByteArray("obsidian://open?vault=My%20Vault&file=Daily/2027/2027-01-01"));
    }

    void load_isPublishedOneTurnLater()
    {
        TestServices services;
        writeTestFile(services.notePath, note);
        DailyNoteManager manager(
            {services.config, services.signalManager, services.loop, services.events, services.workspace});
        QVERIFY(manager.isLoading() && !manager.todayNote().exists);
        QVERIFY(!edit(manager, QStringLiteral("update focus")) && !edit(manager, QStringLiteral("toggle task")));
        QCOMPARE(services.note(), note);
        services.loop.runQueued();
        QVERIFY(!manager.isLoading());
        QCOMPARE(manager.todayNote().focus, QStringLiteral("Old"));
    }

    void load_unreadable_keepsTheNote()
    {
        for (const QByteArray& bytes : {QByteArray("## Focus\n\xE9t\xE9"), QByteArray()}) {
            start(note);
            QVERIFY(QFile::remove(path()));
            bytes.isNull() ? void(QDir().mkdir(path())) : writeTestFile(path(), bytes);
            manager().loadTodayNote();
            loop().runQueued();
            QCOMPARE(manager().lastError(), QStringLiteral("Failed to load daily note: ") +
                                                (bytes.isNull() ? QStringLiteral("Is a directory")
                                                                : QStringLiteral("The file is not valid UTF-8 text.")));
            QCOMPARE(manager().todayNote().focus, QStringLiteral("Old"));
            QVERIFY(!manager().toggleTask(3));
            QCOMPARE(onDisk(), bytes);
        }
    }

    void watch_reloadsHalfASecondAfterEachEvent()
    {
        start(note);
        QSignalSpy changes(&manager(), &DailyNoteManager::todayNoteChanged);
        // The event of the old file, which arrives while an edit is under way, is none.
        m_services->events.report(path(), Event::Renamed);
        QVERIFY(manager().toggleTask(3) && manager().updateFocus(QStringLiteral("x")));
        QCOMPARE(m_services->events.paths().count(path()), 1);
        loop().advance(2s);
        QCOMPARE(changes.size(), 2);
        writeTestFile(path(), "## Focus\nNew");
        m_services->events.report(path(), Event::Written | Event::Grown);
        loop().advance(100ms);
        m_services->events.report(path(), Event::Written);
        loop().advance(399ms);
        QCOMPARE(changes.size(), 2);
        loop().advance(1ms);
        QCOMPARE(manager().todayNote().focus, QStringLiteral("New"));
        loop().advance(10s);
        QCOMPARE(changes.size(), 4);

        QVERIFY(QFile::rename(path(), path() + u'x'));
        m_services->events.report(path(), Event::Renamed);
        loop().advance(500ms);
        QVERIFY(!manager().todayNote().exists && !manager().lastError());
        QCOMPARE(m_services->events.paths().count(path()), 1);
    }

    void edits()
    {
        for (const auto& [editName, after] : {
                 std::pair("toggle task", changed(note, "[ ] a", "[x] a")),
                 {"add new task", changed(note, "🍅\n", "🍅\n- [ ] Go\n")},
                 {"add pomodoro to task", changed(note, "a\n", "a 🍅\n")},
                 {"remove pomodoro from task", changed(note, " b 🍅", " b")},
                 {"update focus", changed(note, "Old", "Go")},
                 {"add pomodoro entry", changed(note, "3/8", "4/8") + "| 4 | 09:30 | Go |\n"},
             }) {
            const QString name = QString::fromLatin1(editName);
            start(note);
            {
                const FullDisk full;
                QVERIFY2(!edit(manager(), name), editName);
            }
            QCOMPARE(manager().lastError(), QStringLiteral("Failed to %1: File too large").arg(name));
            QCOMPARE(onDisk(), note);
            QCOMPARE(QDir(QFileInfo(path()).path()).entryList(QDir::Files | QDir::Hidden).size(), 1);

            QVERIFY(edit(manager(), name));
            QCOMPARE(onDisk(), after);
            QCOMPARE(manager().todayNote().content.toUtf8(), note);
            loop().runQueued();
            QCOMPARE(manager().todayNote().content.toUtf8(), after);
        }
        QVERIFY(QDir(m_services->vault).removeRecursively());
        QVERIFY(!edit(manager(), QStringLiteral("toggle task")));
        QCOMPARE(manager().lastError(), QStringLiteral("Failed to toggle task: No such file or directory"));
        QVERIFY(!QFileInfo::exists(m_services->vault)); // not made again for an edit
        start("## Carryover\n- [ ] a");
        QVERIFY(!manager().addNewTask(QStringLiteral("x")));
        QCOMPARE(manager().lastError(), QStringLiteral("Could not find tasks section in daily note"));
    }

    void edit_keepsEveryByte()
    {
        for (const QByteArray& before : {
                 QByteArray("\xEF\xBB\xBF\n- [ ] \xEF\xBB\xBF 1\n\xEF\xBB\xBF"),
                 QByteArray("\xEF\xBB\xBF\xEF\xBB\xBF\n- [ ] a"),
                 QByteArray("## Ta\0sks\n- [ ] a\0b\n\0", 20),
                 QByteArray("\xEF\xBF\xBF\xF4\x8F\xBF\xBF e\xCC\x81\n- [ ] a"),
                 QByteArray(10'000'000, 'y') + "\n- [ ] a",
             }) {
            start(before);
            QVERIFY(manager().toggleTask(1));
            QVERIFY(onDisk() == changed(before, "[ ]", "[x]"));
        }
        start("x\r\n- [ ] a\ry\vz\f\xC2\x85\xE2\x80\xA8\xE2\x80\xA9");
        QVERIFY(manager().toggleTask(1));
        QCOMPARE(onDisk(), QByteArray("x\n- [x] a\ny\nz\n\n\n\n"));
    }

    void editsInOneTurn_buildOnEachOther()
    {
        start(changed(note, "3/8", "9223372036854775806/8"));
        QVERIFY(manager().addPomodoroToTask(3) && manager().addPomodoroToTask(3) && manager().toggleTask(3));
        QVERIFY(manager().addPomodoroEntry(QStringLiteral("x")) && manager().addPomodoroEntry(QStringLiteral("y")));
        QCOMPARE(onDisk(), changed(note, "[ ] a", "[x] a 🍅 🍅").replace("3/8", "9223372036854775807/8") +
                               "| 9223372036854775807 | 09:30 | x |\n| 9223372036854775807 | 09:30 | y |\n");
    }

    void editsOfAStaleNote_areMadeOnTheFreshText()
    {
        start(note);
        QByteArray fresh = "- [ ] a\nnew\n" + changed(note, "3/8", "6/8") + "- [ ] a\n";
        writeTestFile(path(), fresh);
        QVERIFY(manager().addPomodoroToTask(3));
        QCOMPARE(onDisk(), fresh.replace("] a\n-", "] a 🍅\n-"));
        writeTestFile(path(), fresh.prepend("top\n"));
        QVERIFY(manager().addPomodoroEntry(QStringLiteral("Go")));
        QCOMPARE(onDisk(), fresh.replace("6/8", "7/8").replace("|---|\n", "|---|\n| 7 | 09:30 | Go |\n"));
        QVERIFY(manager().updateFocus(QStringLiteral("F")));
        loop().runQueued();
        QCOMPARE(onDisk(), fresh.replace("Old", "F"));
        QCOMPARE(manager().todayNote().content.toUtf8(), fresh);
        QCOMPARE(manager().todayNote().tasks.first().lineNumber, 6);

        writeTestFile(path(), fresh.replace("] a 🍅", "] later"));
        QVERIFY(!manager().toggleTask(6));
        loop().runQueued();
        QVERIFY(manager().lastError()->startsWith(QStringLiteral("Failed to toggle task: The note was changed by")));
        QCOMPARE(onDisk(), fresh);
        QCOMPARE(manager().todayNote().tasks.first().text, QStringLiteral("later"));
    }

private:
    /// Starts on a note of this content and publishes it.
    void start(const QByteArray& content) { m_services = std::make_unique<TestServices>(content); }
    DailyNoteManager& manager() { return m_services->daily; }
    ManualRunLoop& loop() { return m_services->loop; }
    QString path() const { return m_services->notePath; }
    QByteArray onDisk() const { return m_services->note(); }

    std::unique_ptr<TestServices> m_services;
};

QTEST_GUILESS_MAIN(DailyNoteManagerTest)
#include "DailyNoteManagerTest.moc"

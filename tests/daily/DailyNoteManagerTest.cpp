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

} // namespace

class DailyNoteManagerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void path_isBuiltAnewByDateAndVault()
    {
        TestServices s;
        QVERIFY(!s.daily.todayNote().exists);
        s.loop.setWallClock(QDateTime(QDate(2027, 1, 1), QTime(0, 0)));
        s.config.update([](AppConfig& config) { config.vaultPath = "/My Vault/"; });
        QCOMPARE(s.daily.getTodayNotePath(), "/My Vault/Daily/2027/2027-01-01.md");
        QCOMPARE(s.daily.todayNote().path, s.notePath);
        s.loop.runQueued();
        QCOMPARE(s.daily.todayNote().path, s.daily.getTodayNotePath());
        // What is opened is the published note, whatever the date is by now.
        s.loop.advance(24h);
        s.daily.openInObsidian();
        QCOMPARE(s.workspace.opened.last().toEncoded(),
                 QByteArray("obsidian://open?vault=My%20Vault&file=Daily/2027/2027-01-01"));
    }

    void ownNote_isFoundReadAndEditedAsItIs()
    {
        TestServices s;
        QVERIFY(s.daily.createInObsidian());
        QCOMPARE(s.workspace.opened.last().toEncoded(), QByteArray("obsidian://daily?vault=Vault"));
        const QString path = s.vault + "/J/2026-01-22.md";
        writeTestFile(s.vault + "/.obsidian/daily-notes.json", R"({"folder":"J"})");
        writeTestFile(path, "# Todo\r\n* [/] a\r\n");
        s.loop.advance(2s);
        s.loop.runQueued();
        const DailyNote& today = s.daily.todayNote();
        QVERIFY(today.exists && today.path == path && today.pathInVault == "J/2026-01-22.md");
        QCOMPARE(today.tasks.value(0).sign, "/");
        QVERIFY(s.daily.toggleTask(1) && s.daily.addNewTask("b") && s.daily.updateFocus("[[c]]"));
        s.loop.runQueued();
        QCOMPARE(today.focus, "c");
        s.daily.setRunningTask("a");
        QVERIFY(s.daily.addPomodoroEntry(s.daily.runningTask()) &&
                s.daily.addPomodoroToTask(today.tasks[0].lineNumber));
        QCOMPARE(readTestFile(path),
                 "# Todo\r\n\r\n## Today's Focus\r\n\r\n[[c]]\r\n\r\n* [x] a 🍅\r\n* [ ] b\r\n\r\n## Pomodoro Log\r\n"
                 "**Today:** 1/8 completed\r\n\r\n| # | Time | Focus |\r\n|---|------|-------|\r\n"
                 "| 1 | 09:30 | a |\r\n");
        // The planned note takes its place with the next load, with rules and a task of its own.
        writeTestFile(s.notePath, "## Tasks\n- [/] no\n- [ ] d\n");
        s.daily.loadTodayNoteIfMoved();
        s.loop.runQueued();
        QCOMPARE(today.tasks.size(), 1);
        QVERIFY(today.path == s.notePath && s.daily.runningTask().isEmpty());
    }

    void load_isPublishedOneTurnLater()
    {
        TestServices services;
        writeTestFile(services.notePath, note);
        DailyNoteManager manager(
            {services.config, services.signalManager, services.loop, services.events, services.workspace});
        QVERIFY(manager.isLoading() && !manager.todayNote().exists);
        QVERIFY(!manager.updateFocus("Go") && !manager.toggleTask(3));
        QCOMPARE(services.note(), note);
        services.loop.runQueued();
        QVERIFY(!manager.isLoading());
        QCOMPARE(manager.todayNote().focus, "Old");
    }

    void load_unreadable_keepsTheNote()
    {
        for (const QByteArray& bytes : {QByteArray("## Focus\n\xE9t\xE9"), QByteArray()}) {
            TestServices s(note);
            QVERIFY(QFile::remove(s.notePath));
            bytes.isNull() ? void(QDir().mkdir(s.notePath)) : writeTestFile(s.notePath, bytes);
            s.daily.loadTodayNote();
            s.loop.runQueued();
            QCOMPARE(s.daily.lastError(),
                     QStringLiteral("Failed to load daily note: ") +
                         (bytes.isNull() ? "Is a directory" : "The file is not valid UTF-8 text."));
            QVERIFY(s.output->lines().contains(*s.daily.lastError()));
            QCOMPARE(s.daily.todayNote().focus, "Old");
            QVERIFY(!s.daily.toggleTask(3));
            QCOMPARE(s.note(), bytes);
        }
    }

    void watch_reloadsHalfASecondAfterEachEvent()
    {
        TestServices s(note);
        QSignalSpy changes(&s.daily, &DailyNoteManager::todayNoteChanged);
        // The event of the old file, which arrives while an edit is under way, is none.
        s.events.report(s.notePath, Event::Renamed);
        QVERIFY(s.daily.toggleTask(3) && s.daily.updateFocus("x"));
        QCOMPARE(s.events.paths().count(s.notePath), 1);
        s.loop.advance(2s);
        QCOMPARE(changes.size(), 2);
        writeTestFile(s.notePath, "## Focus\nNew");
        s.events.report(s.notePath, Event::Written | Event::Renamed);
        s.loop.advance(100ms);
        s.events.report(s.notePath, Event::Written);
        s.loop.advance(399ms);
        QCOMPARE(changes.size(), 2);
        s.loop.advance(1ms);
        QCOMPARE(s.daily.todayNote().focus, "New");
        s.loop.advance(10s);
        QCOMPARE(changes.size(), 4);

        QVERIFY(QFile::rename(s.notePath, s.notePath + u'x'));
        s.events.report(s.notePath, Event::Renamed);
        s.loop.advance(500ms);
        QVERIFY(!s.daily.todayNote().exists && !s.daily.lastError());
        QCOMPARE(s.events.paths().count(s.notePath), 1);
    }

    void edits()
    {
        const std::tuple<const char*, bool (*)(DailyNoteManager&), QByteArray> rows[] = {
            {"toggle task", [](auto& m) { return m.toggleTask(3); }, changed(note, "[ ] a", "[x] a")},
            {"add new task", [](auto& m) { return m.addNewTask("Go"); }, changed(note, "🍅\n", "🍅\n- [ ] Go\n")},
            {"add pomodoro to task", [](auto& m) { return m.addPomodoroToTask(3); }, changed(note, "a\n", "a 🍅\n")},
            {"remove pomodoro from task", [](auto& m) { return m.removePomodoroFromTask(4); },
             changed(note, " b 🍅", " b")},
            {"update focus", [](auto& m) { return m.updateFocus("Go"); }, changed(note, "Old", "Go")},
            {"add pomodoro entry", [](auto& m) { return m.addPomodoroEntry("Go"); },
             changed(note, "3/8", "4/8") + "| 4 | 09:30 | Go |\n"},
        };
        for (const auto& [name, edit, after] : rows) {
            TestServices s(note);
            {
                const FullDisk full;
                QVERIFY2(!edit(s.daily), name);
            }
            QCOMPARE(s.daily.lastError(), QString("Failed to %1: File too large").arg(name));
            QCOMPARE(s.note(), note);
            QCOMPARE(QDir(QFileInfo(s.notePath).path()).entryList(QDir::Files | QDir::Hidden).size(), 1);

            QVERIFY(edit(s.daily));
            QCOMPARE(s.note(), after);
            QCOMPARE(s.daily.todayNote().content.toUtf8(), note);
            s.loop.runQueued();
            QCOMPARE(s.daily.todayNote().content.toUtf8(), after);
        }
        TestServices s("## Carryover\n- [ ] a");
        QVERIFY(!s.daily.addNewTask("x"));
        QCOMPARE(s.daily.lastError(), "Could not find tasks section in daily note");
        QVERIFY(QDir(s.vault).removeRecursively());
        QVERIFY(!s.daily.toggleTask(1));
        QCOMPARE(s.daily.lastError(), "Failed to toggle task: No such file or directory");
        QVERIFY(s.output->lines().contains(*s.daily.lastError()));
        s.loop.runQueued();
        QVERIFY(!s.daily.todayNote().exists);
        QVERIFY(!QFileInfo::exists(s.vault)); // not made again for an edit
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
            TestServices s(before);
            QVERIFY(s.daily.toggleTask(1));
            QVERIFY(s.note() == changed(before, "[ ]", "[x]"));
        }
        TestServices s("x\r\n- [ ] a\ry\vz\f\xC2\x85\xE2\x80\xA8\xE2\x80\xA9");
        QVERIFY(s.daily.toggleTask(1));
        QCOMPARE(s.note(), QByteArray("x\n- [x] a\ny\nz\n\n\n\n"));
    }

    void editsInOneTurn_buildOnEachOther()
    {
        TestServices s(changed(note, "3/8", "9223372036854775806/8"));
        QVERIFY(s.daily.addPomodoroToTask(3) && s.daily.addPomodoroToTask(3) && s.daily.toggleTask(3));
        QVERIFY(s.daily.addPomodoroEntry("x") && s.daily.addPomodoroEntry("y"));
        QCOMPARE(s.note(), changed(note, "[ ] a", "[x] a 🍅 🍅").replace("3/8", "9223372036854775807/8") +
                               "| 9223372036854775807 | 09:30 | x |\n| 9223372036854775807 | 09:30 | y |\n");
    }

    void editsOfAStaleNote_areMadeOnTheFreshText()
    {
        TestServices s(note);
        QByteArray fresh = "top\n" + changed(note, "3/8", "6/8");
        writeTestFile(s.notePath, fresh);
        QVERIFY(s.daily.addPomodoroEntry("Go"));
        s.loop.runQueued();
        QCOMPARE(s.note(), fresh.replace("6/8", "7/8").replace("|---|\n", "|---|\n| 7 | 09:30 | Go |\n"));
        QCOMPARE(s.daily.todayNote().content.toUtf8(), fresh);
        QCOMPARE(s.daily.todayNote().tasks.first().lineNumber, 4);

        writeTestFile(s.notePath, fresh.replace("] a", "] later"));
        QVERIFY(!s.daily.toggleTask(4));
        s.loop.runQueued();
        QVERIFY(s.daily.lastError()->startsWith("Failed to toggle task: The note was changed by"));
        QCOMPARE(s.note(), fresh);
        QCOMPARE(s.daily.todayNote().tasks.first().text, "later");
    }

    void ofEqualTasks_theOneThatWasMeantIsEdited()
    {
        const QByteArray two = "## A\n- [ ] x\n## B\n- [ ] x\n";
        // The note as it is shown, as it is by then, the line that is ticked, and which line it is now; 0 for none.
        const std::tuple<QByteArray, QByteArray, qint64, qsizetype> rows[] = {
            {two, "\n\n" + two, 3, 5},
            {two, "## B\n- [ ] x\n## A\n- [ ] x\n", 1, 3},
            {two, "## A\n## B\n- [ ] x\n", 3, 2},
            {two, "## A\n## B\n- [ ] x\n", 1, 0},
            {two, "## A\n## B\n- [ ] x\n- [ ] x\n", 1, 0},
            {"## A\n- [ ] x\n- [ ] x\n", "## A\n- [ ] x\n", 2, 0},
            {"## A\n- [ ] x\n- [ ] x\n", "top\n## A\n- [ ] x\nmiddle\n- [ ] x\n", 2, 4},
            {"## A\n- [ ] x\n", "## Other\n- [ ] x\n", 1, 1},
        };
        for (const auto& [shown, fresh, line, expected] : rows) {
            TestServices s(shown);
            writeTestFile(s.notePath, fresh);
            QCOMPARE(s.daily.toggleTask(line), expected != 0);
            QByteArrayList lines = fresh.split('\n');
            lines[expected].replace("[ ]", "[x]");
            QCOMPARE(s.note(), lines.join('\n'));
        }
    }

    void otherDigits_areNotForFiles()
    {
        QLocale::setDefault(QLocale("ar_EG"));
        TestServices s(note);
        const bool isLogged = s.daily.addPomodoroEntry("Go");
        QLocale::setDefault(QLocale::system());
        QVERIFY(isLogged && s.note().contains("| 4 | 09:30 | Go |"));
    }
};

QTEST_GUILESS_MAIN(DailyNoteManagerTest)
#include "DailyNoteManagerTest.moc"

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Text.h>
#include <daily/DailyNoteEdits.h>

#include <QtTest/QTest>

namespace flitmark {

namespace {

using Edits = DailyNoteEdits;

const QString nothing = QStringLiteral("(can't be done)");

QString result(const QList<QStringView>& lines, const std::optional<LineChanges>& changes)
{
    return changes ? Edits::apply(lines, *changes) : nothing;
}

} // namespace

class DailyNoteEditsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void updateFocus_data();
    void updateFocus();
    void addPomodoroEntry_data();
    void addPomodoroEntry();
    void taskLine_data();
    void taskLine();
    void lineOutOfRange_isRefused();
    void addNewTask_data();
    void addNewTask();
    void pomodoroCount_data();
    void pomodoroCount();
    void findLine_takesTheNearest();
};

void DailyNoteEditsTest::updateFocus_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    const auto row = [](const char* name, const char* before, const char* after) {
        QTest::newRow(name) << QString::fromUtf8(before) << QString::fromUtf8(after);
    };
    row("bold stays bold", "## Today's Focus\n\n**Old**\nrest", "## Today's Focus\n\n**Ship it**\nrest");
    row("plain stays plain", "## FOCUS\n  *Old*\n", "## FOCUS\nShip it\n");
    row("a list item is the focus", "## Focus\n#tag\n- a", "## Focus\n#tag\nShip it");
    row("bold anywhere in the line", "## Focus\na **b** c", "## Focus\n**Ship it**");
    row("none before the next heading", "## Focus\n\n## Tasks\na", "## Focus\n\nShip it\n\n## Tasks\na");
    row("none at the end", "## Focus", "## Focus\n\nShip it");
    row("a second focus heading goes on", "## Focus\n## Focus 2\na", "## Focus\n## Focus 2\nShip it");
    row("only the first section counts", "## Focus\n## Tasks\n## Focus\na",
        "## Focus\n\nShip it\n## Tasks\n## Focus\na");
    row("hidden lines are passed over", "---\n## Focus\na\n---\n## Focus\n---\nb\n---\nc",
        "---\n## Focus\na\n---\n## Focus\n---\nb\n---\nShip it");
    row("a heading found only by the second look", "---\nx\n  ### my ## FOCUS\n",
        "---\nx\n  ### my ## FOCUS\n\nShip it\n");
    row("no heading, no change", "# Focus\na\r\nb\n", "# Focus\na\nb\n");
}

void DailyNoteEditsTest::updateFocus()
{
    QFETCH(QString, before);
    const QList<QStringView> lines = splitLines(before);
    QTEST(Edits::apply(lines, Edits::updateFocus(lines, QStringLiteral("Ship it"))), "after");
}

void DailyNoteEditsTest::addPomodoroEntry_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    const auto row = [](const char* name, const char* before, const char* after) {
        QTest::newRow(name) << QString::fromUtf8(before) << QString::fromUtf8(after);
    };
    row("tally and table",
        "## Pomodoro Log\n**Today:** 3/8 completed\n\n| # | Time | Focus |\n|---|---|---|\n| 3 | a | b |\n\nend",
        "## Pomodoro Log\n**Today:** 4/8 completed\n\n| # | Time | Focus |\n|---|---|---|\n| 3 | a | b |\n| 4 | 09:30 "
        "| Go |\n\nend");
    row("an empty table", "## Pomodoro\n| # | Time |\n|---|---|\n## Next",
        "## Pomodoro\n| # | Time |\n|---|---|\n| 4 | 09:30 | Go |\n## Next");
    row("no row without a header or row", "## Pomodoro\n|---|---|\nToday: 3/8 and more\n",
        "## Pomodoro\n|---|---|\n**Today:** 4/8 completed\n");
    row("tally after the table", "## Pomodoro\n| # |\nToday:\n## Next",
        "## Pomodoro\n| # |\n| 4 | 09:30 | Go |\n**Today:** 4/8 completed\n## Next");
    row("every tally of the section", " Today: 1\n## Pomodoro\n Today: 1\n## Pomodoro 2\nToday: 2\n## Next\nToday: 3",
        " Today: 1\n## Pomodoro\n**Today:** 4/8 completed\n## Pomodoro 2\n**Today:** 4/8 completed\n## Next\nToday: 3");
    row("hidden lines stay", "## Pomodoro\n---\nToday: 1\n| a |\n---\n| b |\n---\n| c |",
        "## Pomodoro\n---\nToday: 1\n| a |\n---\n| b |\n| 4 | 09:30 | Go |\n---\n| c |");
    row("below the last table line", "## Pomodoro\n| a |\ntext\n  |---|\nend",
        "## Pomodoro\n| a |\ntext\n  |---|\n| 4 | 09:30 | Go |\nend");
    row("nothing to change", "## Pomodoro\ntext\n## Tasks\n| a |\nToday: 1",
        "## Pomodoro\ntext\n## Tasks\n| a |\nToday: 1");
}

void DailyNoteEditsTest::addPomodoroEntry()
{
    QFETCH(QString, before);
    const QList<QStringView> lines = splitLines(before);
    const LineChanges changes = Edits::addPomodoroEntry(lines, 4, QStringLiteral("09:30"), QStringLiteral("Go"));
    QTEST(Edits::apply(lines, changes), "after");
}

void DailyNoteEditsTest::taskLine_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("toggled");
    QTest::addColumn<QString>("added");
    QTest::addColumn<QString>("removed");
    const auto row = [](const char* before, const char* toggled, const char* added, const char* removed) {
        QTest::newRow(before) << QString::fromUtf8(before) << QString::fromUtf8(toggled) << QString::fromUtf8(added)
                              << (removed == nullptr ? nothing : QString::fromUtf8(removed));
    };
    row("- [ ] a", "- [x] a", "- [ ] a 🍅", nullptr);
    row("- [X] a", "- [ ] a", "- [X] a 🍅", nullptr);
    row("- [x] a - [X] b", "- [ ] a - [ ] b", "- [x] a - [X] b 🍅", nullptr);
    row("- [x] a - [ ] b - [ ]", "- [x] a - [x] b - [x]", "- [x] a - [ ] b - [ ] 🍅", nullptr);
    row("> 1. - [ ] a ", "> 1. - [x] a ", "> 1. - [ ] a  🍅", nullptr);
    row("- [ ] a 🍅 🍅", "- [x] a 🍅 🍅", "- [ ] a 🍅 🍅 🍅", "- [ ] a 🍅");
    row("- [ ] a🍅", "- [x] a🍅", "- [ ] a🍅 🍅", "- [ ] a");
    row("- [ ] a 🍅b🍅", "- [x] a 🍅b🍅", "- [ ] a 🍅b🍅 🍅", "- [ ] ab🍅");
    row("🍅- [ ]", "🍅- [x]", "🍅- [ ] 🍅", "- [ ]");
    row("- [ ] a \U0001F345\uFE0F", "- [x] a \U0001F345\uFE0F", "- [ ] a \U0001F345\uFE0F 🍅", nullptr);
}

void DailyNoteEditsTest::taskLine()
{
    QFETCH(QString, before);
    const QString text = QStringLiteral("x\n") + before + QStringLiteral("\ny\n");
    const QList<QStringView> lines = splitLines(text);
    const auto around = [](const QString& line) {
        return line == nothing ? nothing : QStringLiteral("x\n") + line + QStringLiteral("\ny\n");
    };
    QFETCH(QString, toggled);
    QCOMPARE(result(lines, Edits::toggleTask(lines, 1)), around(toggled));
    QFETCH(QString, added);
    QCOMPARE(result(lines, Edits::addPomodoroToTask(lines, 1)), around(added));
    QFETCH(QString, removed);
    QCOMPARE(result(lines, Edits::removePomodoroFromTask(lines, 1)), around(removed));
}

void DailyNoteEditsTest::lineOutOfRange_isRefused()
{
    const QList<QStringView> lines = splitLines(u"- [ ] a 🍅\n- [x]\nplain 🍅\n-[ ] b 🍅");
    for (const qint64 line : {qint64(-1), qint64(4), std::numeric_limits<qint64>::min(),
                              std::numeric_limits<qint64>::max(), qint64(2), qint64(3)}) {
        QVERIFY(!Edits::toggleTask(lines, line));
        QVERIFY(!Edits::addPomodoroToTask(lines, line));
        QVERIFY(!Edits::removePomodoroFromTask(lines, line));
    }
}

void DailyNoteEditsTest::addNewTask_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    const auto row = [](const char* name, const char* before, const char* after) {
        QTest::newRow(name) << QString::fromUtf8(before) << (after == nullptr ? nothing : QString::fromUtf8(after));
    };
    row("after the last task, before the blank line", "## Tasks\n- [ ] a\ntext\n  - [x] b\n\n## Notes\n- [ ] c",
        "## Tasks\n- [ ] a\ntext\n  - [x] b\n- [ ] New\n\n## Notes\n- [ ] c");
    row("below the heading", "## My TASKS\n\ntext", "## My TASKS\n- [ ] New\n\ntext");
    row("scheduled", "## Scheduled\n- [X] a\n", "## Scheduled\n- [X] a\n- [ ] New\n");
    row("a later task section takes over", "## Tasks\n- [ ] a\n## Scheduled\nb",
        "## Tasks\n- [ ] a\n## Scheduled\n- [ ] New\nb");
    row("not once the section has ended", "## Tasks\n## Notes\n## Tasks", "## Tasks\n- [ ] New\n## Notes\n## Tasks");
    row("marks hide nothing here", "---\n## Tasks\n---\n- [ ] a\n---", "---\n## Tasks\n---\n- [ ] a\n- [ ] New\n---");
    row("carryover is none", "## Carryover\n- [ ] a", nullptr);
    row("other headings are none", "# Tasks\n### Tasks\n##Tasks", nullptr);
    row("empty", "", nullptr);
}

void DailyNoteEditsTest::addNewTask()
{
    QFETCH(QString, before);
    const QList<QStringView> lines = splitLines(before);
    QTEST(result(lines, Edits::addNewTask(lines, QStringLiteral("New"))), "after");
}

void DailyNoteEditsTest::pomodoroCount_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<qint64>("count");
    const auto row = [](const char* name, const char* line, qint64 count) {
        QTest::newRow(name) << QString::fromUtf8(line) << count;
    };
    row("none", "- [ ] Write", 0);
    row("two", "- [ ] Write 🍅 🍅", 2);
    row("anywhere, side by side", "🍅- [ ] 🍅🍅x🍅", 4);
    row("with a variation selector", "- [ ] 🍅\uFE0F 🍅\uFE0E 🍅", 1);
    row("joined to another", "- [ ] 🍅\u200D🍅 🍅", 1);
    row("with a combining mark", "- [ ] 🍅\u0301", 0);
    row("other fruit", "- [ ] 🍎🍏", 0);
}

void DailyNoteEditsTest::pomodoroCount()
{
    QFETCH(QString, line);
    QTEST(Edits::pomodoroCount(line), "count");
}

void DailyNoteEditsTest::findLine_takesTheNearest()
{
    const QList<QStringView> lines = splitLines(u"a\nb\na\nc\na\n a");
    QCOMPARE(Edits::findLine(lines, u"a", 0), 0);
    QCOMPARE(Edits::findLine(lines, u"a", 3), 2);
    QCOMPARE(Edits::findLine(lines, u"a", 1000), 4);
    QCOMPARE(Edits::findLine(lines, u" a", 0), 5);
    QVERIFY(!Edits::findLine(lines, u"d", 0));
}

} // namespace flitmark

QTEST_APPLESS_MAIN(flitmark::DailyNoteEditsTest)
#include "DailyNoteEditsTest.moc"

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/DailyNoteParser.h>

#include <QtTest/QTest>

namespace flitmark {

namespace {

/// What was parsed, as a text that is easy to compare: one line per thing found.
QString picture(const ParsedDailyNote& note)
{
    QStringList lines;
    if (!note.focus.isEmpty()) {
        lines += QStringLiteral("focus ") + note.focus;
    }
    for (const TaskItem& task : note.tasks) {
        lines +=
            QStringLiteral("%1 %2 %3").arg(task.lineNumber).arg(QChar(task.isCompleted ? u'x' : u'o')).arg(task.text);
    }
    for (const QString& text : note.coachNotes) {
        lines += QStringLiteral("coach ") + text;
    }
    for (const QString& text : note.workDone) {
        lines += QStringLiteral("done ") + text;
    }
    if (note.pomodoroCount != 0) {
        lines += QStringLiteral("count %1").arg(note.pomodoroCount);
    }
    for (const PomodoroEntry& entry : note.pomodoroLog) {
        lines += QStringLiteral("row %1 [%2] [%3]").arg(entry.number).arg(entry.time, entry.focus);
    }
    return lines.join(u'\n');
}

const char* const fullNote =
    "---\ndate: 2026-01-22\n---\n## Today's Focus\n**Ship it**\n\n## Tasks\n- [ ] Finish 🍅 🍅\n- [x] Publish 🍅\n\n"
    "## Coach Notes\n- Deep work\n\n## Work Done\n- Fix deployed\n\n## Pomodoro Log\n**Today:** 3/8 completed\n\n"
    "| # | Time | Focus |\n|---|------|-------|\n| 1 | 09:30 | Ship it |\n| 2 | 10:05 | Finish |\n";

} // namespace

class DailyNoteParserTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void note_data()
    {
        QTest::addColumn<QString>("content");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char* name, const char* content, const char* expected) {
            QTest::newRow(name) << content << expected;
        };
        row("a whole note", fullNote,
            "focus Ship it\n7 o Finish 🍅 🍅\n8 x Publish 🍅\ncoach Deep work\ndone Fix deployed\ncount 3\n"
            "row 1 [09:30] [Ship it]\nrow 2 [10:05] [Finish]");
        row("no section", "# Title\nfocus\n- [ ] a\nToday: 3/8\n### Tasks\n- [ ] b\n##Tasks\n- [ ] c", "");
        row("one mark hides the rest", "## Tasks\n- [ ] a\n---\n- [ ] b\n## Focus\nc", "1 o a");
        row("marks hide in pairs", "## Tasks\n  ---\t\n- [ ] a\n---\n- [ ] b\n---\n- [ ] c", "4 o b");
        row("longer rules are not marks", "## Tasks\n----\n--- -\n- [ ] a", "3 o a");
        row("focus: no list item, no number sign", "## FOCUS\n\n- a\n#tag\n > b\n c ", "focus > b");
        row("focus: stars go, also unpaired", "## 🎯 Focus\n  ** **a* b*** ", "focus a b");
        row("focus: only stars are no focus", "## Focus\n***\n* *\nb\nc", "focus b");
        row("focus: over several sections", "## Focus\n## Tasks\n- [ ] a\n## Old focus\nb", "focus b\n2 o a");
        row("kinds are decided in order",
            "## Focus Tasks\n- [ ] a\nb\n## Pomodoro Tasks\n- [ ] c\nToday: 1/2\n## Work done by coach\n> d\n",
            "focus b\n4 o c\ncoach d");
        row("deeper headings end nothing", "## Tasks\n### More\n# Title\n- [ ] a", "3 o a");
        row("headings by lower case", "## SCHEDULED\n- [ ] a\n## Carryover\n- [ ] b\n## TAS\u212A\n- [ ] c",
            "1 o a\n3 o b\n5 o c");
        row("task marks", "## Tasks\n- [X] a\n \t- [x]  b  \n- [-] c\n-[ ] d\n* [ ] e\n- []\n- [x", "1 x a\n2 x b");
        row("task texts", "## Tasks\n- [ ]\n- [ ] \n- [ ]abc\n- [ ]é\n- [ ] é", "1 o \n2 o \n3 o bc\n4 o \n5 o é");
        row("the sixth character is taken whole", "## Tasks\n- [ ]👩‍🚀 a\n- [ ]e\u0301b", "1 o a\n2 o b");
        row("coach notes", "## Coach\n- a\n>  b \n-c\n- \n>\n* d", "coach a\ncoach b");
        row("work done", "## Work Done\n> a\n- b\n-\t\n  -  c", "done b\ndone c");
        row("tally: the last that can be read",
            "## Pomodoro\n**Today:** 3/8\nxToday: 12/8\nToday: 9223372036854775808/8\nToday: no", "count 12");
        row("tally: first slash between digits", "## Pomodoro\nToday: / 1/x 2/ a/3 44/55/66 7/8", "count 44");
        row("tally: case counts, digits of ours", "## Pomodoro\ntoday: 1/8\nToday: ٣/8\nToday: 3/٨", "");
        row("table: rows before a header",
            "## Pomodoro\n| 1 | 2 | 3 |\n| # | Focus |\n| 2 | 3 | 4 |\n| Time |\n| 3 | 4 | 5 |", "");
        row("table: cells",
            "## Pomodoro\n|#|Time|\n| ---|---|\n|---\n| 1 || Focus |\n| 2 | | Focus |\n| x | 09:30 | Focus |\n"
            "|| +3 | 10:00 | a | b ||\n| -4 |5|6\n| 7 | 8 |",
            "row 2 [] [Focus]\nrow 3 [10:00] [a]\nrow -4 [5] [6]");
    }

    void note()
    {
        QFETCH(QString, content);
        QTEST(picture(parseDailyNote(content)), "expected");
        for (const char16_t* lineBreak : {u"\r\n", u"\r", u"\v", u"\f", u"\u0085", u"\u2028", u"\u2029"}) {
            QTEST(picture(parseDailyNote(QString(content).replace(QChar(u'\n'), QString::fromUtf16(lineBreak)))),
                  "expected");
        }
    }

    void hugeLine_isRead()
    {
        const QString text(10'000'000, u'a');
        QCOMPARE(parseDailyNote(QStringLiteral("## Tasks\n- [ ] ") + text).tasks.value(0).text, text);
    }
};

} // namespace flitmark

QTEST_APPLESS_MAIN(flitmark::DailyNoteParserTest)
#include "DailyNoteParserTest.moc"

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Text.h>
#include <daily/DailyNoteEdits.h>
#include <support/NotePicture.h>

#include <QtTest/QTest>

using namespace flitmark;
using Edits = DailyNoteEdits;

namespace {

QString result(const Edits::Lines& lines, const std::optional<LineChanges>& changes)
{
    return changes ? Edits::apply(lines, *changes) : "(can't be done)";
}

using Text = const char*;

/// The kind of edit, a name, the note before and after it.
const std::tuple<Text, Text, Text, Text> editRows[] = {
    {"focus", "bold stays bold", "## Today's Focus\n\n**Old**\nrest", "## Today's Focus\n\n**Go**\nrest"},
    {"focus", "plain stays plain", "## FOCUS\n  *Old*\n", "## FOCUS\nGo\n"},
    {"focus", "a list item, but no tag", "## Focus\n#tag\n- a **b** c", "## Focus\n#tag\n**Go**"},
    {"focus", "none before the next heading", "## Focus\n\n## Tasks\na", "## Focus\n\nGo\n\n## Tasks\na"},
    {"focus", "none at the end", "## Focus", "## Focus\n\nGo"},
    {"focus", "the first section", "## Focus\n## Tasks\n## Focus\na", "## Focus\n\nGo\n## Tasks\n## Focus\na"},
    {"focus", "hidden lines", "---\n## Focus\n---\n## Focus\n---\nb\n---\nc",
     "---\n## Focus\n---\n## Focus\n---\nb\n---\nGo"},
    {"focus", "second look", "---\nx\n  ### my ## FOCUS\n", "---\nx\n  ### my ## FOCUS\n\nGo\n"},
    {"focus", "no heading", "# Focus\na\r\nb\n", "# Focus\na\nb\n"},

    {"entry", "tally and table", "## Pomodoro\n**Today:** 3/8\n\n| # | Time |\n|---|---|\n| 3 | a |\n\nend",
     "## Pomodoro\n**Today:** 4/8 completed\n\n| # | Time |\n|---|---|\n| 3 | a |\n"
     "| 4 | 09:30 | Go |\n\nend"},
    {"entry", "every tally, after the table", " Today: 1\n## Pomodoro\n| # |\n Today: 1\n## Pomodoro 2\nToday: 2",
     " Today: 1\n## Pomodoro\n| # |\n| 4 | 09:30 | Go |\n**Today:** 4/8 completed\n## Pomodoro 2\n"
     "**Today:** 4/8 completed"},
    {"entry", "hidden lines", "## Pomodoro\n---\nToday: 1\n| a |\n---\n| b |\n---\n| c |",
     "## Pomodoro\n---\nToday: 1\n| a |\n---\n| b |\n| 4 | 09:30 | Go |\n---\n| c |"},
    {"entry", "below the last table line", "## Pomodoro\n| a |\ntext\n  |---|\nend",
     "## Pomodoro\n| a |\ntext\n  |---|\n| 4 | 09:30 | Go |\nend"},

    {"task", "after the last one", "## Tasks\n- [ ] a\nx\n  - [x] b\n\n## Notes\n- [ ] c",
     "## Tasks\n- [ ] a\nx\n  - [x] b\n- [ ] Go\n\n## Notes\n- [ ] c"},
    {"task", "below the heading", "## My TASKS\n\ntext", "## My TASKS\n- [ ] Go\n\ntext"},
    {"task", "a later section takes over", "## Tasks\n- [ ] a\n## Scheduled\nb",
     "## Tasks\n- [ ] a\n## Scheduled\n- [ ] Go\nb"},
    {"task", "not once it has ended", "## Tasks\n## Notes\n## Tasks", "## Tasks\n- [ ] Go\n## Notes\n## Tasks"},
    {"task", "marks hide nothing", "---\n## Tasks\n---\n- [ ] a\n---", "---\n## Tasks\n---\n- [ ] a\n- [ ] Go\n---"},
    {"task", "no section", "## Carryover\n- [ ] a\n# Tasks\n### Tasks\n##Tasks", "(can't be done)"},
};

/// A name, a note, and the picture of what is in it.
const std::tuple<const char*, const char*, const char*> parsingRows[] = {
    {"no section", "# Title\nfocus\n- [ ] a\nToday: 3/8\n### Tasks\n- [ ] b\n##Tasks\n- [ ] c", ""},
    {"one mark hides the rest", "## Tasks\n- [ ] a\n---\n- [ ] b\n## Focus\nc", "1 o a"},
    {"marks hide in pairs", "## Tasks\n  ---\t\n- [ ] a\n---\n- [ ] b\n---\n- [ ] c", "4 o b"},
    {"longer rules are not marks", "## Tasks\n----\n--- -\n- [ ] a", "3 o a"},
    {"focus: no list item, no number sign", "## FOCUS\n\n- a\n#tag\n > b\n c ", "focus > b"},
    {"focus: stars go, also unpaired", "## 🎯 Focus\n  ** **a* b*** ", "focus a b"},
    {"focus: only stars are no focus", "## Focus\n***\n* *\nb\nc", "focus b"},
    {"focus: over several sections", "## Focus\n## Tasks\n- [ ] a\n## Old focus\nb", "focus b\n2 o a"},
    {"kinds are decided in order",
     "## Focus Tasks\n- [ ] a\nb\n## Pomodoro Tasks\n- [ ] c\nToday: 1/2\n## Work done by coach\n> d\n",
     "focus b\n4 o c\ncoach d"},
    {"deeper headings end nothing", "## Tasks\n### More\n# Title\n- [ ] a", "3 o a"},
    {"headings by lower case", "## SCHEDULED\n- [ ] a\n## Carryover\n- [ ] b\n## TAS\u212A\n- [ ] c",
     "1 o a\n3 o b\n5 o c"},
    {"task marks", "## Tasks\n- [X] a\n \t- [x]  b  \n- [-] c\n-[ ] d\n* [ ] e\n- []\n- [x", "1 x a\n2 x b"},
    {"task texts", "## Tasks\n- [ ]\n- [ ] \n- [ ]abc\n- [ ]é\n- [ ] é", "1 o \n2 o \n3 o bc\n4 o \n5 o é"},
    {"the sixth character is taken whole", "## Tasks\n- [ ]👩‍🚀 a\n- [ ]e\u0301b", "1 o a\n2 o b"},
    {"coach notes", "## Coach\n- a\n>  b \n-c\n- \n>\n* d", "coach a\ncoach b"},
    {"work done", "## Work Done\n> a\n- b\n-\t\n  -  c", "done b\ndone c"},
    {"tally: the last that can be read",
     "## Pomodoro\n**Today:** 3/8\nxToday: 12/8\nToday: 9223372036854775808/8\nToday: no", "count 12"},
    {"tally: first slash between digits", "## Pomodoro\nToday: / 1/x 2/ a/3 44/55/66 7/8", "count 44"},
    {"tally: case counts, digits of ours", "## Pomodoro\ntoday: 1/8\nToday: ٣/8\nToday: 3/٨", ""},
    {"table: rows before a header", "## Pomodoro\n| 1 | 2 | 3 |\n| # | Focus |\n| 2 | 3 | 4 |\n| Time |\n| 3 | 4 | 5 |",
     ""},
    {"table: cells",
     "## Pomodoro\n|#|Time|\n| ---|---|\n|---\n| 1 || Focus |\n| 2 | | Focus |\n| x | 09:30 | Focus |\n"
     "|| +3 | 10:00 | a | b ||\n| -4 |5|6\n| 7 | 8 |",
     "row 2 [] [Focus]\nrow 3 [10:00] [a]\nrow -4 [5] [6]"},
};

} // namespace

class DailyNoteTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void parsing()
    {
        for (const auto& [name, content, expected] : parsingRows) {
            for (const char16_t* lineBreak : {u"\n", u"\r\n", u"\r", u"\v", u"\f", u"\u0085", u"\u2028", u"\u2029"}) {
                const QString text = QString::fromUtf8(content).replace(u'\n', QString::fromUtf16(lineBreak));
                const QString found = picture(parseDailyNote(text));
                QVERIFY2(found == expected, qPrintable(QLatin1String(name) + u'\n' + found));
            }
        }
    }

    void edit()
    {
        for (const auto& [kind, name, before, after] : editRows) {
            const QString text = before;
            const Edits::Lines lines = splitLines(text);
            const QString go = "Go";
            const auto changes = *kind == 'f'   ? Edits::updateFocus(lines, go)
                                 : *kind == 'e' ? Edits::addPomodoroEntry(lines, 4, "09:30", go)
                                                : Edits::addNewTask(lines, go);
            const QString found = result(lines, changes);
            QVERIFY2(found == after, qPrintable(QLatin1String(name) + u'\n' + found));
        }
    }

    void textOfSeveralLines_isWrittenAsOne()
    {
        const Edits::Lines lines = splitLines(u"## Focus\n## Tasks\n## Pomodoro\n| # |");
        const QString text = "a\r\nb\u2028\n## c";
        QCOMPARE(result(lines, Edits::updateFocus(lines, text)), "## Focus\n\na b  ## c\n## Tasks\n## Pomodoro\n| # |");
        QCOMPARE(result(lines, Edits::addNewTask(lines, text)),
                 "## Focus\n## Tasks\n- [ ] a b  ## c\n## Pomodoro\n| # |");
        QCOMPARE(result(lines, Edits::addPomodoroEntry(lines, 4, "09:30", text)),
                 "## Focus\n## Tasks\n## Pomodoro\n| # |\n| 4 | 09:30 | a b  ## c |");
    }

    void taskLine()
    {
        const char* const none = "(can't be done)";
        for (const auto& [before, toggled, removed, tomatoes] : {
                 std::tuple("- [X] a", "- [ ] a", none, 0),
                 {"- [x] a - [X] b", "- [ ] a - [ ] b", none, 0},
                 {"> - [x] a - [ ] b - [ ] ", "> - [x] a - [x] b - [x] ", none, 0},
                 {"- [ ] a 🍅 🍅", "- [x] a 🍅 🍅", "- [ ] a 🍅", 2},
                 {"- [ ] a 🍅b🍅", "- [x] a 🍅b🍅", "- [ ] ab🍅", 2},
                 {"🍅- [ ]", "🍅- [x]", "- [ ]", 1},
                 {"- [ ] ไทย 🍅", "- [x] ไทย 🍅", "- [ ] ไทย", 1},
                 {"- [ ] मन🍅ဍ", "- [x] मन🍅ဍ", "- [ ] मनဍ", 1},
                 {"- [ ] 🍅\uFE0F 🍎", "- [x] 🍅\uFE0F 🍎", none, 0},
                 {"- [ ] 🍅\u200D🍅", "- [x] 🍅\u200D🍅", none, 0},
                 {"- [ ] 🍅\u0301", "- [x] 🍅\u0301", none, 0},
             }) {
            const QString line = before;
            const Edits::Lines lines = {line};
            QCOMPARE(result(lines, Edits::toggleTask(lines, 0)), toggled);
            QCOMPARE(result(lines, Edits::removePomodoroFromTask(lines, 0)), removed);
            QCOMPARE(Edits::pomodoroCount(line), tomatoes);
            QCOMPARE(result(lines, Edits::addPomodoroToTask(lines, 0)), line + " 🍅");
        }
    }

    void otherLines_areRefused()
    {
        const Edits::Lines lines = splitLines(u"- [ ] a 🍅\n- [x]\nplain 🍅\n-[ ] b 🍅");
        for (const qint64 line : {qint64(-1), qint64(4), std::numeric_limits<qint64>::max(), qint64(2), qint64(3)}) {
            QVERIFY(!Edits::toggleTask(lines, line) && !Edits::addPomodoroToTask(lines, line));
            QVERIFY(!Edits::removePomodoroFromTask(lines, line));
        }
    }
};

QTEST_APPLESS_MAIN(DailyNoteTest)
#include "DailyNoteTest.moc"

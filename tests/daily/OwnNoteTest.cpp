// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <support/NotePicture.h>
#include <support/OwnNoteProperties.h>

#include <QRandomGenerator>
#include <QtTest/QTest>

using namespace flitmark;
using Edits = OwnNoteEdits;

namespace {

using Text = const char*;

/// A text that is rendered, and what it becomes: spans in brackets with the first letters of their kind and target.
const std::pair<Text, Text> inlineRows[] = {
    {"plain text", "plain text"},
    {" **bold** and *it* __b__ _i_ ", "{Strong:bold} and {Emphasis:it} {Strong:b} {Emphasis:i}"},
    {"***both*** **a *b* c**", "{Emphasis:{Strong:both}} {Strong:a {Emphasis:b} c}"},
    {"snake_case_name 2 * 3 * 4 ** x", "snake_case_name 2 * 3 * 4 ** x"},
    {"**a* *b **c* d", "*{Emphasis:a} *b *{Emphasis:c} d"},
    {"~~old~~ ==new== ~a~ =b=", "{Struck:old} {Highlight:new} ~a~ =b="},
    {R"(\*no\* \[[a]] \q)", R"(*no* [[a]] \q)"},
    {"[[Note]] [[a/b#h|see *it*]] ![[p.png|100]] [[#h]] [[]]",
     "{NoteLink:Note→Note} {NoteLink:see *it*→a/b#h} {NoteLink:p.png→p.png} {NoteLink:h→#h} [[]]"},
    {"[[a [[b]] c]]", "[[a {NoteLink:b→b} c]]"},
    {"[**a** b](https://x.y/(z) \"t\") [n](<a b.md>) [m](My%20note.md)",
     "{WebLink:{Strong:a} b→https://x.y/(z)} {NoteLink:n→a b.md} {NoteLink:m→My note.md}"},
    {"[x](javascript:y) [f](file:///etc/passwd) [a] (b) [c][d] [^1]", "x f [a] (b) [c][d] [^1]"},
    {"see https://a.b/c_d_e?f=(g). (http://h/) https:// xhttp://i",
     "see {WebLink:https://a.b/c_d_e?f=(g)→https://a.b/c_d_e?f=(g)}. ({WebLink:http://h/→http://h/}) https:// "
     "xhttp://i"},
    {"#tag #a/b-c_d #12 a#b # c #ä1, #", "{Tag:#tag} {Tag:#a/b-c_d} #12 a#b # c {Tag:#ä1}, #"},
    {"`*a*` ``b ` c`` `d", "{Code:*a*} {Code:b ` c} `d"},
    {"%%x%% a %%y%% b <!-- z --> c %%d", "a  b  c"},
    {"`%%` a 50%% b", "{Code:%%} a 50"},
};

QString picture(const InlineText& shown)
{
    QString text = shown.text;
    QList<TextSpan> spans = shown.spans;
    // The inner and the later ones first, so that the places of the others stay.
    std::stable_sort(spans.begin(), spans.end(),
                     [](const TextSpan& a, const TextSpan& b) { return a.start > b.start; });
    const char* const names[] = {"Strong", "Emphasis", "Struck", "Highlight", "Code", "Tag", "NoteLink", "WebLink"};
    for (qsizetype i = 0; i < spans.size(); ++i) {
        const QString begin = QString("{%1:").arg(names[int(spans[i].kind)]);
        const QString end = (spans[i].target.isEmpty() ? "" : QString("→") + spans[i].target) + '}';
        text.insert(spans[i].start + spans[i].length, end).insert(spans[i].start, begin);
        for (qsizetype j = i + 1; j < spans.size(); ++j) {
            const bool holds = spans[j].start + spans[j].length > spans[i].start;
            spans[j].length += holds ? begin.size() + end.size() : 0;
        }
    }
    return text;
}

/// A name, a note, and the picture of what is in it. Tasks have group, depth and sign after their texts.
const std::tuple<Text, Text, Text> parsingRows[] = {
    {"tasks anywhere", "- [ ] a\n# T\n* [x] b\n+ [X] c\n12) [-] d\n> > 3. [ ] e\n####### no\n- [ ]    f",
     "0 o a ()\n2 x b (T)\n3 x c (T)\n4 x d (T)\n5 o e (T)\n7 o f (T)"},
    {"no tasks",
     "- [x](u)\n- [[a]]\n- [^1]\n- [] a\n-[ ] b\n- [ ]c\n-     [ ] d\n- [ab] e\n1234567890. [ ] f\n[ ] g\na - [ ] h",
     ""},
    {"signs", "- [/] a\n- [👩‍🚀] b\n- [e\u0301] c\n- [👩👩] d\n- [ ]\n- [>] e",
     "0 o a () /\n1 o b () 👩‍🚀\n2 o c () e\u0301\n4 o  ()\n5 o e () >"},
    {"depth", "- [ ] a\n\t- [ ] b\n\t\t- c\n\t\t\t- [ ] d\n- e\n  - [ ] f\n## H ##\n    - [ ] g\n  - [ ] h\n> - [ ] i",
     "0 o a ()\n1 o b () 1\n3 o d () 2\n5 o f ()\n7 o g (H)\n8 o h (H)\n9 o i (H)"},
    {"front matter", "--- \n- [ ] a\n---\t\n- [ ] b\n---\n- [ ] c", "3 o b ()\n5 o c ()"},
    {"none when unclosed or not first", "---\n- [ ] a\n --- \n", "1 o a ()"},
    {"fences", "```js\n- [ ] a\n~~~\n``\n ````  \n- [ ] b\n- ~~~\n  - [ ] c\n  ~~~\n``` a`b\n- [ ] d\n    ```\n- [ ] e",
     "5 o b ()\n10 o d ()"},
    {"a fence ends with its quote", "> ```\n> - [ ] a\n- [ ] b\n> ```\n>> ```\n> - [ ] c\n> ```\n> - [ ] d",
     "2 o b ()\n7 o d ()"},
    {"comments", "- [ ] a %%x\n- [ ] b\n%% - [ ] c\n- [ ] d <!-- %%\n--> - [ ] e\n- [ ] `%%` f `<!--` g\n- [ ] h",
     "0 o a ()\n3 o d ()\n5 o %% f <!-- g ()\n6 o h ()"},
    {"focus", "# My Focus\n\n---\n> [!note]- \n> 1. [x] ***[[Ship|it]]***\n## Focus\nb", "focus it\n4 x it (My Focus)"},
    {"focus: a callout's title, a tag", "### focus\n> [!tip]+ **Go**\n", "focus Go"},
    {"focus: none in what is hidden", "# Focus\n%% a %%\n```\nb\n```\n#tag", "focus #tag"},
    {"sections", "# Coach\n- a\n> b\n1) **c**\nd\n### Work done\n* a\n> b\n- [x] c\n#### Other\n- d",
     "8 x c (Work done)\ncoach a\ncoach b\ncoach c\ndone a\ndone c"},
    {"log",
     "# Pomodoro\n> **Today:** 1/8\n\n| # | Time | Focus |\n|---|---|---|\n| 3 | 9 | a \\| b\\\\|c |\n# x\n| 4 | 5 | 6 "
     "|",
     "count 3\nrow 3 [9] [a | b\\|c]"},
    {"log: rows count", "# Pomodoro\n| # | Time |\n| 1 | a | b |\n| 1 | a | b |",
     "count 2\nrow 1 [a] [b]\nrow 1 [a] [b]"},
};

QString ownPicture(const QString& text)
{
    ParsedDailyNote note = parseOwnNote(text);
    for (TaskItem& task : note.tasks) {
        task.text += " (" + task.group + ')' + (task.depth > 0 ? ' ' + QString::number(task.depth) : "") +
                     (task.sign.isEmpty() ? "" : ' ' + task.sign);
    }
    return picture(note);
}

QString result(const Edits::Lines& lines, const Edits::Result& changes)
{
    return changes ? Edits::apply(lines, *changes) : "(refused)";
}

/// The kind of edit, a name, the note before and after it.
const std::tuple<Text, Text, Text, Text> editRows[] = {
    {"focus", "what stands around it stays", "# Focus\n> - [x] ***Old***  \nb", "# Focus\n> - [ ] ***Go***  \nb"},
    {"focus", "partly emphasised", "# Focus\n**Old** one", "# Focus\nGo"},
    {"focus", "a comment before it", "# Focus\n%%a%%**Old**", "# Focus\nGo"},
    {"focus", "a callout's title", "# Focus\n> [!note]- ==Old==\n", "# Focus\n> [!note]- ==Go==\n"},
    {"focus", "below its heading", "a\n### Focus\n# B", "a\n### Focus\n\nGo\n# B"},
    {"focus", "no heading: at the top", "a\nb", "## Today's Focus\n\nGo\n\na\nb"},
    {"focus", "after front matter", "---\na\n---\n\nb", "---\na\n---\n\n## Today's Focus\n\nGo\n\nb"},
    {"focus", "after the title", "---\na\n---\n\n# T\nb", "---\na\n---\n\n# T\n\n## Today's Focus\n\nGo\n\nb"},
    {"focus", "at the end", "# T", "# T\n\n## Today's Focus\n\nGo"},
    {"focus", "an empty note", "", "## Today's Focus\n\nGo\n"},
    {"focus", "not in a comment", "# Focus %%\n", "(refused)"},
    {"focus", "nor below a title that opens one", "# T %%\na\n%%", "## Today's Focus\n\nGo\n\n# T %%\na\n%%"},

    {"task", "the last group with its word", "# To do\n- [ ] a\n# Aufgaben\n- [ ] b\n# X\n- [ ] c",
     "# To do\n- [ ] a\n# Aufgaben\n- [ ] b\n- [ ] Go\n# X\n- [ ] c"},
    {"task", "rather one with open tasks", "# TODO\n- [ ] a\n# Tasks\n- [x] b",
     "# TODO\n- [ ] a\n- [ ] Go\n# Tasks\n- [x] b"},
    {"task", "a section without any", "- [ ] a\n# ta\u0302ches\n\nb", "- [ ] a\n# ta\u0302ches\n- [ ] Go\n\nb"},
    {"task", "the last group with open ones", "# A\n- [ ] a\n# B\n- [x] b", "# A\n- [ ] a\n- [ ] Go\n# B\n- [x] b"},
    {"task", "a section at the end", "a", "a\n\n## Tasks\n- [ ] Go"},
    {"task", "after one blank line", "a\n\n", "a\n\n## Tasks\n- [ ] Go\n"},
    {"task", "not in a fence", "```\n- [ ] a", "(refused)"},
    {"task", "after the whole block", "- [ ] a\n  - [ ] b\nlazy\n  ```\nx\n  ```\n\n  more\n\nend",
     "- [ ] a\n  - [ ] b\nlazy\n  ```\nx\n  ```\n\n  more\n- [ ] Go\n\nend"},
    {"task", "numbers, quotes, indents", ">  09) [x] a\n>     - [ ] b\n> > c\nd",
     ">  09) [x] a\n>     - [ ] b\n>  10) [ ] Go\n> > c\nd"},
    {"task", "a quote of its own ends the block", "- [ ] a\n  > b\n> c", "- [ ] a\n  > b\n- [ ] Go\n> c"},

    {"entry", "all is made", "a",
     "a\n\n## Pomodoro Log\n**Today:** 4/8 completed\n\n| # | Time | Focus |\n|---|------|-------|\n| 4 | 09:30 | "
     "Go\\|on |"},
    {"entry", "tally and table are made", "# Pomodoro\na\n",
     "# Pomodoro\n**Today:** 4/8 completed\n\n| # | Time | Focus |\n|---|------|-------|\n| 4 | 09:30 | Go\\|on "
     "|\n\na\n"},
    {"entry", "the tally is made", "# Pomodoro\n| # | Time |\n|--|--|\nx",
     "# Pomodoro\n**Today:** 4/8 completed\n\n| # | Time |\n|--|--|\n| 4 | 09:30 | Go\\|on |\nx"},
    {"entry", "the table is made", "# Pomodoro\n> Today: 1/8  \n> | a |",
     "# Pomodoro\n> **Today:** 4/8 completed  \n>\n> | # | Time | Focus |\n> |---|------|-------|\n> | 4 | 09:30 | "
     "Go\\|on |\n>\n> | a |"},
    {"entry", "none in what is hidden", "%%\n# Pomodoro\nToday: 1\n", "(refused)"},
};

/// A task's line, with another sign, with a tomato more, and with one less.
const std::tuple<Text, Text, Text, Text> taskRows[] = {
    {"- [ ] a", "- [x] a", "- [ ] a 🍅", "-"},
    {"> 1) [X] a  ", "> 1) [ ] a  ", "> 1) [X] a 🍅  ", "-"},
    {"* [-] a [ ] 🍅", "* [ ] a [ ] 🍅", "* [-] a [ ] 🍅 🍅", "* [-] a [ ]"},
    {"- [👩‍🚀] a🍅 b 🍅c", "- [x] a🍅 b 🍅c", "- [👩‍🚀] a🍅 b 🍅c 🍅",
     "- [👩‍🚀] a🍅 bc"},
    {"- [ ] a #t 📅 2026-01-22 #u ⏫\uFE0F 🔁 every week ^id1 ", "- [x] a #t 📅 2026-01-22 #u ⏫\uFE0F 🔁 every week ^id1 ",
     "- [ ] a #t 🍅 📅 2026-01-22 #u ⏫\uFE0F 🔁 every week ^id1 ", "-"},
    {"- [ ] a 🍅 [due:: 2026-01-22] ✅2026-01-22 #x", "- [x] a 🍅 [due:: 2026-01-22] ✅2026-01-22 #x",
     "- [ ] a 🍅 🍅 [due:: 2026-01-22] ✅2026-01-22 #x", "- [ ] a [due:: 2026-01-22] ✅2026-01-22 #x"},
    {"- [ ] 🗓\uFE0F 2026-01-22", "- [x] 🗓\uFE0F 2026-01-22", "- [ ] 🍅 🗓\uFE0F 2026-01-22", "-"},
    {"- [ ] a 📅 soon #t [[a::b]]", "- [x] a 📅 soon #t [[a::b]]", "- [ ] a 📅 soon #t [[a::b]] 🍅", "-"},
    {"- [ ]", "- [x]", "- [ ] 🍅", "-"},
    {"- a [ ] b 🍅", "-", "-", "-"},
};

} // namespace

class OwnNoteTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rendering()
    {
        for (const auto& [text, expected] : inlineRows) {
            QCOMPARE(picture(renderInline(QString(text))), expected);
        }
    }

    void parsing()
    {
        for (const auto& [name, content, expected] : parsingRows) {
            for (const char* lineBreak : {"\n", "\r\n", "\r"}) {
                const QString found = ownPicture(QString(content).replace('\n', lineBreak));
                QVERIFY2(found == expected, qPrintable(QLatin1String(name) + u'\n' + found));
            }
        }
    }

    void edit()
    {
        for (const auto& [kind, name, before, after] : editRows) {
            for (const char* lineBreak : {"\n", "\r\n", "\r"}) {
                const QString text = QString(before).replace('\n', lineBreak);
                const Edits::Lines lines = splitLines(text, LineBreaks::LfAndCr);
                const auto changes = *kind == 'f'   ? Edits::updateFocus(lines, "Go")
                                     : *kind == 'e' ? Edits::addPomodoroEntry(lines, 4, "09:30", "Go|on")
                                                    : Edits::addNewTask(lines, "Go");
                const QString found = result(lines, changes);
                // A note that has no end of a line gets LF.
                const QString expected = QString(after).replace('\n', text.contains(lineBreak) ? lineBreak : "\n");
                QVERIFY2(found == expected, qPrintable(QLatin1String(name) + u'\n' + found));
            }
        }
    }

    void newLines_takeTheEndAbove()
    {
        const QString text = "a\n- [ ] b\r\nc\rd";
        const Edits::Lines lines = splitLines(text, LineBreaks::LfAndCr);
        QCOMPARE(result(lines, Edits::addNewTask(lines, "Go")), "a\n- [ ] b\r\nc\rd\n- [ ] Go");
        QCOMPARE(Edits::apply(lines, {{LineChange::Kind::Insert, 0, "0"},
                                      {LineChange::Kind::Insert, 2, "1"},
                                      {LineChange::Kind::Insert, 2, "2"},
                                      {LineChange::Kind::Replace, 2, "c"}}),
                 "0\na\n- [ ] b\r\n1\r\n2\r\nc\rd");
    }

    void randomNotes_keepEveryOtherByte()
    {
        const QStringList parts = {"- [ ] a",
                                   "  - [x] b 🍅",
                                   "\t* [/] c",
                                   "> 1. [X] d",
                                   "# Tasks",
                                   "## Focus",
                                   "### Pomodoro",
                                   "#",
                                   "**Old**",
                                   "text",
                                   "",
                                   "",
                                   " ",
                                   "```",
                                   "> ~~~",
                                   "%%",
                                   "<!-- x",
                                   "-->",
                                   "---",
                                   "Today: 3/8",
                                   "| # | Time |",
                                   "|---|",
                                   "| 2 | a | b |",
                                   "> [!x] y",
                                   "- ",
                                   "  more",
                                   "`%%`",
                                   "\u2028",
                                   "\uFEFF",
                                   "#t 📅 2026-01-22"};
        const QStringList ends = {"\n", "\n", "\n", "\r\n", "\r\n", "\r", ""};
        const int rounds = qEnvironmentVariableIntValue("FLITMARK_RANDOM_NOTES");
        QRandomGenerator random(1);
        for (int round = 0; round < qMax(rounds, 2000); ++round) {
            QString note;
            const QString usual = ends[random.bounded(ends.size())];
            for (int i = random.bounded(16); i > 0; --i) {
                note += parts[random.bounded(parts.size())] +
                        (random.bounded(5) > 0 ? usual : ends[random.bounded(ends.size())]);
            }
            const char* broken = own::check(note, round);
            QVERIFY2(broken == nullptr, qPrintable(QString("%1: %2\n%3").arg(round).arg(broken, note)));
        }
    }

    void taskLine()
    {
        const auto text = [](const std::optional<LineChanges>& changes) {
            return changes ? changes->first().text : "-";
        };
        for (const auto& [before, toggled, more, less] : taskRows) {
            const QString line = before;
            QCOMPARE(text(Edits::toggleTask({line}, 0)), toggled);
            QCOMPARE(text(Edits::addPomodoroToTask({line}, 0)), more);
            QCOMPARE(text(Edits::removePomodoroFromTask({line}, 0)), less);
        }
        QVERIFY(!Edits::toggleTask({u"- [ ] a"}, 1) && !Edits::toggleTask({u"- [ ] a"}, -1));
    }
};

QTEST_APPLESS_MAIN(OwnNoteTest)
#include "OwnNoteTest.moc"

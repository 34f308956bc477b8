// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Text.h>
#include <daily/DailyNoteEdits.h>

#include <QtTest/QTest>

namespace flitmark {

using Edits = DailyNoteEdits;

namespace {

QString result(const Edits::Lines& lines, const std::optional<LineChanges>& changes)
{
    return changes ? Edits::apply(lines, *changes) : QStringLiteral("(can't be done)");
}

} // namespace

class DailyNoteEditsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void note_data()
    {
        QTest::addColumn<QString>("edit");
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        const auto focus = [](const char* name, const char* before, const char* after) {
            QTest::addRow("focus: %s", name) << "focus" << before << after;
        };
        focus("bold stays bold", "## Today's Focus\n\n**Old**\nrest", "## Today's Focus\n\n**Go**\nrest");
        focus("plain stays plain", "## FOCUS\n  *Old*\n", "## FOCUS\nGo\n");
        focus("a list item, but no tag", "## Focus\n#tag\n- a **b** c", "## Focus\n#tag\n**Go**");
        focus("none before the next heading", "## Focus\n\n## Tasks\na", "## Focus\n\nGo\n\n## Tasks\na");
        focus("none at the end", "## Focus", "## Focus\n\nGo");
        focus("the first section", "## Focus\n## Tasks\n## Focus\na", "## Focus\n\nGo\n## Tasks\n## Focus\na");
        focus("hidden lines", "---\n## Focus\n---\n## Focus\n---\nb\n---\nc",
              "---\n## Focus\n---\n## Focus\n---\nb\n---\nGo");
        focus("second look", "---\nx\n  ### my ## FOCUS\n", "---\nx\n  ### my ## FOCUS\n\nGo\n");
        focus("no heading", "# Focus\na\r\nb\n", "# Focus\na\nb\n");

        const auto entry = [](const char* name, const char* before, const char* after) {
            QTest::addRow("entry: %s", name) << "entry" << before << after;
        };
        entry("tally and table", "## Pomodoro\n**Today:** 3/8\n\n| # | Time |\n|---|---|\n| 3 | a |\n\nend",
              "## Pomodoro\n**Today:** 4/8 completed\n\n| # | Time |\n|---|---|\n| 3 | a |\n| 4 | 09:30 | Go |\n\nend");
        entry("every tally, after the table", " Today: 1\n## Pomodoro\n| # |\n Today: 1\n## Pomodoro 2\nToday: 2",
              " Today: 1\n## Pomodoro\n| # |\n| 4 | 09:30 | Go |\n**Today:** 4/8 completed\n## Pomodoro 2\n"
              "**Today:** 4/8 completed");
        entry("hidden lines", "## Pomodoro\n---\nToday: 1\n| a |\n---\n| b |\n---\n| c |",
              "## Pomodoro\n---\nToday: 1\n| a |\n---\n| b |\n| 4 | 09:30 | Go |\n---\n| c |");
        entry("below the last table line", "## Pomodoro\n| a |\ntext\n  |---|\nend",
              "## Pomodoro\n| a |\ntext\n  |---|\n| 4 | 09:30 | Go |\nend");

        const auto task = [](const char* name, const char* before, const char* after) {
            QTest::addRow("task: %s", name) << "task" << before << after;
        };
        task("after the last one", "## Tasks\n- [ ] a\nx\n  - [x] b\n\n## Notes\n- [ ] c",
             "## Tasks\n- [ ] a\nx\n  - [x] b\n- [ ] Go\n\n## Notes\n- [ ] c");
        task("below the heading", "## My TASKS\n\ntext", "## My TASKS\n- [ ] Go\n\ntext");
        task("a later section takes over", "## Tasks\n- [ ] a\n## Scheduled\nb",
             "## Tasks\n- [ ] a\n## Scheduled\n- [ ] Go\nb");
        task("not once it has ended", "## Tasks\n## Notes\n## Tasks", "## Tasks\n- [ ] Go\n## Notes\n## Tasks");
        task("marks hide nothing", "---\n## Tasks\n---\n- [ ] a\n---", "---\n## Tasks\n---\n- [ ] a\n- [ ] Go\n---");
        task("no section", "## Carryover\n- [ ] a\n# Tasks\n### Tasks\n##Tasks", "(can't be done)");
    }

    void note()
    {
        QFETCH(QString, edit);
        QFETCH(QString, before);
        const Edits::Lines lines = splitLines(before);
        const QString go = QStringLiteral("Go");
        QTEST(result(lines, edit == u"focus"   ? Edits::updateFocus(lines, go)
                            : edit == u"entry" ? Edits::addPomodoroEntry(lines, 4, QStringLiteral("09:30"), go)
                                               : Edits::addNewTask(lines, go)),
              "after");
    }

    void taskLine_data()
    {
        QTest::addColumn<QString>("toggled");
        QTest::addColumn<QString>("removed");
        QTest::addColumn<qint64>("tomatoes");
        const char* const none = "(can't be done)";
        QTest::newRow("- [X] a") << "- [ ] a" << none << qint64(0);
        QTest::newRow("- [x] a - [X] b") << "- [ ] a - [ ] b" << none << qint64(0);
        QTest::newRow("> - [x] a - [ ] b - [ ] ") << "> - [x] a - [x] b - [x] " << none << qint64(0);
        QTest::newRow("- [ ] a 🍅 🍅") << "- [x] a 🍅 🍅"
                                     << "- [ ] a 🍅" << qint64(2);
        QTest::newRow("- [ ] a 🍅b🍅") << "- [x] a 🍅b🍅"
                                     << "- [ ] ab🍅" << qint64(2);
        QTest::newRow("🍅- [ ]") << "🍅- [x]"
                                << "- [ ]" << qint64(1);
        QTest::newRow("- [ ] ไทย 🍅") << "- [x] ไทย 🍅"
                                     << "- [ ] ไทย" << qint64(1);
        QTest::newRow("- [ ] मन🍅ဍ") << "- [x] मन🍅ဍ"
                                    << "- [ ] मनဍ" << qint64(1);
        for (const char* other : {"- [%1] 🍅\uFE0F 🍎", "- [%1] 🍅\u200D🍅", "- [%1] 🍅\u0301"}) {
            const QString line = QString::fromUtf8(other);
            QTest::newRow(qPrintable(line.arg(QChar(u' ')))) << line.arg(QChar(u'x')) << none << qint64(0);
        }
    }

    void taskLine()
    {
        const QString before = QString::fromUtf8(QTest::currentDataTag());
        const Edits::Lines lines = {before};
        QTEST(result(lines, Edits::toggleTask(lines, 0)), "toggled");
        QTEST(result(lines, Edits::removePomodoroFromTask(lines, 0)), "removed");
        QTEST(Edits::pomodoroCount(before), "tomatoes");
        QCOMPARE(result(lines, Edits::addPomodoroToTask(lines, 0)), before + QStringLiteral(" 🍅"));
    }

    void otherLines_areRefused()
    {
        const Edits::Lines lines = splitLines(u"- [ ] a 🍅\n- [x]\nplain 🍅\n-[ ] b 🍅");
        for (const qint64 line : {qint64(-1), qint64(4), std::numeric_limits<qint64>::max(), qint64(2), qint64(3)}) {
            QVERIFY(!Edits::toggleTask(lines, line) && !Edits::addPomodoroToTask(lines, line));
            QVERIFY(!Edits::removePomodoroFromTask(lines, line));
        }
    }

    void findLine_takesTheNearest()
    {
        const Edits::Lines lines = splitLines(u"a\nb\na\nc\na\n a");
        QCOMPARE(Edits::findLine(lines, u"a", 3), 2);
        QCOMPARE(Edits::findLine(lines, u"a", 1000), 4);
        QCOMPARE(Edits::findLine(lines, u" a", 0), 5);
        QVERIFY(!Edits::findLine(lines, u"d", 0));
    }
};

} // namespace flitmark

QTEST_APPLESS_MAIN(flitmark::DailyNoteEditsTest)
#include "DailyNoteEditsTest.moc"

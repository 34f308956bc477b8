// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Text.h>
#include <daily/NoteLines.h>
#include <daily/OwnTaskGroups.h>

#include <algorithm>

namespace flitmark {

namespace {

using Lines = DailyNoteEdits::Lines;

// "task", "todo", "to do" and "scheduled", in the languages that dates are known in.
constexpr QStringView taskWords[] = {
    u"task",     u"todo",         u"to do",    u"to-do",     u"scheduled",  u"aufgabe",   u"zu erledigen", u"geplant",
    u"tâche",    u"à faire",      u"planifié", u"tarea",     u"pendiente",  u"por hacer", u"programad",    u"attività",
    u"compiti",  u"da fare",      u"tarefa",   u"a fazer",   u"agendad",    u"taken",     u"te doen",      u"gepland",
    u"zadani",   u"do zrobienia", u"zaplanow", u"úkol",      u"naplánovan", u"задач",     u"дела",         u"заплан",
    u"завдан",   u"справи",       u"görev",    u"yapılacak", u"planlan",    u"uppgift",   u"att göra",     u"planerad",
    u"opgave",   u"at gøre",      u"planlagt", u"oppgave",   u"å gjøre",    u"tehtäv",    u"ajoitet",      u"タスク",
    u"やること", u"予定",         u"任务",     u"待办",      u"计划",       u"任務",      u"待辦",         u"計劃",
    u"작업",     u"할 일",        u"예정",
};

bool namesTasks(QStringView heading)
{
    const QString composed = heading.toString().normalized(QString::NormalizationForm_C);
    const LowerCased lowerCased(composed);
    return std::any_of(std::begin(taskWords), std::end(taskWords),
                       [&](QStringView word) { return lowerCased.contains(word); });
}

QList<TaskGroup> taskGroups(const Lines& lines, const OwnNoteView& view)
{
    QList<TaskGroup> groups = {{-1}};
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (view[i].isHidden) {
            continue;
        }
        if (const auto heading = view.heading(i)) {
            groups.append({i, namesTasks(heading->text)});
        } else if (const auto box = taskBox(lines[i], view[i].start)) {
            TaskGroup& group = groups.last();
            group.hasOpen = group.hasOpen || !box->isCompleted();
            if (group.lastTask < 0 || view[i].start.indent <= view[group.lastTask].start.indent) {
                group.lastTask = i;
            }
        }
    }
    return groups;
}

/// How far a line is indented after the first `quotes` quote marks.
int indentAfterQuotes(QStringView line, int quotes)
{
    qsizetype at = 0;
    for (; quotes > 0 && at < line.size(); ++at) {
        quotes -= line[at] == u'>' ? 1 : 0;
    }
    const QStringView rest = line.sliced(at);
    const qsizetype mark = rest.indexOf(u'>');
    return lineStart(mark < 0 ? rest : rest.first(mark)).indent;
}

} // namespace

std::optional<TaskGroup> groupForNewTask(const DailyNoteEdits::Lines& lines, const OwnNoteView& view)
{
    const QList<TaskGroup> groups = taskGroups(lines, view);
    using IsWanted = bool (*)(const TaskGroup& group);
    for (const IsWanted isWanted : {IsWanted([](const TaskGroup& group) { return group.isNamed && group.hasOpen; }),
                                    IsWanted([](const TaskGroup& group) { return group.isNamed; }),
                                    IsWanted([](const TaskGroup& group) { return group.hasOpen; })}) {
        const auto found = std::find_if(groups.rbegin(), groups.rend(), isWanted);
        if (found != groups.rend()) {
            return *found;
        }
    }
    return std::nullopt;
}

qsizetype taskBlockEnd(const DailyNoteEdits::Lines& lines, const OwnNoteView& view, qsizetype task)
{
    const LineStart& own = view[task].start;
    qsizetype end = task + 1;
    bool isParagraph = true;
    for (qsizetype i = end; i < lines.size(); ++i) {
        const OwnNoteView::Line& state = view[i];
        bool belongs = state.isHidden && state.region < i && state.region < end;
        if (!belongs) {
            if (isBlank(lines[i].sliced(state.start.text))) {
                if (state.start.quotes != own.quotes) {
                    break;
                }
                isParagraph = false;
                continue;
            }
            // What is quoted within the task is indented before its own quote marks.
            const int indent = indentAfterQuotes(lines[i], own.quotes);
            const bool isText = !state.isHidden && state.start.quotes == own.quotes && !view.heading(i) &&
                                !listItemText(lines[i], state.start.text) && !isRule(lines[i]);
            belongs = isParagraph ? indent > own.indent || isText : indent > own.indent + 1;
            isParagraph = isText || (isParagraph && !state.isHidden);
        }
        if (!belongs) {
            break;
        }
        end = i + 1;
    }
    return end;
}

} // namespace flitmark

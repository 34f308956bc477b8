// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Text.h>
#include <daily/NoteLines.h>
#include <daily/OwnNoteLines.h>
#include <daily/OwnTaskLine.h>

#include <algorithm>

namespace flitmark {

namespace {

// What is at the end of a task for other programs is short; nothing longer is looked through for it.
constexpr qsizetype longestField = 1000;

std::optional<TaskBox> boxOf(QStringView line)
{
    return taskBox(line, lineStart(line));
}

bool isAscii(QChar c, QStringView others)
{
    return c.unicode() < 0x80 && (c.isLetterOrNumber() || others.contains(c));
}

/// The place after the text before `end` that is no blank.
qsizetype withoutBlanks(QStringView line, qsizetype end)
{
    while (end > 0 && isSpace(line[end - 1])) {
        --end;
    }
    return end;
}

/// Where the word begins that ends at `end`.
qsizetype wordStart(QStringView line, qsizetype end)
{
    while (end > 0 && !isSpace(line[end - 1])) {
        --end;
    }
    return end;
}

bool isBlockId(QStringView word)
{
    return word.size() > 1 && word.startsWith(u'^') &&
           std::all_of(word.begin() + 1, word.end(), [](QChar c) { return isAscii(c, u"-"); });
}

bool isDate(QStringView text)
{
    constexpr QStringView shape = u"0000-00-00";
    return std::equal(text.begin(), text.end(), shape.begin(), shape.end(), [](QChar c, QChar expected) {
        return expected == u'0' ? c >= u'0' && c <= u'9' : c == expected;
    });
}

/// What the Tasks plugin expects after a sign of its own.
enum class Value { Date, None, Words };

struct TaskSign
{
    QStringView sign;
    Value value;
};

constexpr TaskSign taskSigns[] = {
    {u"📅", Value::Date},    {u"📆", Value::Date},  {u"🗓", Value::Date}, {u"⏳", Value::Date}, {u"⌛", Value::Date},
    {u"🛫", Value::Date}, {u"✅", Value::Date},  {u"❌", Value::Date},    {u"➕", Value::Date}, {u"🔺", Value::None},
    {u"⏫", Value::None},    {u"🔼", Value::None},  {u"🔽", Value::None},    {u"⏬", Value::None}, {u"🔁", Value::Words},
    {u"🏁", Value::Words},   {u"🆔", Value::Words}, {u"⛔", Value::Words},
};

/// Where the sign with its value begins that is all from there to `end`; -1 when there is none.
qsizetype signStart(QStringView line, qsizetype from, qsizetype end)
{
    for (qsizetype at = end - 1; at >= qMax(from, end - longestField); --at) {
        const QStringView rest = line.sliced(at, end - at);
        const auto found = std::find_if(std::begin(taskSigns), std::end(taskSigns),
                                        [&](const TaskSign& sign) { return rest.startsWith(sign.sign); });
        if (found == std::end(taskSigns)) {
            continue;
        }
        QStringView value = rest.sliced(found->sign.size());
        value = trimSpaces(value.startsWith(u'\uFE0F') ? value.sliced(1) : value);
        const bool isWords = std::all_of(value.begin(), value.end(), [](QChar c) { return isAscii(c, u" ,!-_"); });
        const bool fits = found->value == Value::Date   ? isDate(value)
                          : found->value == Value::None ? value.isEmpty()
                                                        : isWords && !value.isEmpty();
        return fits ? at : -1;
    }
    return -1;
}

/// Where a field "[key:: value]" begins that ends at `end`; -1 when there is none.
qsizetype fieldStart(QStringView line, qsizetype from, qsizetype end)
{
    if (end == 0 || line[end - 1] != u']') {
        return -1;
    }
    const qsizetype first = qMax(from, end - longestField);
    const qsizetype open = line.sliced(first, end - first).lastIndexOf(u'[');
    const QStringView content = open < 0 ? QStringView() : line.sliced(first + open + 1, end - first - open - 2);
    return content.indexOf(u"::") > 0 && !content.contains(u']') ? first + open : -1;
}

/// Where the text of a task ends, which begins at `from`: before what other programs read at the line's end.
qsizetype textEnd(QStringView line, qsizetype from)
{
    qsizetype end = withoutBlanks(line, line.size());
    const qsizetype word = wordStart(line, end);
    if (word > from && isBlockId(line.sliced(word, end - word))) {
        end = word;
    }
    for (qsizetype at = end; at > from;) {
        at = withoutBlanks(line, at);
        const qsizetype tag = wordStart(line, at);
        if (tag > from && at - tag > 1 && line[tag] == u'#') {
            at = tag; // Counts only where a sign stands before it.
            continue;
        }
        const qsizetype field = fieldStart(line, from, at);
        const qsizetype start = field >= 0 ? field : signStart(line, from, at);
        if (start < 0) {
            break;
        }
        at = start;
        end = start;
    }
    return qMax(from, withoutBlanks(line, end));
}

} // namespace

std::optional<QString> toggledTask(QStringView line)
{
    const auto box = boxOf(line);
    if (!box) {
        return std::nullopt;
    }
    return line.toString().replace(box->open + 1, box->sign.size(), box->isCompleted() ? u' ' : u'x');
}

std::optional<QString> taskWithTomato(QStringView line)
{
    const auto box = boxOf(line);
    if (!box) {
        return std::nullopt;
    }
    return line.toString().insert(textEnd(line, box->end), u' ' + tomato.toString());
}

std::optional<QString> taskWithoutTomato(QStringView line)
{
    const QList<qsizetype> tomatoes = tomatoesIn(line);
    if (!boxOf(line) || tomatoes.isEmpty()) {
        return std::nullopt;
    }
    const qsizetype at = tomatoes.last();
    const qsizetype space = at > 0 && line[at - 1] == u' ' ? 1 : 0;
    return line.toString().remove(at - space, tomato.size() + space);
}

QString nextTaskStart(QStringView line)
{
    const LineStart start = lineStart(line);
    const auto box = taskBox(line, start);
    if (!box) {
        return QStringLiteral("- [ ] ");
    }
    QString before = line.first(box->open).toString();
    qsizetype digits = 0;
    while (before[start.text + digits].isDigit()) {
        ++digits;
    }
    if (digits > 0) {
        const qint64 number = parseInteger(line.sliced(start.text, digits)).value_or(0);
        before.replace(start.text, digits, QString::number(number + 1).rightJustified(digits, u'0'));
    }
    return before + QStringLiteral("[ ] ");
}

} // namespace flitmark

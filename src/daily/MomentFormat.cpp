// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/MomentFormat.h>

#include <QHash>
#include <QRegularExpression>

namespace flitmark {

namespace {

struct Era
{
    QDate since;
    int firstYear;
    QStringView name;
    QStringView shortName;
    QStringView shortestName;
};

/// The era of `date`, one of our calendar's years.
Era eraOf(QDate date, QStringView language)
{
    static const QList<Era> japanese = {
        {QDate(2019, 5, 1), 1, u"令和", u"R", u"㋿"},  {QDate(1989, 1, 8), 1, u"平成", u"H", u"㍻"},
        {QDate(1926, 12, 25), 1, u"昭和", u"S", u"㍼"}, {QDate(1912, 7, 30), 1, u"大正", u"T", u"㍽"},
        {QDate(1873, 1, 1), 6, u"明治", u"M", u"㍾"},   {QDate(1, 1, 1), 1, u"西暦", u"AD", u"AD"},
    };
    if (language == u"ja") {
        return *std::find_if(japanese.begin(), japanese.end(), [date](const Era& era) { return era.since <= date; });
    }
    return {QDate(1, 1, 1), 1, u"Anno Domini", u"AD", u"AD"};
}

struct Week
{
    int number;
    int year;
};

Week weekOf(QDate date, int firstWeekday, int decidingWeekday)
{
    const int sinceFirst = (date.dayOfWeek() % 7 + 7 - firstWeekday) % 7;
    const QDate deciding = date.addDays(decidingWeekday - firstWeekday - sinceFirst);
    return {(deciding.dayOfYear() - 1) / 7 + 1, deciding.year()};
}

/// How many characters of `rest` belong to the token that it begins with.
qsizetype tokenLength(QStringView rest)
{
    static const QHash<QChar, qsizetype> longest = {
        {u'M', 4}, {u'D', 4}, {u'd', 4}, {u'w', 2}, {u'W', 2}, {u'N', 5}, {u'Y', 6}, {u'y', 4}, {u'g', 5},
        {u'G', 5}, {u'H', 2}, {u'h', 2}, {u'k', 2}, {u'm', 2}, {u's', 2}, {u'S', 9}, {u'z', 2}, {u'Z', 2},
    };
    const QChar letter = rest.front();
    const qsizetype most = qMin(longest.value(letter, 1), rest.size());
    qsizetype length = 1;
    while (length < most && rest[length] == letter) {
        ++length;
    }
    const bool comesInPairs = letter == u'Y' || letter == u'g' || letter == u'G';
    if (comesInPairs && length == 3) {
        return 2;
    }
    const bool canCount = QStringView(u"MDdwWQy").contains(letter) && length == 1;
    if ((canCount || (letter == u'D' && length == 3)) && rest.sliced(length).startsWith(u'o')) {
        return length + 1;
    }
    if (letter.toLower() == u'h' && rest.sliced(1).startsWith(u"mm")) {
        return rest.sliced(3).startsWith(u"ss") ? 5 : 3;
    }
    return length;
}

/// The length of a "[literal]" that `rest` begins with; 0 when it begins with none. It ends at the last closing bracket
/// before the next opening one.
qsizetype literalLength(QStringView rest)
{
    const qsizetype next = rest.indexOf(u'[', 1);
    return rest.first(next < 0 ? rest.size() : next).lastIndexOf(u']') + 1;
}

class Formatter
{
public:
    Formatter(QDate date, const MomentLanguage& language)
        : m_date(date)
        , m_language(language)
    {
    }

    tl::expected<QString, QString> run(const QString& format)
    {
        auto expanded = expand(format);
        if (!expanded) {
            return expanded;
        }
        m_format = *std::move(expanded);
        QString text;
        for (QStringView rest = m_format; !rest.isEmpty();) {
            qsizetype length = rest.front() == u'[' ? literalLength(rest) : 0;
            if (length > 0) {
                text += rest.sliced(1, length - 2);
            } else if (rest.front() == u'\\') {
                length = rest.size() > 1 ? 1 + tokenLength(rest.sliced(1)) : 1;
                text += rest.first(length).toString().remove(u'\\');
            } else {
                length = tokenLength(rest);
                const QStringView token = rest.first(length);
                if (QStringView(u"aAhHkmsSxXzZ").contains(token.front())) {
                    return unsupported(token);
                }
                text += valueOf(token);
            }
            rest = rest.sliced(length);
        }
        return text;
    }

private:
    static tl::unexpected<QString> unsupported(QStringView token)
    {
        return tl::unexpected(QStringLiteral("it asks for a time (%1)").arg(token));
    }

    /// `format` with L, LL, l and ll written out.
    tl::expected<QString, QString> expand(QStringView rest) const
    {
        QString expanded;
        while (!rest.isEmpty()) {
            qsizetype length = rest.front() == u'[' ? literalLength(rest) : 0;
            const QStringView word = rest.front() == u'\\' ? rest.sliced(1) : rest;
            const bool isDate = length == 0 && (word.startsWith(u'L') || word.startsWith(u'l'));
            if (!isDate) {
                length = qMax(length, qsizetype(1));
                expanded += rest.first(length);
                rest = rest.sliced(length);
                continue;
            }
            length = 1;
            while (length < qMin<qsizetype>(4, word.size()) && word[length] == word[0]) {
                ++length;
            }
            const bool isTime = length > 2 || (length == 1 && word.startsWith(u"LT"));
            if (word.size() < rest.size()) {
                expanded += rest.first(length + 1);
            } else if (isTime) {
                return unsupported(word.first(length));
            } else {
                expanded += m_language.dates[static_cast<size_t>(length - 1 + (word.startsWith(u'l') ? 2 : 0))];
            }
            rest = word.sliced(length);
        }
        return expanded;
    }

    static QString padded(int number, qsizetype width)
    {
        return QStringLiteral("%1").arg(number, static_cast<int>(width), 10, QLatin1Char('0'));
    }

    /// A number as the letters of `token` ask for it: plain, of two digits, or as an ordinal.
    QString number(int number, QStringView token, char unit) const
    {
        if (token.endsWith(u'o')) {
            return QString::number(number).append(m_language.ordinalSuffix(number, unit));
        }
        return padded(number, token.size());
    }

    /// A year: of two digits, or of as many as there are letters.
    static QString year(int year, QStringView token)
    {
        switch (token.size()) {
        case 2:
            return padded(year % 100, 2);
        case 6:
            return u'+' + padded(year, 6);
        default:
            return padded(year, qMax<qsizetype>(token.size(), 4));
        }
    }

    /// The name at `index`, in the form that the whole format asks for.
    QString name(const MomentNames& names, int index)
    {
        auto form = m_forms.constFind(&names);
        if (form == m_forms.constEnd()) {
            const auto matches = [this](QStringView pattern) {
                constexpr auto option = QRegularExpression::UseUnicodePropertiesOption;
                return !pattern.isEmpty() && QRegularExpression(pattern.toString(), option).match(m_format).hasMatch();
            };
            form = m_forms.insert(&names, matches(names.when)            ? names.then
                                          : matches(names.otherwiseWhen) ? names.otherwiseThen
                                                                         : names.plain);
        }
        return form->toString().section(u'_', index, index);
    }

    QString valueOf(QStringView token)
    {
        const qsizetype length = token.size();
        const int weekday = m_date.dayOfWeek() % 7;
        switch (token.front().unicode()) {
        case u'Y':
            return year(m_date.year(), token);
        case u'y':
            return number(m_date.year() - eraOf(m_date, m_language.name).since.year() +
                              eraOf(m_date, m_language.name).firstYear,
                          token, 'y');
        case u'N': {
            const Era era = eraOf(m_date, m_language.name);
            return (length < 4 ? era.shortName : length == 4 ? era.name : era.shortestName).toString();
        }
        case u'Q':
            return number((m_date.month() + 2) / 3, token, 'Q');
        case u'M':
            return token == u"MMMM"  ? name(m_language.months, m_date.month() - 1)
                   : token == u"MMM" ? name(m_language.shortMonths, m_date.month() - 1)
                                     : number(m_date.month(), token, 'M');
        case u'g':
        case u'G':
            return length == 1 ? token.toString() : year(week(token).year, token);
        case u'w':
        case u'W':
            return number(week(token).number, token, 'w');
        case u'D':
            return length < 3             ? number(m_date.day(), token, 'D')
                   : token.endsWith(u'o') ? number(m_date.dayOfYear(), token, 'Y')
                                          : padded(m_date.dayOfYear(), length == 3 ? 1 : 3);
        case u'd':
            return length == 1 || token == u"do" ? number(weekday, token, 'd')
                   : length == 2                 ? name(m_language.shortestWeekdays, weekday)
                   : length == 3                 ? name(m_language.shortWeekdays, weekday)
                                                 : name(m_language.weekdays, weekday);
        case u'e':
            return QString::number((weekday + 7 - m_language.firstWeekday) % 7);
        case u'E':
            return QString::number(m_date.dayOfWeek());
        default:
            return token.toString();
        }
    }

    /// The week by the language's rules for a small letter, by ISO's for a capital one.
    Week week(QStringView token) const
    {
        const bool isIso = token.front().isUpper();
        return isIso ? weekOf(m_date, 1, 4) : weekOf(m_date, m_language.firstWeekday, m_language.decidingWeekday);
    }

    QDate m_date;
    const MomentLanguage& m_language;
    QString m_format;
    QHash<const MomentNames*, QStringView> m_forms;
};

} // namespace

tl::expected<QString, QString> formatMoment(const QString& format, QDate date, const MomentLanguage& language)
{
    return Formatter(date, language).run(format);
}

} // namespace flitmark

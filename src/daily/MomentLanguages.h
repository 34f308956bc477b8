// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QString>

#include <array>

namespace flitmark {

/// Names in their order, with "_" between them, and the forms that they take where the whole format matches a pattern.
struct MomentNames
{
    QStringView plain;
    QStringView when = {};
    QStringView then = {};
    QStringView otherwiseWhen = {};
    QStringView otherwiseThen = {};
};

/// How Moment, the library that Obsidian formats dates with, writes dates in one language.
struct MomentLanguage
{
    /// Moment's own: "de", "pt-br".
    QStringView name;
    /// The day that a week begins with, from Sunday, 0.
    int firstWeekday;
    /// The day whose year a week belongs to, counted on from there: 4 is Thursday, 7 the Sunday at a week's end.
    int decidingWeekday;
    /// What follows a number that counts days of the month ('D'), of the year ('Y') or of the week ('d'), weeks ('w'),
    /// months ('M'), quarters ('Q') or years ('y').
    QStringView (*ordinalSuffix)(int number, char unit);
    /// The formats L, LL, l and ll.
    std::array<QStringView, 4> dates;
    MomentNames months;
    MomentNames shortMonths;
    /// From Sunday.
    MomentNames weekdays;
    MomentNames shortWeekdays;
    MomentNames shortestWeekdays;
};

/// The tables for all languages we know, English first. A language whose table has changed between Moment's versions
/// comes twice: with the version that Obsidian has, then with a newer one.
const QList<MomentLanguage>& momentLanguages();

/// Moment's name for a language of the desktop ("de-AT", "zh_Hant_HK"): one of `momentLanguages`, or empty.
QStringView momentLanguageName(const QString& desktopLanguage);

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <settings/HelpContent.h>

#include <QCoreApplication>

namespace flitmark {

/// The texts of the help, section by section.
struct HelpTexts
{
    Q_DECLARE_TR_FUNCTIONS(HelpTexts)

public:
    static QList<HelpBlock> overview();
    static QList<HelpBlock> prerequisites();
    static QList<HelpBlock> quickNotes();
    static QList<HelpBlock> dailyTab();
    static QList<HelpBlock> pomodoro();
    static QList<HelpBlock> pieces();
    static QList<HelpBlock> detectionModes();
    static QList<HelpBlock> keyboard();
    static QList<HelpBlock> troubleshooting();

private:
    enum class Need { Required, Optional };
    static HelpBlock prerequisite(const char* symbol, const QString& title, const QString& text, Need need);
};

/// Short names for building blocks.
namespace help {

inline HelpBlock title(const QString& title)
{
    return {.kind = HelpBlock::Kind::Title, .title = title};
}

inline HelpBlock block(HelpBlock::Kind kind, const QString& text)
{
    return {.kind = kind, .text = text};
}

inline HelpBlock text(const QString& text)
{
    return block(HelpBlock::Kind::Text, text);
}

inline HelpBlock divider()
{
    return {.kind = HelpBlock::Kind::Divider};
}

inline HelpBlock groupHead(const char* symbol, const QString& title)
{
    return {.kind = HelpBlock::Kind::GroupHead, .symbol = QLatin1String(symbol), .title = title};
}

/// A block with a symbol, and a title where it has one.
inline HelpBlock withSymbol(HelpBlock::Kind kind, const char* symbol, const QString& title, const QString& text)
{
    return {.kind = kind, .symbol = QLatin1String(symbol), .title = title, .text = text};
}

/// A block that begins with a number or a key.
inline HelpBlock withMark(HelpBlock::Kind kind, const QString& mark, const QString& title, const QString& text)
{
    return {.kind = kind, .mark = mark, .title = title, .text = text};
}

inline HelpBlock feature(const char* symbol, const QString& title, const QString& text)
{
    return withSymbol(HelpBlock::Kind::Feature, symbol, title, text);
}

inline HelpBlock step(int number, const QString& text)
{
    return withMark(HelpBlock::Kind::Step, QString::number(number), {}, text);
}

inline HelpBlock shortcut(const QString& key, const QString& text)
{
    return withMark(HelpBlock::Kind::Shortcut, key, {}, text);
}

inline HelpBlock trouble(const QString& problem, const QString& solution)
{
    return withSymbol(HelpBlock::Kind::Trouble, "exclamationmark.triangle.fill", problem, solution);
}

inline HelpBlock about(LocalFact fact, HelpBlock block)
{
    block.facts.append(fact);
    return block;
}

} // namespace help

} // namespace flitmark

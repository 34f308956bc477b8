// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QString>

namespace flitmark {

/// The sections of the help, in the order of its sidebar.
enum class HelpSection {
    overview,
    prerequisites,
    quickNotes,
    dailyTab,
    pomodoro,
    pieces,
    detectionModes,
    keyboard,
    troubleshooting,
};

/// What is said, below a block, about this computer.
enum class LocalFact { None, Systems, Keys, Hotkey, ConfigFile };

/// One building block of the help. Which of the texts it has follows from its kind.
struct HelpBlock
{
    enum class Kind {
        Title,
        Text,
        QuietText,
        Tip,
        BoldText,
        Divider,
        Code,
        GroupHead,    ///< symbol, title
        Callout,      ///< symbol, text
        GoodNews,     ///< a callout of another colour
        Feature,      ///< symbol, title, text
        Step,         ///< mark: its number; text
        SetupStep,    ///< mark: its number; title, text
        Trouble,      ///< symbol, title: the problem; text: its solution
        PiecesLink,   ///< text
        ConfigFolder, ///< the button that opens it: symbol, text

        // Neighbours of one of these kinds share a card.
        Prerequisite, ///< symbol, title, text, badge
        Mode,         ///< title, text, requirement, badge
        NoteType,     ///< mark: the shortcut; title, text
        Shortcut,     ///< mark: the key; text
        Passage,      ///< text
        Action,       ///< symbol, text

        Control, ///< symbol, title, text: neighbours stand side by side
    };

    Kind kind;
    QString symbol = {};
    QString mark = {};
    QString title = {};
    QString text = {};
    QString requirement = {};
    QString badge = {};
    /// Whether the badge says something the reader should not overlook.
    bool isBadgeAccent = false;
    QList<LocalFact> facts = {};
};

/// What the sidebar shows of a section.
struct HelpHeading
{
    HelpSection section;
    QString title;
    QString symbol;
};

/// Every section, in order.
QList<HelpHeading> helpHeadings();

/// The building blocks of `section`, from top to bottom.
QList<HelpBlock> helpContent(HelpSection section);

} // namespace flitmark

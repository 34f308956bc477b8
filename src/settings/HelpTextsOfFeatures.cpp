// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <settings/HelpTexts.h>

namespace flitmark {

using namespace help;
using Kind = HelpBlock::Kind;

QList<HelpBlock> HelpTexts::overview()
{
    return {
        title(tr("Welcome to Flitmark")),
        text(tr("Flitmark is a desktop companion for Obsidian that helps you capture fleeting thoughts instantly and "
                "stay focused with Pomodoro-based productivity tracking.")),
        feature("bolt.fill", tr("Quick Capture"),
                tr("Capture thoughts in seconds with a desktop widget or global hotkey")),
        feature("calendar", tr("Daily Integration"),
                tr("View and edit your daily note's focus and tasks directly from Flitmark")),
        feature("timer", tr("Pomodoro Timer"),
                tr("Task-based Pomodoro tracking with automatic logging to your daily note")),
        feature("brain.head.profile", tr("Coach System"),
                tr("Optional accountability coaching that helps you stay aligned with your planned focus")),
        divider(),
        title(tr("How It Works")),
        text(tr("1. Click the floating button on your desktop (or press ⌥N) to open Flitmark\n"
                "2. Write a quick note and save it to your vault\n"
                "3. Use the Daily tab to see today's focus and start Pomodoro sessions\n"
                "4. Notes are saved as markdown files compatible with Obsidian")),
    };
}

QList<HelpBlock> HelpTexts::quickNotes()
{
    return {
        title(tr("Quick Notes")),
        text(tr("The primary feature of Flitmark is rapid note capture.")),
        step(1, tr("Click the floating button on your desktop or press ⌥N (Option+N)")),
        step(2, tr("Type your note in the text field")),
        step(3, tr("Optionally add quick tags by clicking the emoji buttons")),
        step(4, tr("Click 'Save' or press ⌘S to save to your vault")),
        divider(),
        title(tr("Quick Tags")),
        text(tr("Quick tags let you categorize notes instantly. Each tag adds text (like #priority/high) to your "
                "note. Configure tags in Settings.")),
        text(tr("Default tags appear with a highlighted border and are automatically applied when you start a new "
                "note.")),
        title(tr("Note Types")),
        withMark(Kind::NoteType, QStringLiteral("⌘1"), tr("Fleeting"), tr("Quick thoughts, ideas to process later")),
        withMark(Kind::NoteType, QStringLiteral("⌘2"), tr("Task"), tr("Action items with checkbox format")),
        withMark(Kind::NoteType, QStringLiteral("⌘3"), tr("Idea"), tr("Creative ideas to explore")),
    };
}

QList<HelpBlock> HelpTexts::dailyTab()
{
    return {
        title(tr("Daily Tab")),
        text(tr("The Daily tab shows your today's daily note with focus, tasks, and Pomodoro tracking.")),
        groupHead("target", tr("Today's Focus")),
        block(Kind::Passage, tr("Shows your planned focus for the day, extracted from your daily note's '## Today's "
                                "Focus' section.")),
        block(Kind::Passage, tr("Click the 'Edit' button to change your focus. Changes are saved directly to your "
                                "daily note file.")),
        groupHead("checklist", tr("Tasks")),
        block(Kind::Passage, tr("Lists tasks from your daily note. Click the 🍅 button next to any task to start a "
                                "Pomodoro session for that task.")),
        block(Kind::Passage, tr("The active task shows a pulsing indicator and timer progress.")),
        groupHead("bolt", tr("Quick Actions")),
        withSymbol(Kind::Action, "doc.text.magnifyingglass", {},
                   tr("Open in Obsidian - Opens today's note in Obsidian")),
        withSymbol(Kind::Action, "arrow.clockwise", {}, tr("Refresh - Reloads the daily note from disk")),
    };
}

QList<HelpBlock> HelpTexts::pomodoro()
{
    return {
        title(tr("Pomodoro Timer")),
        text(tr("Flitmark includes a task-based Pomodoro timer that logs sessions to your daily note.")),
        step(1, tr("Open the Daily tab and find a task you want to work on")),
        step(2, tr("Click the 🍅 button next to the task to start a Pomodoro")),
        step(3, tr("Work until the timer completes (default: 20 minutes)")),
        step(4, tr("When complete, the session is logged to your daily note")),
        divider(),
        title(tr("Timer Controls")),
        withSymbol(Kind::Control, "pause.fill", tr("Pause/Resume"), tr("Temporarily pause the timer")),
        withSymbol(Kind::Control, "arrow.counterclockwise", tr("Reset"), tr("Restart current session")),
        withSymbol(Kind::Control, "stop.fill", tr("Stop"), tr("End session without logging")),
        title(tr("Desktop Indicator")),
        text(tr("When a Pomodoro is active, the floating desktop button shows a progress ring around it. The ring "
                "fills as the timer progresses.")),
        title(tr("Settings")),
        block(Kind::QuietText, tr("• Pomodoro Interval: Configure timer length (5-60 minutes)")),
        block(Kind::QuietText, tr("• Check-in Window: Set when check-ins can appear (e.g., 07:30-18:00)")),
    };
}

QList<HelpBlock> HelpTexts::keyboard()
{
    return {
        title(tr("Keyboard Shortcuts")),
        groupHead("globe", tr("Global")),
        shortcut(QStringLiteral("⌥N"), tr("Toggle Flitmark panel (works system-wide)")),
        groupHead("doc.text", tr("Note Editing")),
        shortcut(QStringLiteral("⌘S"), tr("Save note")),
        shortcut(QStringLiteral("⌘1"), tr("Set as Fleeting note")),
        shortcut(QStringLiteral("⌘2"), tr("Set as Task note")),
        shortcut(QStringLiteral("⌘3"), tr("Set as Idea note")),
        groupHead("arrow.left.arrow.right", tr("Navigation")),
        shortcut(QStringLiteral("⌘,"), tr("Open Settings")),
        shortcut(QStringLiteral("⌘Q"), tr("Quit Flitmark")),
        about(LocalFact::Hotkey,
              about(LocalFact::Keys,
                    block(Kind::Tip, tr("Tip: The global hotkey (⌥N) requires Accessibility permissions. Grant access "
                                        "in System Settings → Privacy & Security → Accessibility.")))),
    };
}

} // namespace flitmark

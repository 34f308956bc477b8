// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <settings/HelpContent.h>
#include <settings/HelpTexts.h>

namespace flitmark {

QList<HelpHeading> helpHeadings()
{
    return {
        {HelpSection::overview, HelpTexts::tr("Overview"), QStringLiteral("info.circle")},
        {HelpSection::prerequisites, HelpTexts::tr("Prerequisites"), QStringLiteral("checklist")},
        {HelpSection::quickNotes, HelpTexts::tr("Quick Notes"), QStringLiteral("note.text.badge.plus")},
        {HelpSection::dailyTab, HelpTexts::tr("Daily Tab"), QStringLiteral("calendar")},
        {HelpSection::pomodoro, HelpTexts::tr("Pomodoro Timer"), QStringLiteral("timer")},
        {HelpSection::pieces, HelpTexts::tr("Pieces Integration"), QStringLiteral("puzzlepiece.extension")},
        {HelpSection::detectionModes, HelpTexts::tr("Detection Modes"), QStringLiteral("waveform.path.ecg")},
        {HelpSection::keyboard, HelpTexts::tr("Keyboard Shortcuts"), QStringLiteral("keyboard")},
        {HelpSection::troubleshooting, HelpTexts::tr("Troubleshooting"), QStringLiteral("wrench.and.screwdriver")},
    };
}

QList<HelpBlock> helpContent(HelpSection section)
{
    switch (section) {
    case HelpSection::overview:
        return HelpTexts::overview();
    case HelpSection::prerequisites:
        return HelpTexts::prerequisites();
    case HelpSection::quickNotes:
        return HelpTexts::quickNotes();
    case HelpSection::dailyTab:
        return HelpTexts::dailyTab();
    case HelpSection::pomodoro:
        return HelpTexts::pomodoro();
    case HelpSection::pieces:
        return HelpTexts::pieces();
    case HelpSection::detectionModes:
        return HelpTexts::detectionModes();
    case HelpSection::keyboard:
        return HelpTexts::keyboard();
    case HelpSection::troubleshooting:
        break;
    }
    return HelpTexts::troubleshooting();
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <settings/HelpTexts.h>

namespace flitmark {

using namespace help;
using Kind = HelpBlock::Kind;

HelpBlock HelpTexts::prerequisite(const char* symbol, const QString& title, const QString& text, Need need)
{
    HelpBlock result = withSymbol(Kind::Prerequisite, symbol, title, text);
    result.badge = need == Need::Required ? tr("Required") : tr("Optional");
    result.isBadgeAccent = need == Need::Required;
    return result;
}

QList<HelpBlock> HelpTexts::prerequisites()
{
    return {
        title(tr("Prerequisites")),
        text(tr("Before using Flitmark, ensure you have the following:")),
        about(LocalFact::Systems, prerequisite("laptopcomputer", tr("macOS 14.0 or later"),
                                               tr("Flitmark requires macOS Sonoma or newer"), Need::Required)),
        prerequisite("folder.fill", tr("Obsidian Vault"),
                     tr("A folder set up as an Obsidian vault. The app auto-detects vaults from Obsidian's "
                        "configuration."),
                     Need::Required),
        prerequisite("doc.text", tr("Daily Notes Structure"),
                     tr("For the Daily tab to work, your vault should have daily notes in a predictable location "
                        "(e.g., Daily/YYYY/YYYY-MM-DD.md)"),
                     Need::Optional),
        prerequisite("puzzlepiece.extension", tr("Pieces Desktop App (Optional)"),
                     tr("For automatic activity detection. Not required - you can use Manual mode instead."),
                     Need::Optional),
        title(tr("Vault Structure")),
        text(tr("Flitmark works best with this daily note structure:")),
        block(Kind::Code, tr("YourVault/\n"
                             "├── Daily/\n"
                             "│   └── 2026/\n"
                             "│       ├── 2026-01-22.md\n"
                             "│       └── 2026-01-23.md\n"
                             "├── Inbox/           ← Quick notes saved here\n"
                             "└── Tasks/           ← Optional: Task management")),
        text(tr("You can configure the save location and daily note path pattern in Settings.")),
    };
}

QList<HelpBlock> HelpTexts::pieces()
{
    return {
        title(tr("Pieces Integration")),
        withSymbol(Kind::Callout, "info.circle.fill", {},
                   tr("Pieces is optional. You can use Flitmark without it by selecting 'Manual Check-ins' in "
                      "Settings.")),
        title(tr("What is Pieces?")),
        text(tr("Pieces is a desktop app that provides Long-Term Memory (LTM) - it observes what you're working on "
                "across applications and creates contextual summaries.")),
        block(Kind::PiecesLink, tr("Visit pieces.app")),
        divider(),
        title(tr("Setup Steps")),
        withMark(Kind::SetupStep, QStringLiteral("1"), tr("Install Pieces Desktop"),
                 tr("Download the desktop application from the Pieces web site (pieces.app) and install it")),
        withMark(Kind::SetupStep, QStringLiteral("2"), tr("Keep Pieces Running"),
                 tr("Pieces must be running in the background to observe your work")),
        withMark(Kind::SetupStep, QStringLiteral("3"), tr("Select 'Pieces LTM' Mode"),
                 tr("In Flitmark Settings → Coach & Pomodoro → Activity Detection")),
        withSymbol(Kind::GoodNews, "key.fill", {},
                   tr("No API Keys Required! Pieces runs entirely locally on your machine. Flitmark communicates with "
                      "it via its local API (no cloud services involved).")),
        title(tr("How It Works")),
        text(tr("When using Pieces mode:\n"
                "1. Pieces observes which apps/files you're working with\n"
                "2. Flitmark queries Pieces for recent work summaries\n"
                "3. The coach compares your actual work to your planned focus\n"
                "4. If misaligned, you get a gentle notification to refocus")),
    };
}

QList<HelpBlock> HelpTexts::detectionModes()
{
    return {
        title(tr("Activity Detection Modes")),
        text(tr("Choose how Flitmark tracks what you're working on:")),
        {.kind = Kind::Mode,
         .title = tr("Pieces LTM"),
         .text = tr("Automatic detection using Pieces desktop app. Best for hands-off tracking."),
         .requirement = tr("Requires Pieces desktop app running"),
         .badge = tr("Recommended"),
         .isBadgeAccent = true},
        {.kind = Kind::Mode,
         .title = tr("Manual Check-ins"),
         .text = tr("You self-report what you're working on at each Pomodoro check-in. Good for users without "
                    "Pieces."),
         .requirement = tr("No additional software needed")},
        {.kind = Kind::Mode,
         .title = tr("Hybrid"),
         .text = tr("Combines automatic Pieces detection with your self-reports for more accurate tracking."),
         .requirement = tr("Pieces desktop app optional")},
        title(tr("Choosing a Mode")),
        block(Kind::BoldText, tr("Use Pieces LTM if:")),
        text(tr("• You have Pieces installed and running\n"
                "• You want automatic, hands-off tracking\n"
                "• You work across multiple apps/files")),
        block(Kind::BoldText, tr("Use Manual if:")),
        text(tr("• You don't have or want Pieces\n"
                "• You prefer explicit control over logging\n"
                "• Privacy is a major concern")),
    };
}

QList<HelpBlock> HelpTexts::troubleshooting()
{
    return {
        title(tr("Troubleshooting")),
        about(LocalFact::Hotkey,
              trouble(tr("Global hotkey (⌥N) doesn't work"), tr("Grant Accessibility permissions:\n"
                                                                "1. Open System Settings\n"
                                                                "2. Go to Privacy & Security → Accessibility\n"
                                                                "3. Find Flitmark and enable it\n"
                                                                "4. Restart Flitmark"))),
        trouble(tr("Daily note not loading"),
                tr("Check that:\n"
                   "1. Your vault path is correct in Settings\n"
                   "2. Your daily notes follow the expected pattern (Daily/YYYY/YYYY-MM-DD.md)\n"
                   "3. Today's daily note exists in your vault")),
        trouble(tr("Pieces integration not working"),
                tr("Ensure:\n"
                   "1. Pieces desktop app is installed and running\n"
                   "2. Detection mode is set to 'Pieces LTM' in Settings\n"
                   "3. You've used your computer for a bit so Pieces has data to report")),
        trouble(tr("Notes not saving to vault"), tr("Verify:\n"
                                                    "1. Vault path is correct in Settings\n"
                                                    "2. The save subfolder exists (or will be created)\n"
                                                    "3. You have write permissions to the vault folder")),
        trouble(tr("Floating button disappeared"), tr("The button may be off-screen. Try:\n"
                                                      "1. Quit and relaunch Flitmark\n"
                                                      "2. The button resets to bottom-right corner on launch")),
        divider(),
        title(tr("Need More Help?")),
        about(LocalFact::ConfigFile, block(Kind::QuietText, tr("Flitmark stores its configuration at:\n"
                                                               "~/Library/Application Support/Flitmark/config.json"))),
        withSymbol(Kind::ConfigFolder, "folder", {}, tr("Open Config Folder")),
    };
}

} // namespace flitmark

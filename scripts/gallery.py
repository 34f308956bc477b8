# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""Pictures of every window in all its looks, on one page.

usage: gallery.py FOLDER [LOOK...]
"""

import json
import shutil
import sys
import unittest
from pathlib import Path

from desktop import case
from test_shell import QUESTION

NOTE = """## Today's Focus
**Ship the landing page** before the review on Friday

## Tasks
- [x] Publish the visuals 🍅🍅
- [ ] Finalize the pack of screenshots, with all the captions that the people from the shop have asked for 🍅
- [ ] Review the release notes 🍅🍅🍅🍅🍅🍅🍅🍅
- [ ] Call Ann

## Coach Check
Two good blocks. Take a walk before the third.

## Work Done
- ✅ Header repaired

## Pomodoro Log
**Today:** 3/8 completed

| # | Time | Focus |
|---|------|-------|
"""

ALERT = {"alert_id": "1", "triggered_at": "2026-01-22T10:15:00Z", "planned": "Ship the landing page",
         "actual": "Reading the news of the day", "misalignment_count": 2, "status": "pending"}

# The desktop's settings are read as on this one.
DESKTOP = {"XDG_CURRENT_DESKTOP": "KDE", "KDE_FULL_SESSION": "true", "KDE_SESSION_VERSION": "5"}
LARGE_TEXT = "[General]\nfont=Sans Serif,16,-1,5,50,0,0,0,0,0\n"
DARK = "".join(f"[Colors:{part}]\nBackgroundNormal=32,33,36\nForegroundNormal=240,240,240\n"
                      for part in ("Button", "Window", "View", "Selection"))
PALETTES = ("obsidian_native", "calm_productivity", "forest_focus", "midnight_clarity", "warm_minimal")

# Each look: its palette, the desktop's settings, what it adds to the environment, and whether all windows are taken.
LOOKS = {f"{palette}-{scheme}": (palette, settings, {}, palette == PALETTES[0])
         for palette in PALETTES for scheme, settings in (("light", ""), ("dark", DARK))}
LOOKS |= {
    "large-text": (PALETTES[0], LARGE_TEXT, {}, True),
    "scale-1.5": (PALETTES[1], "", {"QT_SCALE_FACTOR": "1.5"}, False),
    "scale-2-dark": (PALETTES[0], DARK, {"QT_SCALE_FACTOR": "2"}, False),
}
TABS = ("App", "Quick Tags", "Vault", "Notes", "Appearance", "Pomodoro", "Shortcuts")


class Gallery(case.SetUpCase):
    """One look: `run_look` names it."""

    SIZE = (1920, 1440)
    COMPOSITOR = True
    look = ""

    def setUp(self):
        self.palette, self.settings, self.variables, self.is_whole = LOOKS[self.look]
        super().setUp()

    def picture(self, title, name):
        number = len(list(self.folder.glob("*.png"))) + 1
        self.screen.window(title).picture(self.folder / f"{number:02}-{name}.png", 16)

    def start_dressed(self, clock="@2026-01-22 10:15:00"):
        (self.home.folder / ".config").mkdir(exist_ok=True)
        (self.home.folder / ".config" / "kdeglobals").write_text(self.settings)
        return self.start(clock, **self.variables, **DESKTOP)

    def runTest(self):
        self.folder = case.ARTIFACTS / self.look
        self.folder.mkdir(parents=True)
        self.home.complete_setup(color_palette=self.palette, daily_reviews_enabled=True)
        self.home.write_daily_note(NOTE)
        self.take_panel()
        self.take_settings()
        self.program.stop()
        self.take_popups()
        if self.is_whole:
            self.program.stop()
            self.take_wizard()

    def take_panel(self):
        self.start_dressed()
        self.open_panel()
        self.picture("Flitmark Button", "button")
        self.screen.type("Water the tomatoes before the weekend")
        self.program.click("#type/task", "check box", "Flitmark")
        self.picture("Flitmark", "new")
        for tab in ("Browse", "Daily"):
            self.program.click(tab, window="Flitmark")
            self.picture("Flitmark", tab.lower())
        self.program.click("Start Pomodoro for a task", window="Flitmark")
        self.picture("Flitmark", "picker")
        self.screen.key("Escape")
        self.home.signals.mkdir(parents=True, exist_ok=True)
        (self.home.signals / "coach-alert.json").write_text(json.dumps(ALERT))
        self.program.find(ALERT["actual"], "label", "Flitmark")
        self.picture("Flitmark", "focus-check")
        self.program.click("Snooze", window="Flitmark")
        self.program.wait_until_gone("Focus Check", window="Flitmark")
        if self.is_whole:
            self.program.click("Edit focus", window="Flitmark")
            self.picture("Flitmark", "daily-edited")
            self.program.click("Cancel", window="Flitmark")

    def take_settings(self):
        self.program.click("Settings", window="Flitmark")
        for tab in TABS if self.is_whole else TABS[4:5]:
            self.program.click(tab, window="Flitmark Settings")
            self.picture("Flitmark Settings", f"settings-{tab.lower()}")
        self.program.click("Help", window="Flitmark Settings")
        self.program.find("Prerequisites", "radio button")
        self.picture("Flitmark Settings", "help")

    def take_popups(self):
        self.home.complete_setup(color_palette=self.palette, daily_review_times=["10:20"])
        self.home.forget_login_question()
        self.start_dressed("@2026-01-22 10:15:00 x120")
        self.picture(QUESTION, "question")
        self.screen.key_until("Escape", lambda: not self.screen.windows(QUESTION), "the question to leave")
        self.open_menu()
        self.picture("Flitmark Menu", "menu")
        self.program.click("Start Pomodoro Timer", "menu item", "Flitmark Button")
        self.picture("Daily Review", "review")
        self.program.click("Close", window="Daily Review")
        self.picture("Flitmark Button", "ring")
        self.picture("Pomodoro Check-in", "check-in")

    def take_wizard(self):
        self.home.config_path.unlink()
        self.start_dressed()
        for sign, button in (("Quick Note Capture for Obsidian", "Get Started"),
                             ("Select Your Obsidian Vault", "Next"), ("Configure Quick Tags", "Next"),
                             ("You're All Set!", "")):
            self.program.find(sign)
            if sign.startswith("Select"):
                self.program.click("Notes")
            self.picture("Flitmark Setup", "setup")
            if button:
                self.program.click(button)


def page(folder):
    parts = []
    for look in sorted(folder.iterdir()):
        if look.is_dir():
            pictures = "".join(f'<a href="{look.name}/{p.name}"><img src="{look.name}/{p.name}" alt="{p.stem}"></a>'
                               for p in sorted(look.glob("*.png")))
            parts.append(f"<h2>{look.name}</h2>{pictures}")
    style = "body{font-family:sans-serif;background:#777}img{max-height:420px;margin:4px}"
    return f"<!doctype html><meta charset=utf-8><title>Flitmark</title><style>{style}</style>{''.join(parts)}"


def main():
    looks = sys.argv[2:] or list(LOOKS)
    if len(sys.argv) < 2 or any(look not in LOOKS for look in looks):
        sys.exit(f"{__doc__}The looks: {', '.join(LOOKS)}")
    case.ARTIFACTS = Path(sys.argv[1]).resolve()
    case.ARTIFACTS.mkdir(parents=True, exist_ok=True)
    failed = []
    for look in looks:
        shutil.rmtree(case.ARTIFACTS / look, ignore_errors=True)
        Gallery.look = look
        result = unittest.TestResult()
        Gallery().run(result)
        failed += [f"{look}: {problem}" for _, problem in result.errors + result.failures]
    (case.ARTIFACTS / "index.html").write_text(page(case.ARTIFACTS))
    print(f"Pictures of {len(looks)} looks are on {sys.argv[1]}/index.html.")
    sys.exit("\n".join(failed) or 0)


if __name__ == "__main__":
    main()

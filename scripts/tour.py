# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""A tour of the real program where there is no display: set-up, a capture with quick tags, and pictures on the way.

usage: tour.py FOLDER-FOR-THE-PICTURES
"""

import shutil
import sys
import unittest
from pathlib import Path

from desktop import case

TEXT = "Water the tomatoes before the weekend"
TAGS = ("#type/task", "#priority/high")

# Room for the shadow around a window.
PICTURE_MARGIN = 24


class Tour(case.DesktopCase):
    """One walk through the program, from the first start to the first note."""

    SIZE = (1280, 800)
    COMPOSITOR = True

    def test_tour(self):
        self.pictures = case.ARTIFACTS
        self.home.make_vault(self.home.folder / "Work")
        self.start()
        for sign, name, *choices in [
            ("Quick Note Capture for Obsidian", "wizard-welcome", "Get Started"),
            ("Select Your Obsidian Vault", "wizard-vault", "Notes", "Next"),
            ("Configure Quick Tags", "wizard-quick-tags", "Next"),
            ("You're All Set!", "wizard-finish", "Start Using Flitmark"),
        ]:
            self.program.find(sign)
            for choice in choices[:-1]:
                self.program.click(choice)
            self._picture("Flitmark Setup", name)
            self.program.click(choices[-1])
        self._picture("Flitmark Button", "button")
        self._picture("Start Flitmark automatically?", "login-question")
        self.program.click("Not Now", "push button")

        self.open_panel()
        self._picture("Flitmark", "panel-empty")
        self.screen.type(TEXT)
        for tag in TAGS:
            self.program.click(tag, "check box", "Flitmark")
        self.wait_for_text(TEXT)
        self._picture("Flitmark", "panel-text")
        self.screen.key("ctrl+Return")
        self.program.find("Saved", "notification")
        self._picture("Flitmark", "panel-saved")
        note = self.wait_for_note()
        print(f"\nThe note {note.relative_to(self.home.vault)} in the vault:\n\n{note.read_text()}\n")

    def _picture(self, title, name):
        """Takes a picture of a window as soon as nothing in it moves any more, or shortly after."""
        number = len(list(self.pictures.glob("*.png"))) + 1
        self.screen.window(title).picture(self.pictures / f"{number}-{name}.png", PICTURE_MARGIN)


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    case.ARTIFACTS = Path(sys.argv[1]).resolve()
    shutil.rmtree(case.ARTIFACTS, ignore_errors=True)
    case.ARTIFACTS.mkdir(parents=True)
    result = unittest.TestResult()
    Tour("test_tour").run(result)
    for _, problem in result.errors + result.failures:
        sys.exit(problem)
    print(f"Pictures of every window are in {sys.argv[1]}:")
    for picture in sorted(case.ARTIFACTS.glob("*.png")):
        print(f"  {picture.name}")


if __name__ == "__main__":
    main()

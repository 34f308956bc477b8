# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""A tour of the real program where there is no display: set-up, a capture with quick tags, and pictures on the way.

usage: tour.py FOLDER-FOR-THE-PICTURES
"""

import shutil
import sys
from pathlib import Path

from desktop.desktop import Desktop
from desktop.home import Home
from desktop.program import Program
from desktop.waiting import wait_until

TEXT = "Water the tomatoes before the weekend"
TAGS = ("#type/task", "#priority/high")

# Room for the shadow around a window.
PICTURE_MARGIN = 24


class Tour:
    """One walk through the program, from the first start to the first note."""

    def __init__(self, desktop, pictures):
        self._screen = desktop.screen
        self._pictures = pictures
        self._number = 0
        self.home = Home(desktop.folder / "user")
        self.home.make_vault(self.home.folder / "Work")
        self.program = Program(desktop, self.home, pictures / "output.txt")

    def set_up(self):
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

    def capture(self):
        """Gives the note."""
        self._screen.click(*self._screen.window("Flitmark Button").geometry.centre)
        editor = self.program.find("Note", window="Flitmark")
        wait_until(lambda: editor.has("focused"), "the editor to have the keyboard")
        self._picture("Flitmark", "panel-empty")
        self._screen.type(TEXT)
        for tag in TAGS:
            self.program.click(tag, "check box", "Flitmark")
        wait_until(lambda: editor.text == TEXT, "the text in the editor")
        self._picture("Flitmark", "panel-text")
        self._screen.key("ctrl+Return")
        self.program.find("Saved", "label")
        self._picture("Flitmark", "panel-saved")
        return wait_until(lambda: self.home.notes(), "the note in the vault")[0]

    def _picture(self, title, name):
        """Takes a picture of a window as soon as nothing in it moves any more, or shortly after."""
        self._number += 1
        self._screen.window(title).picture(self._pictures / f"{self._number}-{name}.png", PICTURE_MARGIN)


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    pictures = Path(sys.argv[1]).resolve()
    shutil.rmtree(pictures, ignore_errors=True)
    pictures.mkdir(parents=True)
    with Desktop(size=(1280, 800), compositor=True) as desktop:
        tour = Tour(desktop, pictures)
        try:
            tour.set_up()
            note = tour.capture()
        except Exception:
            desktop.screen.picture(pictures / "failed.png")
            raise
        finally:
            tour.program.stop()
        print(f"\nThe note {note.relative_to(tour.home.vault)} in the vault:\n\n{note.read_text()}\n")
    print(f"Pictures of every window are in {sys.argv[1]}:")
    for picture in sorted(pictures.glob("*.png")):
        print(f"  {picture.name}")


if __name__ == "__main__":
    main()

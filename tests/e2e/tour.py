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
        self._home = Home(desktop.folder / "user")
        self._home.make_vault(self._home.folder / "Work")
        self._program = Program(desktop, self._home, pictures / "output.txt")

    def walk(self):
        """Gives the vault and the note written in it."""
        self._set_up()
        return self._home.vault, self._capture()

    def _set_up(self):
        program = self._program
        wizard = self._screen.window("Flitmark Setup")
        program.find("Quick Note Capture for Obsidian")
        self._picture(wizard, "wizard-welcome")
        program.click("Get Started", "push button")
        program.click("Notes", "radio button")
        self._picture(wizard, "wizard-vault")
        program.click("Next", "push button")
        program.find("Configure Quick Tags")
        self._picture(wizard, "wizard-quick-tags")
        program.click("Next", "push button")
        program.find("You're All Set!")
        self._picture(wizard, "wizard-finish")
        program.click("Start Using Flitmark", "push button")
        self._picture(self._screen.window("Flitmark Button"), "button")
        self._picture(self._screen.window("Start Flitmark automatically?"), "login-question")
        program.click("Not Now", "push button")

    def _capture(self):
        program = self._program
        self._screen.click(*self._screen.window("Flitmark Button").geometry.centre)
        panel = self._screen.window("Flitmark")
        editor = program.find("Note", window="Flitmark")
        wait_until(lambda: editor.has("focused"), "the editor to have the keyboard")
        self._picture(panel, "panel-empty")
        self._screen.type(TEXT)
        for tag in TAGS:
            program.click(tag, "check box", "Flitmark")
        wait_until(lambda: editor.text == TEXT, "the text in the editor")
        self._picture(panel, "panel-text")
        self._screen.key("ctrl+Return")
        program.find("Saved", "label")
        self._picture(panel, "panel-saved")
        note = wait_until(lambda: self._home.notes(), "the note in the vault")[0]
        wait_until(lambda: not panel.is_on_screen, "the panel to close")
        return note

    def _picture(self, window, name):
        """Takes a picture as soon as nothing moves any more, or shortly after."""
        self._number += 1
        path = self._pictures / f"{self._number}-{name}.png"
        window.picture(path, PICTURE_MARGIN)

    def stop(self):
        self._program.stop()


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    pictures = Path(sys.argv[1]).resolve()
    shutil.rmtree(pictures, ignore_errors=True)
    pictures.mkdir(parents=True)
    with Desktop(size=(1280, 800), compositor=True) as desktop:
        tour = Tour(desktop, pictures)
        try:
            vault, note = tour.walk()
        except Exception:
            desktop.screen.picture(pictures / "failed.png")
            raise
        finally:
            tour.stop()
        print(f"\nThe note {note.relative_to(vault)} in the vault:\n\n{note.read_text()}\n")
    print(f"Pictures of every window are in {sys.argv[1]}:")
    for picture in sorted(pictures.glob("*.png")):
        print(f"  {picture.name}")


if __name__ == "__main__":
    main()

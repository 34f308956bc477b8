# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""The base of all end-to-end tests: a fresh desktop and home for each, and evidence when one fails."""

import contextlib
import functools
import os
import shutil
import unittest
from pathlib import Path

from .accessibility import unless_gone
from .bystander import Bystander
from .desktop import Desktop
from .home import Home
from .program import Program
from .waiting import NotInTime, wait_for, wait_until

# Far from midnight and from the hours of the daily reviews, which would take the keyboard.
AFTERNOON = "@2026-01-22 14:00:00"

ARTIFACTS = Path(os.environ.get("FLITMARK_E2E_ARTIFACTS", "e2e-artifacts"))

# What a sanitizer or the toolkit says when the program did something it must not do.
_ALARMS = ("ERROR: AddressSanitizer", "ERROR: LeakSanitizer", "WARNING: ThreadSanitizer", "runtime error:",
           "ASSERT", "QObject::connect", "Cannot create children for a parent", "QBackingStore::endPaint")


def _ending_well(test):
    @functools.wraps(test)
    def wrapped(self):
        test(self)
        if self.program is not None:
            self.check_output()
            self.end_program()

    return wrapped


def _leaving_evidence(step):
    @functools.wraps(step)
    def wrapped(self):
        try:
            step(self)
        except unittest.SkipTest:
            raise
        except BaseException:
            self.keep_evidence()
            raise

    return wrapped


class DesktopCase(unittest.TestCase):
    """`start` runs the program for the user `home` on `desktop`, with `VARIABLES` in its environment; everything
    is ended after the test."""

    SIZE = (1440, 900)
    COMPOSITOR = False
    WINDOW_MANAGER = "openbox"
    VARIABLES = {}

    def __init_subclass__(cls, **options):
        super().__init_subclass__(**options)
        for name, test in list(vars(cls).items()):
            if name.startswith("test_"):
                setattr(cls, name, _leaving_evidence(_ending_well(test)))
            elif name == "setUp":
                setattr(cls, name, _leaving_evidence(test))

    def setUp(self):
        self.program = self.screen = None
        self.artifacts = ARTIFACTS / self.id()
        shutil.rmtree(self.artifacts, ignore_errors=True)
        self.desktop = Desktop(self.SIZE, self.COMPOSITOR, self.WINDOW_MANAGER).start()
        self.addCleanup(self.desktop.stop)
        self.screen = self.desktop.screen
        self.home = Home(self.desktop.folder / "user")

    def start(self, clock=AFTERNOON, **variables):
        """Starts the program; it must still run when the test ends, unless the test ended it."""
        program = Program(self.desktop, self.home, self.desktop.folder / "output.txt", clock, self.VARIABLES | variables)
        self.addCleanup(program.stop)
        self.program = program
        return program

    def start_with_button(self, clock=AFTERNOON, **variables):
        """Starts the program of a user who finished the set-up and waits for its button."""
        program = self.start(clock, **variables)
        self.screen.window("Flitmark Button")
        program.find("Flitmark Button")
        return program

    def start_bystander(self):
        """Opens another program's window, which has the keyboard from then on."""
        bystander = Bystander(self.desktop)
        self.addCleanup(bystander.stop)
        return bystander

    def button(self):
        return self.screen.window("Flitmark Button")

    def click_button(self):
        self.screen.click(*self.button().geometry.centre)

    def open_menu(self):
        """Opens the button's menu and gives its window."""
        self.screen.click(*self.button().geometry.centre, 3)
        return self.screen.window("Flitmark Menu")

    def open_panel(self):
        """Opens the panel by its button and waits until one can type. Gives its window."""
        self.click_button()
        panel = self.screen.window("Flitmark")
        self.wait_for_focus("Note")
        return panel

    def open_by_hotkey(self):
        """Opens the panel by the hotkey, as soon as that works, and waits until one can type."""
        def opens():
            self.screen.key("alt+n")
            # Pressed again before the panel is there it would close it.
            with contextlib.suppress(NotInTime):
                return self.screen.window("Flitmark", timeout=5)

        wait_until(opens, "the hotkey to work")
        self.wait_for_focus("Note")

    def panel_is_open(self):
        return bool(self.screen.windows("Flitmark"))

    def wait_until_panel_closed(self):
        wait_until(lambda: not self.panel_is_open(), "the panel to close")

    def wait_for_focus(self, name):
        """Waits until the control of this name has the keyboard, also in the eyes of the desktop."""
        def has_it():
            control = self.program.focused()
            if not control or control.name != name:
                return False
            window = self.screen.active_window()
            return window and window.title == control.window.name

        wait_until(lambda: unless_gone(has_it),
                   lambda: f'"{name}" to have the keyboard, which {self.program.focused()} in {self.screen.active_window()} has')

    def editor(self):
        return self.program.find("Note", window="Flitmark")

    def wait_for_text(self, text):
        """Waits until the note editor holds exactly this text."""
        editor = self.editor()
        wait_for(text, lambda: editor.text)

    def wait_for_draft(self, text):
        wait_for(text, lambda: self.home.draft().get("content", ""))

    def check_output(self):
        """Fails when the program ended by itself or complained about its own working."""
        output = self.program.output()
        if not self.program.ended_on_purpose:
            self.assertIsNone(self.program.status, f"the program ended by itself; its output:\n{output}")
        alarms = [line for line in output.splitlines() if any(alarm in line for alarm in _ALARMS)]
        self.assertEqual(alarms, [], output)

    def end_program(self):
        """Asks the program to end, if it still runs, and fails unless it does so without a fault. Only now can a sanitizer
        tell what was leaked."""
        if self.program.is_running:
            self.program.stop()
            self.assertEqual(self.program.status, 0, f"the program did not end well; its output:\n{self.program.output()}")
            self.check_output()

    def keep_evidence(self):
        """Leaves a picture of the screen, the controls and the program's output for whoever looks into a failure."""
        if self.screen is None:
            return
        self.artifacts.mkdir(parents=True, exist_ok=True)
        self.screen.picture(self.artifacts / "screen.png")
        if self.program is not None:
            (self.artifacts / "output.txt").write_text(self.program.output())
            (self.artifacts / "controls.txt").write_text(self.program.tree())
        (self.artifacts / "active.txt").write_text(f"{self.screen.active_window()} {self.screen.focused_window()} {self.screen.stacking()}")
        (self.artifacts / "windows.txt").write_text(self.screen.run("xwininfo", "-root", "-tree"))
        print(f"evidence left in {self.artifacts}")

    def wait_for_line(self, line):
        """Waits until today's note has this line."""
        note = self.home.daily_note
        wait_until(lambda: line in note.read_text().splitlines(), note.read_text)

    def wait_for_note(self, folder="Inbox"):
        """The path of the first note in the folder of the vault, as soon as it is there."""
        return wait_until(lambda: self.home.notes(folder), f"a note in {folder}")[0]


class SetUpCase(DesktopCase):
    """The user has a vault and finished the set-up, with `SETTINGS` instead of the defaults."""

    SETTINGS = {}

    def setUp(self):
        super().setUp()
        self.home.make_vault()
        self.home.complete_setup(**self.SETTINGS)

# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""Pictures of the panel, taken where there is no display, and the mode on a display."""

import os
import struct
import subprocess
import tempfile
import unittest
from pathlib import Path

from desktop.case import DesktopCase
from desktop.home import Home
from desktop.program import SANITIZER_OPTIONS, executable
from desktop.waiting import PATIENCE, hold

DEMO_TEXT = """Quick capture demo for Flitmark.

- Capture the raw thought before it disappears
- Add the default focus tags
- Save it straight into the Obsidian inbox

Follow up during the next daily review."""


def size_of(picture):
    return struct.unpack(">II", picture.read_bytes()[16:24])


class PictureTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.home = Home(self.folder / "user")

    def run_program(self, picture, tab, **variables):
        environment = SANITIZER_OPTIONS | {
            "PATH": os.environ["PATH"], "HOME": str(self.home.folder), "FLITMARK_SCREENSHOT_MODE": "1",
            "FLITMARK_SCREENSHOT_TAB": tab, "FLITMARK_SCREENSHOT_OUTPUT": str(picture)}
        return subprocess.run([executable()], env=environment | variables, timeout=60 * PATIENCE, capture_output=True).returncode

    def test_each_tab_without_a_display(self):
        pictures = {}
        for tab in ("new", "browse", "Daily", "settings"):
            picture = self.folder / "not" / "yet" / f"{tab}.png"
            self.assertEqual(self.run_program(picture, tab), 0)
            self.assertEqual(size_of(picture), (640, 540))
            pictures[tab] = picture.read_bytes()
        self.assertEqual(pictures["settings"], pictures["new"], "any other word is the New tab")
        self.assertEqual(len(set(pictures.values())), 3)
        large = self.folder / "large.png"
        self.assertEqual(self.run_program(large, "new", QT_SCALE_FACTOR="2"), 0)
        self.assertEqual(size_of(large), (1280, 1080))

    def test_an_unwritable_path_changes_nothing(self):
        self.home.complete_setup(panel_width=500, panel_height=600)
        self.home.draft_path.write_text('{"content": "kept", "title": "", "noteType": "Fleeting", "timestamp": 0}')
        before = self.home.config(), self.home.draft()
        self.assertEqual(self.run_program("/proc/none/picture.png", "new"), 0)
        self.assertEqual((self.home.config(), self.home.draft()), before)


class ModeTest(DesktopCase):
    def test_without_an_output_the_program_stays(self):
        self.start_with_button(FLITMARK_SCREENSHOT_MODE="1", FLITMARK_SCREENSHOT_TAB="browse")
        hold(lambda: self.program.is_running and not self.panel_is_open(), "running on without a panel", 1.5)
        self.click_button()
        panel = self.screen.window("Flitmark").geometry
        self.assertEqual((panel.width, panel.height), (640, 540))
        items = self.program.find("Vault items").children
        self.assertEqual([item.name for item in items], ["Daily", "Inbox", "Projects", "Client Notes", "Research",
                                                         "launch-plan.md", "weekly-review.md"])
        self.program.click("New", window="Flitmark")
        self.wait_for_text(DEMO_TEXT)
        self.assertEqual(self.home.draft(), {})

    def test_other_values_leave_the_mode_off(self):
        self.start(FLITMARK_SCREENSHOT_MODE="true", FLITMARK_SCREENSHOT_OUTPUT=str(self.desktop.folder / "no.png"))
        self.screen.window("Flitmark Setup")
        hold(lambda: self.program.is_running, "running on", 1.5)
        self.assertFalse((self.desktop.folder / "no.png").exists())

# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""The help window: every text of every section, read as a screen reader does."""

import json
from pathlib import Path

from desktop.case import SetUpCase
from desktop.waiting import wait_until

HELP = "Flitmark Help"
TEXTS = json.loads((Path(__file__).parent / "help_texts.json").read_text())


class HelpTest(SetUpCase):
    def setUp(self):
        super().setUp()
        self.opened = self.desktop.folder / "opened"
        tools = self.desktop.folder / "tools"
        tools.mkdir()
        (tools / "xdg-open").write_text(f'#!/bin/sh\necho "$1" >>"{self.opened}"\n')
        (tools / "xdg-open").chmod(0o755)
        self.start_with_button(PATH=f"{tools}:{self.desktop.environment['PATH']}")

    def open_help(self):
        self.open_menu()
        # From its end: Quit, the Pomodoro timer, Help.
        self.screen.key("Up", "Up", "Up", "Return")
        return self.screen.window(HELP)

    def names(self):
        return {control.name for control in self.program.find_all(window=HELP)}

    def wait_for_opened(self, target):
        wait_until(lambda: self.opened.exists() and target in self.opened.read_text().split(), f"{target} to be opened")

    def test_every_section_has_its_texts(self):
        window = self.open_help()
        place = window.geometry
        self.assertEqual((place.width, place.height), (700, 550))
        self.assertAlmostEqual(place.centre[0], self.SIZE[0] / 2, delta=20)
        self.assertAlmostEqual(place.centre[1], self.SIZE[1] / 2, delta=40)
        self.assertIn("Version 1.2", self.names())
        self.assertIn("Icon (48 x 48)", window.property("_NET_WM_ICON"))
        rows = [row.name for row in self.program.find_all(role="radio button", window=HELP)]
        self.assertEqual(rows, list(TEXTS))
        for section, texts in TEXTS.items():
            self.program.click(section, "radio button", HELP)
            wait_until(lambda: set(texts) <= self.names(), lambda: f"{set(texts) - self.names()} in {section}")
            for text in texts:
                control = self.program.find(text, window=HELP)
                self.assertLessEqual(control.extents.right, place.right, f"{text} reaches out of the window")
        self.program.find("On this computer: ~/.config/Flitmark/config.json")

    def test_opens_anew_and_only_once(self):
        bystander = self.start_bystander()
        window = self.open_help()
        self.wait_for_focus("Overview")
        self.screen.key("Down", "Down")
        self.program.find("Quick Tags", window=HELP)
        self.open_help()
        self.assertEqual(len(self.screen.windows(HELP)), 1)
        self.program.find("Quick Tags", window=HELP)
        for leave in (lambda: self.program.click("Done", window=HELP), lambda: self.screen.key("Escape"),
                      lambda: window.close()):
            leave()
            wait_until(lambda: not self.screen.windows(HELP), "the help to close")
            wait_until(lambda: bystander.window.is_active, "the keyboard to move on")
            window = self.open_help()
            self.program.find("Welcome to Flitmark", window=HELP)
            wait_until(lambda: window.is_active, "the help to have the keyboard")

    def test_opens_the_web_site_and_the_folder(self):
        self.open_help()
        self.program.click("Pieces Integration", "radio button", HELP)
        self.program.click("Visit pieces.app", window=HELP)
        self.wait_for_opened("https://pieces.app")
        self.program.click("Troubleshooting", "radio button", HELP)
        self.screen.key("End")
        self.program.click("Open Config Folder", window=HELP)
        self.wait_for_opened(f"file://{self.home.own_folder}")

    def test_texts_can_be_copied(self):
        self.open_help()
        self.wait_for_focus("Overview")
        self.screen.key("ctrl+a", "ctrl+c")
        wait_until(lambda: TEXTS["Overview"][-1] in self.screen.run("xclip", "-o", "-selection", "clipboard"),
                   "the texts in the clipboard")

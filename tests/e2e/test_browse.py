# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""Walking through the vault, and what is handed to the program that opens notes."""

import shutil

from desktop.case import SetUpCase
from desktop.waiting import wait_until

class BrowseTest(SetUpCase):
    def setUp(self):
        super().setUp()
        self.folder = self.home.vault / "R&D #2"
        self.folder.mkdir()
        (self.folder / "Why? Plan #1, 50% é.md").write_text("# Plan\n\nBecause\n")
        self.programs = self.home.folder / "bin"

    def open_browse_tab(self):
        self.start_with_button(PATH=str(self.programs))
        self.open_panel()
        self.program.click("Browse", window="Flitmark")

    def open_item(self, name):
        self.program.click(name, "list item", "Flitmark")

    def test_opens_a_note_of_any_name(self):
        self.home.have_obsidian()
        self.open_browse_tab()
        self.open_item("R&D #2")
        note = self.program.find("Why? Plan #1, 50% é.md", "list item", "Flitmark")
        self.assertEqual(note.description, "Because")
        self.program.find("1 notes", "label", "Flitmark")
        self.open_item(note.name)
        opened = self.home.folder / "opened"
        wait_until(lambda: opened.exists() and opened.read_text(), "the link to be opened")
        self.assertEqual(opened.read_text(), "obsidian://open?vault=Notes&file="
                         "R%26D%20%232/Why%3F%20Plan%20%231%2C%2050%25%20%C3%A9\n")

    def test_goes_on_without_a_program_or_the_folder(self):
        self.open_browse_tab()
        self.open_item("R&D #2")
        self.open_item("Why? Plan #1, 50% é.md")
        self.program.find("No program opens obsidian: links", window="Flitmark")
        self.program.click("Open the file", "push button", "Flitmark")
        self.program.wait_until_gone("Open the file", "push button", "Flitmark")
        shutil.rmtree(self.folder)
        self.program.click("Refresh", "push button", "Flitmark")
        self.program.find("Empty folder", "label", "Flitmark")
        shutil.rmtree(self.home.vault)
        self.program.click("Vault", "push button", "Flitmark")
        self.program.find("Empty folder", "label", "Flitmark")
        (self.home.vault / "Inbox").mkdir(parents=True)
        self.program.click("Refresh", "push button", "Flitmark")
        self.program.find("1 folders", "label", "Flitmark")

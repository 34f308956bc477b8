# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""The first day of a user who keeps daily notes where Obsidian's settings put them, and has changed no setting."""

from desktop.case import SetUpCase
from desktop.waiting import PATIENCE, wait_until

NOTE = """---
tags: [day]
---
# Thursday

### To do
- [ ] Call [[People/Ann|Ann]] 📅 2026-01-22
    - [/] Write *the* page ^page
- [x] Sleep
"""


class OwnNoteTest(SetUpCase):
    def setUp(self):
        super().setUp()
        self.home.write_obsidian_settings("daily-notes.json", '{"folder": "Journal", "format": "YYYY/YYYY-MM-DD"}')
        self.note = self.home.vault / "Journal" / "2026" / "2026-01-22.md"

    def write_note(self, line_end):
        self.note.parent.mkdir(parents=True, exist_ok=True)
        self.note.write_bytes(NOTE.replace("\n", line_end).encode())

    def wait_for_bytes(self, expected, line_end):
        expected = expected.replace("\n", line_end).encode()
        wait_until(lambda: self.note.read_bytes() == expected, lambda: f"{self.note.read_bytes()}")

    def spend_the_day(self, line_end):
        self.write_note(line_end)
        self.home.write_coach_config('{"pomodoro_interval_minutes": 10}')
        programs = self.home.have_obsidian()
        self.start_with_button(clock=f"@2026-01-22 14:00:00 x{40 / PATIENCE:g}", PATH=str(programs))
        self.open_panel()
        self.program.click("Daily", window="Flitmark")
        self.program.find("To do", "heading", "Flitmark")
        self.program.click("Ann", "link", "Flitmark")
        opened = self.home.folder / "opened"
        wait_until(opened.exists, "the link to be opened")
        self.assertEqual(opened.read_text(), "obsidian://open?vault=Notes&file=People/Ann\n")

        self.program.click("Call Ann 📅 2026-01-22", "check box", "Flitmark")
        done = NOTE.replace("- [ ] Call", "- [x] Call")
        self.wait_for_bytes(done, line_end)
        self.program.click("Start Pomodoro for a task", window="Flitmark")
        self.program.click("Write the page ^page", "push button", "Flitmark")
        self.screen.window("Pomodoro Check-in")
        with_tomato = done.replace("page ^", "page 🍅 ^")
        self.wait_for_bytes(with_tomato, line_end)
        self.program.click("On track", "push button", "Pomodoro Check-in")
        self.program.click("Stop & remove from task", window="Flitmark")
        wait_until(lambda: b"## Pomodoro Log" in self.note.read_bytes(), "the log")
        time = self.note.read_text().split("| 1 | ")[1][:5]
        self.wait_for_bytes(with_tomato + "\n## Pomodoro Log\n**Today:** 1/8 completed\n\n| # | Time | Focus |\n"
                            f"|---|------|-------|\n| 1 | {time} | Write the page ^page |\n", line_end)
        self.assertFalse((self.home.vault / "Daily").exists())

    def test_the_first_day(self):
        self.spend_the_day("\n")

    def test_the_first_day_with_a_note_from_windows(self):
        self.spend_the_day("\r\n")

    def test_no_note_yet_and_no_program_for_links(self):
        self.start_with_button(clock="@2026-01-22 14:00:00", PATH=str(self.home.folder / "bin"))
        self.open_panel()
        self.program.click("Daily", window="Flitmark")
        self.program.find("Looked for:\nDaily/2026/2026-01-22.md\nJournal/2026/2026-01-22.md", "label", "Flitmark")
        self.program.click("Create in Obsidian", "push button", "Flitmark")
        self.program.find("No program opens obsidian: links", window="Flitmark")
        self.home.have_obsidian()
        self.program.click("Create in Obsidian", "push button", "Flitmark")
        self.write_note("\n")
        # It is looked for; nobody need refresh.
        self.program.find("Sleep", "check box", "Flitmark")

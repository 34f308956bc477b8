# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""Today's note in the Daily tab, while another program writes into the same file."""

from desktop.case import DesktopCase
from desktop.waiting import wait_until

NOTE = """## Today's Focus
**Ship it**

## Tasks
- [ ] Write the page
- [ ] Send it out

## Pomodoro Log
**Today:** 0/8 completed

| # | Time | Focus |
|---|------|-------|
"""


class DailyTest(DesktopCase):
    def setUp(self):
        super().setUp()
        self.home.make_vault()
        self.home.complete_setup()
        self.note = self.home.vault / "Daily" / "2026" / "2026-01-22.md"
        self.note.parent.mkdir(parents=True)
        self.note.write_text(NOTE)

    def open_daily_tab(self):
        self.open_panel()
        self.program.click("Daily", window="Flitmark")
        self.program.find("Write the page", "check box", "Flitmark")

    def wait_for_line(self, line):
        wait_until(lambda: line in self.note.read_text().splitlines(), self.note.read_text)

    def test_edits_of_both_sides_are_kept(self):
        self.start_with_button(clock="@2026-01-22 14:00:00")
        self.open_daily_tab()
        # In place, at the end, and by replacing the file: what an editor and a sync program do.
        self.note.write_text(NOTE.replace("## Tasks\n", "## Tasks\n- [ ] From outside\n"))
        self.program.click("Write the page", "check box", "Flitmark")
        self.wait_for_line("- [x] Write the page")
        with self.note.open("a") as file:
            file.write("appended\n")
        self.program.click("Send it out", "check box", "Flitmark")
        self.wait_for_line("- [x] Send it out")
        replacement = self.note.with_name("replacement")
        replacement.write_text("first line\n" + self.note.read_text())
        replacement.rename(self.note)
        self.program.click("Send it out", "check box", "Flitmark")
        self.wait_for_line("- [ ] Send it out")

        expected = "first line\n" + NOTE.replace("## Tasks\n", "## Tasks\n- [ ] From outside\n").replace(
            "- [ ] Write", "- [x] Write") + "appended\n"
        self.assertEqual(self.note.read_text(), expected)
        self.assertEqual([path.name for path in self.note.parent.iterdir()], [self.note.name])
        self.assertEqual([line for line in self.program.output().splitlines() if "SignalManager: " not in line], [])

    def test_a_task_gets_its_pomodoro(self):
        self.start_with_button(clock="@2026-01-22 14:00:00 x120")
        self.open_daily_tab()
        starts = [control for control in self.program.find_all("Start Pomodoro for this task", window="Flitmark")]
        self.screen.click(*self.program.place_of(starts[0]).centre)
        checkin = self.screen.window("Pomodoro Check-in")
        wait_until(lambda: checkin.is_active, "the check-in to have the keyboard")
        self.wait_for_line("- [ ] Write the page 🍅")
        self.program.click("On track", "push button", "Pomodoro Check-in")
        self.wait_for_line("**Today:** 1/8 completed")
        self.assertRegex(self.note.read_text(), r"\| 1 \| 14:\d\d \| Ship it \|")
        focus = (self.home.vault / ".vault-state" / "flit-mark" / "daily-focus.json").read_text()
        self.assertIn('"pomodoro_count": 1', focus)

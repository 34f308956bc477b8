# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""Today's note in the Daily tab, while another program writes into the same file."""

import json
import re
import time

from desktop.case import SetUpCase
from desktop.waiting import PATIENCE, wait_until

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


class DailyTest(SetUpCase):
    def setUp(self):
        super().setUp()
        self.home.write_daily_note(NOTE)
        self.note = self.home.daily_note

    def open_daily_tab(self):
        self.open_panel()
        self.program.click("Daily", window="Flitmark")
        self.program.find("Write the page", "check box", "Flitmark")

    def test_edits_of_both_sides_are_kept(self):
        self.start_with_button()
        self.open_daily_tab()
        # In place, at the end, and by replacing the file: what an editor and a sync program do. No row moves below the pointer.
        self.note.write_text(NOTE.replace("## Tasks\n", "## Tasks\nWritten outside\n"))
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

        expected = "first line\n" + NOTE.replace("## Tasks\n", "## Tasks\nWritten outside\n").replace(
            "- [ ] Write", "- [x] Write") + "appended\n"
        self.assertEqual(self.note.read_text(), expected)
        # The old file goes right after the new one has taken its name.
        wait_until(lambda: list(self.note.parent.iterdir()) == [self.note], "the note alone in its folder")
        self.assertEqual([line for line in self.program.output().splitlines() if "SignalManager: " not in line], [])

    def test_a_very_long_note_keeps_nobody_waiting(self):
        tasks = [f"Task {number}" for number in range(20000)]
        self.home.write_daily_note("\n- [ ] ".join(["## Focus\n" + "words " * 800000 + "\n## Tasks", *tasks]) + "\n")
        self.start_with_button()
        self.open_panel()
        self.program.click("Daily", window="Flitmark")
        for wait in (self.wait_until_panel_closed, lambda: self.program.find("Task 0", "check box", "Flitmark")):
            begin = time.monotonic()
            self.screen.run("gapplication", "action", "org.flitmark.Flitmark", "toggle-panel")
            wait()
            self.assertLess(time.monotonic() - begin, 5 * PATIENCE)
        # Backwards from below the list, and on by the wheel.
        self.program.find("Refresh", window="Flitmark").take_focus()
        self.screen.key("shift+Tab")
        last = self.program.find("Task 19999", "check box", "Flitmark")
        self.screen.click(*self.program.place_of(last).centre, 4)
        self.screen.xdotool("click", "--repeat", 40, "--delay", 5, 4)
        self.program.wait_until_gone("Task 19990", "check box", "Flitmark")
        panel = self.screen.window("Flitmark").geometry
        far = min(self.program.find_all(role="check box", window="Flitmark"),
                  key=lambda box: abs(self.program.place_of(box).y - panel.centre[1])).name
        self.program.click(far, "check box", "Flitmark")
        self.wait_for_line(f"- [x] {far}")

    def test_the_timer_is_steered_and_the_note_deleted_meanwhile(self):
        self.home.write_coach_config('{"pomodoro_interval_minutes": 2}')
        self.start_with_button(clock=f"@2026-01-22 14:00:00 x{40 / PATIENCE:g}")
        self.open_daily_tab()
        self.program.click("Start Pomodoro for a task", window="Flitmark")
        self.program.find("Interval: 2 min", "label", "Flitmark")
        self.program.click("Send it out", "push button", "Flitmark")
        for control, says in [("Pause", "Timer paused"), ("Reset timer", "Timer restarted"), ("Pause", "Timer paused"),
                              ("Resume", "Timer resumed")]:
            self.program.click(control, window="Flitmark")
            self.program.wait_for_output(f"CheckinWindowController: {says}")
        self.screen.window("Pomodoro Check-in")
        # Pomodoros follow each other: however many there were, no further one comes.
        self.program.click("Pause", window="Flitmark")
        self.program.find("Resume", window="Flitmark")
        task = wait_until(lambda: re.search(r"- \[ \] (Send it out( 🍅)+)\n", self.note.read_text()), "the Pomodoro")[1]

        self.note.unlink()
        self.program.click(task, "check box", "Flitmark")
        self.program.wait_for_output("Failed to toggle task: No such file or directory")
        self.program.find("No daily note", "label", "Flitmark")
        self.program.click("Stop & remove from task", window="Flitmark")
        self.program.find("Start Pomodoro for a task", window="Flitmark")
        self.program.click("On track", "push button", "Pomodoro Check-in")
        wait_until(lambda: not self.screen.windows("Pomodoro Check-in"), "the check-in to close")
        self.assertFalse(self.note.exists(), "a note made up by an edit")
        self.home.write_daily_note(NOTE)
        self.program.click("Refresh", window="Flitmark")
        self.program.find("Write the page", "check box", "Flitmark")

    def test_coach_alerts_are_answered(self):
        self.home.write_coach_config("{ nonsense")
        self.start_with_button()
        self.program.wait_for_output("SignalManager: Failed to load config: ")
        self.assertEqual((self.home.signals / "coach-config.json").read_text(), "{ nonsense")
        self.open_daily_tab()
        alert_file = self.home.signals / "coach-alert.json"
        for answer, response, focus in [("Intentional change", "intentional_pivot", "Ship it"),
                                        ("Snooze", "snooze", "Ship it"), ("Refocusing now", "refocusing", "The plan")]:
            with self.subTest(answer):
                alert = {"alert_id": response, "triggered_at": "now", "planned": "The plan", "actual": "The news",
                         "misalignment_count": 2, "status": "pending", "more": [1.50]}
                alert_file.write_text(json.dumps(alert))
                self.program.find("The news", "label", "Flitmark")
                self.program.click(answer, "push button", "Flitmark")
                self.program.wait_until_gone("Focus Check", window="Flitmark")
                wait_until(lambda: self.home.signal("coach-alert") == alert | {"status": "acknowledged"}, "the receipt")
                written = self.home.signal("user-response")
                self.assertEqual([written["alert_id"], written["response"], written["note"]], [response, response, ""])
                self.wait_for_line(f"**{focus}**")
                self.assertEqual(self.home.signal("daily-focus").get("focus"), "The plan" if focus == "The plan" else None)

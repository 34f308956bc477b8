# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""A day with the program without seeing it: by what a screen reader says, and by what it can do."""

import unittest

from desktop.day import DayCase
from desktop.screen_reader import ScreenReader
from desktop.waiting import PATIENCE, wait_until


class ScreenReaderDayTest(DayCase):
    def setUp(self):
        super().setUp()
        self.reader = ScreenReader(self)

    def open_panel(self):
        self.reader.act("Flitmark Button")
        self.reader.hears("Note", "text")

    def turn_to(self, tab):
        self.reader.act(tab, "page tab")
        self.reader.hears(tab, "page tab", "selected")

    def test_set_up(self):
        self.home.config_path.unlink()
        self.home.forget_login_question()
        self.start()
        reader = self.reader
        reader.hears("Flitmark Setup")
        reader.hears("Get Started", "push button")
        reader.act("Get Started")
        reader.hears("Select Your Obsidian Vault")
        reader.hears("Notes", "radio button", "checked", str(self.home.vault))
        reader.act("Use custom folder path", "check box")
        reader.hears("Vault path", "text")
        self.screen.type("/nowhere")
        reader.hears("There is no folder at this path.")
        reader.act("Notes", "radio button")
        reader.hears("Notes checked")
        reader.write("Subfolder", "Captured")
        reader.act("Next")
        reader.hears("Configure Quick Tags")
        reader.act("Next")
        reader.hears("You're All Set!")
        reader.act("Start Using Flitmark")
        reader.hears("Start Flitmark automatically?")
        reader.act("Not Now")
        wait_until(self.home.login_question_is_answered, "the answer")
        self.assertEqual(self.home.config()["save_subfolder"], "Captured")

    def test_notes_settings_and_help(self):
        self.begin()
        reader = self.reader
        self.open_panel()
        self.screen.type("Call Ada")
        self.wait_for_text("Call Ada")
        reader.act("#priority/high", "check box")
        reader.hears("#priority/high checked")
        self.turn_to("Browse")
        for key, said in [("Tab", "Settings"), ("Tab", "Close"), ("Tab", "Vault"), ("Tab", "Refresh"), ("Tab", "Daily"),
                          ("Down", "Inbox"), ("Down", "Projects"), ("Return", "Garden.md")]:
            self.screen.key(key)
            reader.hears(said)
        self.screen.key("Return")
        self.wait_until_opened("Garden")
        self.turn_to("New")
        reader.act("Save")
        reader.hears("Saved")
        self.assertIn("Call Ada\n\n#priority/high", self.wait_for_note().read_text())

        reader.find("Flitmark Button", "push button").press("ShowMenu")
        reader.hears("Settings...", "menu item")
        self.screen.key("Return")
        reader.hears("Flitmark Settings")
        reader.hears("App", "page tab", "selected")
        self.turn_to("Notes")
        reader.act("Play sound on save", "check box")
        reader.hears("Play sound on save not checked")
        reader.go_to("Window Opacity", "slider")
        self.screen.key("Left")
        reader.hears("Window Opacity 90")
        self.turn_to("Pomodoro")
        reader.go_to("Coach Style", "combo box")
        self.screen.key("Down")
        reader.hears("Coach Style Tough Love")
        reader.act("Help")
        reader.hears("Flitmark Help", "dialog")
        reader.act("Keyboard Shortcuts", "radio button")
        reader.hears("Keyboard Shortcuts checked")
        reader.find("Keyboard Shortcuts", "heading")
        self.screen.key("Escape")
        reader.act("Done")
        wait_until(lambda: self.home.config().get("window_opacity") == 0.9, "the settings")
        self.assertIs(self.home.config()["play_sound_on_save"], False)

    def test_focus_tasks_and_a_pomodoro(self):
        self.home.write_coach_config('{"pomodoro_interval_minutes": 5}')
        self.begin(f"@2026-01-22 14:00:00 x{60 / PATIENCE:g}")
        reader = self.reader
        self.open_panel()
        self.turn_to("Daily")
        reader.act("Edit focus")
        reader.hears("Focus", "text")
        reader.write("Focus", "Rest")
        reader.act("Save")
        reader.hears("Edit focus", "push button")
        reader.act("Write the page", "check box")
        reader.hears("Write the page checked")
        reader.act("Add task")
        reader.hears("New task", "text")
        self.screen.type("Sleep\n")
        reader.hears("Add task", "push button")
        reader.act("Start Pomodoro for a task")
        reader.hears("Start Pomodoro", "dialog")
        reader.act("Sleep")
        reader.hears("of the Pomodoro remain")
        reader.hears("Pomodoro Check-in", "dialog", "CURRENT FOCUS", "Rest")
        reader.act("On track")
        self.wait_for_line("- [ ] Sleep 🍅")
        self.assertIn("- [x] Write the page", self.home.daily_note.read_text())

    def test_review(self):
        self.begin("@2026-01-22 18:59:57")
        self.reader.hears("Daily Review", "dialog", "plan tomorrow")
        self.reader.act("Open Daily Tab")
        self.reader.hears("Flitmark")
        self.reader.find("Write the page", "check box")


if __name__ == "__main__":
    unittest.main()

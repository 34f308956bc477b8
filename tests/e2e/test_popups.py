# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""The windows that come up by themselves, and the button's menu that starts what brings them up."""

import json
import re
import time

from desktop.case import SetUpCase
from desktop.program import WallClock
from desktop.waiting import PATIENCE, hold, wait_until

NOTE = """# Today

## Today's Focus
Ship it

## Pomodoro Log
**Today:** 0/8 completed

| # | Time | Focus |
|---|------|-------|
"""


class PopupsTest(SetUpCase):
    def setUp(self):
        super().setUp()
        self.home.write_daily_note(NOTE)
        self.note = self.home.daily_note

    def test_review_takes_the_keyboard_and_no_stray_key(self):
        bystander = self.start_bystander()
        self.start_with_button(clock="@2026-01-22 18:59:50")
        # Somebody types on and on.
        deadline = time.monotonic() + 30 * PATIENCE
        while not self.screen.windows("Daily Review"):
            self.assertLess(time.monotonic(), deadline, "the reminder did not come")
            self.screen.key("a", "space", "Return")
        review = self.screen.window("Daily Review")
        wait_until(lambda: review.is_active, "the reminder to have the keyboard")
        self.screen.key("Return", "space")
        hold(lambda: review.is_on_screen, "the reminder stays", 1)
        self.screen.key("Return", "space")
        hold(lambda: review.is_on_screen, "the reminder stays", 0.5)

        place = review.geometry
        self.assertEqual((place.x, place.y, place.width), (self.SIZE[0] - 280 - 20, 120, 280))
        self.assertEqual(review.property("_NET_WM_DESKTOP"), "4294967295")
        self.screen.key("Escape")
        wait_until(lambda: not self.screen.windows("Daily Review"), "the reminder to close")
        wait_until(lambda: bystander.window.is_active, "the other window to be active again")

    def test_pomodoro_is_answered_by_keyboard(self):
        bystander = self.start_bystander()
        self.start_pomodoros("14:00:00 x120", {})
        button = self.program.find("Flitmark Button", "push button")
        wait_until(lambda: "of the Pomodoro remain" in button.description, lambda: button.description)

        place = self.wait_for_checkin().geometry
        self.assertEqual((place.x, place.y, place.width), (self.SIZE[0] - 280 - 20, 20, 280))
        self.screen.key("Tab")
        self.wait_for_focus("On track")
        self.screen.key("Return")
        wait_until(lambda: "**Today:** 1/8 completed" in self.note.read_text(), self.note.read_text)
        wait_until(lambda: bystander.window.is_active, "the other window to be active again")

    def choose(self, item, says=""):
        """Chooses an item of the menu and waits for what the program says then."""
        self.open_menu()
        self.program.click(item, "menu item", "Flitmark Button")
        self.program.wait_for_output(f"CheckinWindowController: {says}")

    def open_menu_by(self, key):
        self.screen.key(key)
        first = self.program.find("Settings...", "menu item", "Flitmark Button")
        wait_until(lambda: first.has("focused"), "the menu to begin at its first item")

    def start_pomodoros(self, clock, coach_config):
        """Starts the program and the timer. The speed of the clock is for a program of the usual swiftness."""
        self.home.write_coach_config(json.dumps(coach_config))
        begin, speed = clock.split(" x")
        self.start_with_button(clock=f"@2026-01-22 {begin} x{float(speed) / PATIENCE:g}")
        self.choose("Start Pomodoro Timer", "Started Pomodoro timer")

    def wait_for_checkin(self):
        checkin = self.screen.window("Pomodoro Check-in")
        wait_until(lambda: checkin.is_active, "the check-in to have the keyboard")
        return checkin

    def answer(self, name, *keys):
        """Chooses an answer of the check-in and presses keys, the last of which is to close it."""
        self.wait_for_checkin()
        self.program.click(name, "push button", "Pomodoro Check-in")
        if keys:
            self.wait_for_focus("Focus")
            self.screen.key(*keys)
        wait_until(lambda: not self.screen.windows("Pomodoro Check-in"), "the check-in to close")

    def test_each_answer(self):
        self.start_pomodoros("14:00:00 x24", {"pomodoro_interval_minutes": 1})
        # What the program says, today's focus, what is logged in all, and what the coach is told.
        logged = []
        for answer, keys, says, focus, entry, told in [
            ("Close", (), "User dismissed check-in", "Ship it", None, {}),
            ("On track", (), "User confirmed on track", "Ship it", "Ship it", ("Ship it", 1)),
            ("Change focus", ("End", "s", "Return"), "Focus updated to: Ship its", "Ship its", "Ship its", ("Ship its", 1)),
            ("Done → New task", ("space", "n", "e", "w", "space", "Return"), "Completed task, new focus: new", "new",
             "Ship its", ("new", 2)),
        ]:
            with self.subTest(answer):
                self.answer(answer, *keys)
                self.program.wait_for_output(f"CheckinWindowController: {says}")
                logged += [entry] if entry else []
                rows = [fr"\| {number} \| 14:\d\d \| {text} \|\n" for number, text in enumerate(logged, 1)]
                expected = re.escape(NOTE.replace("Ship it", focus).replace("0/8", f"{len(logged)}/8"))
                wait_until(lambda: re.fullmatch(expected + "".join(rows), self.note.read_text()), self.note.read_text)
                signal = self.home.signal("daily-focus")
                self.assertEqual((signal["focus"], signal["pomodoro_count"]) if told else signal, told)
        self.answer("Snooze 1m")
        self.program.wait_for_output("Snoozed until 2026-01-22 13:")
        self.program.wait_for_output("Still snoozed until 2026-01-22 13:")
        self.assertEqual(self.screen.windows("Pomodoro Check-in"), [])
        self.wait_for_checkin()

    def test_no_checkin_outside_the_window_while_paused_or_when_stopped(self):
        self.start_pomodoros("14:00:00 x60", {"pomodoro_interval_minutes": 2, "checkin_start_time": "14:07"})
        button = self.program.find("Flitmark Button", "push button")
        self.program.wait_for_output("Outside check-in window")
        self.assertEqual(self.screen.windows("Pomodoro Check-in"), [])
        self.answer("On track")
        self.choose("Pause Check-ins", "Timer paused")
        frozen = button.description
        hold(lambda: not self.screen.windows("Pomodoro Check-in"), "no check-in while paused", 2.5 * PATIENCE)
        self.assertIn("remain", frozen)
        self.assertEqual(button.description.split(".")[0], frozen.split(".")[0])
        self.choose("Resume Check-ins", "Timer resumed")
        self.answer("Close")
        self.choose("Stop Pomodoro Timer")
        wait_until(lambda: "remain" not in button.description, lambda: button.description)
        hold(lambda: not self.screen.windows("Pomodoro Check-in"), "no check-in when stopped", 2.5 * PATIENCE)
        self.assertIn("**Today:** 1/8", self.note.read_text())
        # Still paused, but without a timer, there is nothing to resume.
        for item in ("Start Pomodoro Timer", "Pause Check-ins", "Stop Pomodoro Timer", "Start Pomodoro Timer"):
            self.choose(item)

    def test_sleeps_over_two_reviews_and_is_reminded_once(self):
        self.home.complete_setup(daily_review_times=["19:00", "19:10", "20:59"])
        clock = WallClock(self.desktop.folder / "clock", "18:01:55")
        self.start_with_button(clock=clock)
        clock.set("19:30:58")
        review = self.screen.window("Daily Review")
        wait_until(lambda: review.is_active, "the reminder to have the keyboard")
        self.program.click("Open Daily Tab", "push button", "Daily Review")
        self.program.find("Ship it", "label", "Flitmark")
        hold(lambda: not self.screen.windows("Daily Review"), "no other reminder", 0.5)

    def test_the_note_is_gone_when_asked_about(self):
        self.start_pomodoros("14:00:00 x30", {"pomodoro_interval_minutes": 1})
        self.note.unlink()
        self.answer("On track")
        self.program.wait_for_output("User confirmed on track")
        self.answer("Done → New task", "x", "Return")
        self.program.wait_for_output("Completed task, new focus: x")
        self.assertFalse(self.note.exists(), "a note made up by an answer")

    def test_quits_by_keyboard_and_keeps_the_draft(self):
        for number, (way, *keys) in enumerate([("menu", "Up", "Return"), ("panel", "ctrl+q"), ("settings", "ctrl+q")]):
            with self.subTest(way):
                self.start_with_button()
                self.open_panel()
                self.screen.type(str(number))
                self.wait_for_text("012"[:number + 1])
                if way == "menu":
                    self.open_menu_by("F10")
                elif way == "settings":
                    self.screen.key("ctrl+comma")
                    self.wait_for_focus("App")
                self.screen.key(*keys)
                self.assertEqual(self.program.wait_for_exit(), 0, self.program.output())
                self.assertEqual(self.home.draft()["content"], "012"[:number + 1])

    def test_menu_by_keyboard(self):
        self.start_with_button()
        self.open_panel()
        for key in ("shift+F10", "Menu"):
            # The note has a menu of its own.
            self.screen.key(key)
            self.program.find("Delete", "menu item", "Flitmark")
            self.screen.key("Escape")
            self.wait_for_focus("Note")
        self.program.find("Save").take_focus()
        for key in ("shift+F10", "Menu", "F10"):
            self.open_menu_by(key)
            self.screen.key("Escape")
            self.wait_for_focus("Save")


class ComposedPopupsTest(SetUpCase):
    COMPOSITOR = True

    def test_review_lies_at_the_same_place_with_its_shadow(self):
        self.start_with_button(clock="@2026-01-22 19:00:10")
        review = self.screen.window("Daily Review")
        place = review.geometry
        self.assertEqual((place.x + 12, place.y + 12, place.width - 24), (self.SIZE[0] - 280 - 20, 120, 280))
        self.program.click("Close", window="Daily Review")
        wait_until(lambda: not self.screen.windows("Daily Review"), "the reminder to close")

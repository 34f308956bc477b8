# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""The windows that come up by themselves, and the button's menu that starts what brings them up."""

import time
import unittest

from desktop.case import DesktopCase
from desktop.waiting import hold, wait_until

NOTE = """# Today

## Today's Focus
Ship it

## Pomodoro Log
**Today:** 0/8 completed

| # | Time | Focus |
|---|------|-------|
"""


class PopupsTest(DesktopCase):
    def setUp(self):
        super().setUp()
        self.home.make_vault()
        self.home.complete_setup()
        self.note = self.home.vault / "Daily" / "2026" / "2026-01-22.md"
        self.note.parent.mkdir(parents=True)
        self.note.write_text(NOTE)

    def open_menu(self):
        """Opens the button's menu and gives its window. It is no child of any control that a screen reader walks."""
        self.screen.click(*self.button().geometry.centre, 3)
        return self.screen.window("Flitmark Menu")

    def test_review_takes_the_keyboard_and_no_stray_key(self):
        bystander = self.start_bystander()
        self.start_with_button(clock="@2026-01-22 18:59:50")
        # Somebody types on and on.
        deadline = time.monotonic() + 30
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

    def test_pomodoro_from_the_menu_to_the_note(self):
        bystander = self.start_bystander()
        self.start_with_button(clock="@2026-01-22 14:00:00 x120")
        menu = self.open_menu().geometry
        self.assertEqual((menu.width, menu.height), (240, 4 + 32 + 9 + 32 + 4))
        self.screen.click(menu.x + 40, menu.y + 4 + 16)
        self.program.wait_for_output("Started Pomodoro timer (20 min intervals)")
        button = self.program.find("Flitmark Button", "push button")
        wait_until(lambda: "of the Pomodoro remain" in button.description, lambda: button.description)

        checkin = self.screen.window("Pomodoro Check-in")
        wait_until(lambda: checkin.is_active, "the check-in to have the keyboard")
        place = checkin.geometry
        self.assertEqual((place.x, place.y, place.width), (self.SIZE[0] - 280 - 20, 20, 280))
        self.screen.key("Tab")
        wait_until(lambda: (control := self.program.focused()) and control.name == "On track",
                   lambda: f"the first answer to have the keyboard, which {self.program.focused()} has")
        self.screen.key("Return")
        wait_until(lambda: not self.screen.windows("Pomodoro Check-in"), "the check-in to close")
        wait_until(lambda: "**Today:** 1/8 completed" in self.note.read_text(), self.note.read_text)
        self.assertRegex(self.note.read_text(), r"\| 1 \| 14:\d\d \| Ship it \|")
        wait_until(lambda: bystander.window.is_active, "the other window to be active again")

        menu = self.open_menu().geometry
        self.screen.click(menu.x + 40, menu.y + 4 + 32 + 16)
        wait_until(lambda: "remain" not in button.description, lambda: button.description)

    def test_quits_by_keyboard_with_the_panel_open(self):
        self.start_with_button()
        self.open_panel()
        self.open_menu()
        self.screen.key("Up", "Return")
        self.assertEqual(self.program.wait_for_exit(), 0, self.program.output())


class ComposedPopupsTest(DesktopCase):
    COMPOSITOR = True

    def test_review_lies_at_the_same_place_with_its_shadow(self):
        self.home.make_vault()
        self.home.complete_setup()
        self.start_with_button(clock="@2026-01-22 19:00:10")
        review = self.screen.window("Daily Review")
        place = review.geometry
        self.assertEqual((place.x + 12, place.y + 12, place.width - 24), (self.SIZE[0] - 280 - 20, 120, 280))
        self.program.click("Close", window="Daily Review")
        wait_until(lambda: not self.screen.windows("Daily Review"), "the reminder to close")


if __name__ == "__main__":
    unittest.main()

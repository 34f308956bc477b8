# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""The panel as a window: where it opens, how large it is, and how it is put away."""

import math

from desktop.accessibility import Rectangle
from desktop.case import SetUpCase
from desktop.screen import DRAG_STEP, TAKE_OVER_STEPS
from desktop.waiting import wait_for, wait_until

MARGIN = 12

# How far a drag may miss that the window manager takes over: the way until it does, and a step.
TOLERANCE = (TAKE_OVER_STEPS + 1) * DRAG_STEP

# From the corner of the panel to where its rounded edge can be grasped.
GRIP = 7


class PanelTest(SetUpCase):
    SETTINGS = {"panel_width": 480, "panel_height": 400}

    def assert_in_corner(self, panel, width, height):
        right, bottom = (length - MARGIN for length in self.SIZE)
        wait_for(Rectangle(right - width, bottom - height, width, height), lambda: panel.geometry)

    def assert_size(self, panel, width, height):
        """Waits until the panel has this size, as nearly as a drag goes, and the configuration its very size."""
        def near():
            return max(abs(panel.geometry.width - width), abs(panel.geometry.height - height)) <= TOLERANCE

        wait_until(near, lambda: f"a size of {width}x{height}; it is {panel.geometry}")
        wait_until(lambda: (self.home.config().get("panel_width"), self.home.config().get("panel_height")) ==
                   (panel.geometry.width, panel.geometry.height), "the size in the configuration")

    def test_opens_in_the_corner_and_closes(self):
        bystander = self.start_bystander()
        self.start_with_button()
        panel = self.open_panel()
        self.assert_in_corner(panel, 480, 400)
        self.assertTrue(panel.is_active)
        self.assertIn("ABOVE", panel.states())
        self.assertIn("SKIP_TASKBAR", panel.states())
        for closing in (lambda: self.program.click("Close", window="Flitmark"), self.click_button,
                        lambda: self.screen.key("Escape"), lambda: self.screen.window("Flitmark").close()):
            closing()
            self.wait_until_panel_closed()
            wait_until(lambda: bystander.window.is_active, "the other window to be active again")
            self.open_panel()

        # Whoever has gone on to work elsewhere is not pulled back when the panel closes.
        bystander.window.activate()
        other = self.screen.active_window()
        self.click_button()
        self.wait_until_panel_closed()
        self.assertEqual(self.screen.active_window(), other)

    def test_everything_in_it_can_be_clicked(self):
        """The button lies over the panel's corner: both must be within reach of the pointer."""
        self.start_with_button()
        panel = self.open_panel()
        button = self.button().geometry
        for control in [found for found in self.program.find_all(window="Flitmark")
                        if found.role in ("push button", "check box", "page tab", "radio button")]:
            place = self.program.place_of(control)
            self.assertTrue(place.right <= button.x or place.bottom <= button.y, f"{control} below the button")
            self.assertLessEqual(place.right, panel.geometry.right)
            self.assertLessEqual(place.bottom, panel.geometry.bottom)
        self.screen.type("x")
        self.program.click("Save", "push button", "Flitmark")
        self.wait_for_note()
        self.wait_until_panel_closed()

    def test_edges_and_corners_resize_within_limits(self):
        self.start_with_button()
        panel = self.open_panel()
        self.assert_in_corner(panel, 480, 400)
        anchored = (panel.geometry.right, panel.geometry.bottom)
        for name, grasp, by, size in [
            ("left edge", (1, 200), (-40, 0), (520, 400)),
            ("top edge", (240, 1), (0, -60), (520, 460)),
            ("top left corner", (GRIP, GRIP), (20, 30), (500, 430)),
            ("far beyond the largest size", (GRIP, GRIP), (-400, -450), (600, 800)),
            ("far below the smallest size", (GRIP, GRIP), (500, 700), (460, 360)),
            ("a size to remember", (1, 200), (-60, 0), (520, 360)),
        ]:
            with self.subTest(name):
                start = (panel.geometry.x + grasp[0], panel.geometry.y + grasp[1])
                self.screen.drag(start, (start[0] + by[0], start[1] + by[1]))
                self.assert_size(panel, *size)
                self.assertEqual((panel.geometry.right, panel.geometry.bottom), anchored, "the other edges stay")
        last = panel.geometry
        self.program.stop()
        self.start_with_button()
        self.assert_in_corner(self.open_panel(), last.width, last.height)

    def test_moved_panel_opens_in_the_corner_again(self):
        self.start_with_button()
        panel = self.open_panel()
        before = panel.geometry
        tab = self.program.place_of(self.program.find("Daily", window="Flitmark"))
        close = self.program.place_of(self.program.find("Close", window="Flitmark"))
        free = ((2 * tab.right + close.x) // 3, tab.centre[1])
        self.screen.drag(free, (free[0] - 300, free[1] - 200))
        wanted = (before.x - 300, before.y - 200)
        wait_until(lambda: math.dist((panel.geometry.x, panel.geometry.y), wanted) <= TOLERANCE,
                   lambda: f"the panel to move from {before}; it is at {panel.geometry}")
        self.click_button()
        self.wait_until_panel_closed()
        self.assert_in_corner(self.open_panel(), 480, 400)

    def test_too_small_a_size_is_corrected(self):
        self.home.complete_setup(panel_width=300, panel_height=200)
        self.start_with_button()
        self.assert_in_corner(self.open_panel(), 460, 360)
        self.assertEqual((self.home.config()["panel_width"], self.home.config()["panel_height"]), (460, 360))

# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""The round button that floats on the desktop."""

from desktop.accessibility import Rectangle
from desktop.case import SetUpCase
from desktop.waiting import hold, wait_for, wait_until

SIDE = 56
MARGIN = 12
RIGHT, LOWER = (length - MARGIN - SIDE for length in SetUpCase.SIZE)
ALL_DESKTOPS = "4294967295"


class ButtonTest(SetUpCase):
    def wait_for_place(self, x, y):
        wait_for(Rectangle(x, y, SIDE, SIDE), lambda: self.button().geometry)

    def drag_button_to(self, x, y):
        """Drags the button by its centre so that, without any limit, its corner would come to (x, y)."""
        self.screen.drag(self.button().geometry.centre, (x + SIDE // 2, y + SIDE // 2))

    def test_floats_in_the_corner_without_the_keyboard(self):
        bystander = self.start_bystander()
        self.start_with_button()
        self.wait_for_place(RIGHT, LOWER)
        hold(lambda: bystander.window.is_active, "the other window keeps the keyboard", 0.5)

        button = self.button()
        wait_until(lambda: button.property("_NET_WM_DESKTOP") == ALL_DESKTOPS, "to be on all desktops")
        wait_until(lambda: {"ABOVE", "SKIP_TASKBAR", "SKIP_PAGER"} <= button.states(), lambda: f"{button.states()}")
        self.assertIn("input focus: False", button.property("WM_HINTS"))
        # What is told to a screen reader is where it really is.
        control = self.program.find("Flitmark Button", "push button")
        wait_for(button.geometry, lambda: control.extents)

        self.screen.xdotool("set_desktop", 2)
        wait_until(lambda: button.is_on_screen, "the button on another desktop")
        self.screen.xdotool("set_desktop", 0)

        # Another window laid over its place stays below it.
        self.screen.xdotool("windowmove", bystander.window.number, RIGHT - 100, LOWER - 100)
        bystander.window.activate()
        order = self.screen.stacking()
        self.assertGreater(order.index(button), order.index(bystander.window))

    def test_click_toggles_and_never_takes_the_keyboard(self):
        bystander = self.start_bystander()
        self.start_with_button()
        panel = self.open_panel()
        self.assertTrue(panel.is_active)
        self.click_button()
        self.wait_until_panel_closed()
        wait_until(lambda: bystander.window.is_active, "the other window to be active again")
        self.assertNotEqual(self.screen.active_window(), self.button())

        # A hand that trembles by one pixel still clicks.
        x, y = self.button().geometry.centre
        self.screen.drag((x, y), (x + 1, y))
        wait_until(self.panel_is_open, "the panel to open")
        self.wait_for_place(RIGHT, LOWER)

    def test_menu_opens_however_soon_it_is_asked_for_again(self):
        self.start_with_button()
        for _ in range(5):
            self.open_menu()
            self.screen.key("Escape")
            wait_until(lambda: not self.screen.windows("Flitmark Menu"), "the menu to close")

    def test_drag_moves_and_does_not_toggle(self):
        bystander = self.start_bystander()
        self.start_with_button()
        self.wait_for_place(RIGHT, LOWER)
        for wanted, place in [
            ((700, 300), (700, 300)),
            ((704, 300), (704, 300)),
            ((1600, 400), (RIGHT, 400)),
            ((800, 1200), (800, LOWER)),
            ((-300, -300), (MARGIN, MARGIN)),
        ]:
            with self.subTest(wanted=wanted):
                self.drag_button_to(*wanted)
                self.wait_for_place(*place)
                hold(lambda: not self.panel_is_open(), "a drag does not open the panel", 0.3)
        self.assertTrue(bystander.window.is_active)

        self.click_button()
        wait_until(self.panel_is_open, "the panel to open by a click after the drags")
        self.wait_for_place(MARGIN, MARGIN)

        # The next start is in the corner again.
        self.program.stop()
        self.start_with_button()
        self.wait_for_place(RIGHT, LOWER)


    def test_comes_back_from_wherever_a_window_manager_puts_it(self):
        self.start_with_button()
        self.wait_for_place(RIGHT, LOWER)
        for (x, y), place in [((1410, 300), (1440 - SIDE, 300)), ((-30, 880), (0, 900 - SIDE)), ((200, -20), (200, 0))]:
            self.screen.run("wmctrl", "-i", "-r", hex(self.button().number), "-e", f"0,{x},{y},-1,-1")
            self.wait_for_place(*place)


class SmallScreenButtonTest(SetUpCase):
    SIZE = (1024, 600)
    COMPOSITOR = True

    def test_corner_of_a_small_screen(self):
        self.start_with_button()
        wait_for(Rectangle(1024 - 68, 600 - 68, SIDE, SIDE), lambda: self.button().geometry)

# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""What the window managers of the large desktops read of the program's windows, each a little else than the others."""

from desktop.case import SetUpCase
from desktop.waiting import wait_until

BUTTON = "Flitmark Button"
ALL_DESKTOPS = [0xFFFFFFFF]


class WindowManagersTest(SetUpCase):
    WINDOW_MANAGER = "one that writes"

    def button_is_on_top(self):
        order = self.screen.stacking()
        return order[-1] == self.button()

    def test_windows_are_companions_from_their_first_showing_on(self):
        self.start_with_button()
        self.open_panel()
        for title in (BUTTON, "Flitmark"):
            told = self.desktop.told(title)[0]
            # Mutter keeps dialogs in the window list; i3 and sway let them float.
            self.assertEqual(told["_NET_WM_WINDOW_TYPE"], ["_NET_WM_WINDOW_TYPE_NORMAL", "_NET_WM_WINDOW_TYPE_DIALOG"])
            # Xfwm4 takes the desktop for none, and the state for all of them.
            self.assertEqual(told["desktop"], ALL_DESKTOPS)
            wanted = {f"_NET_WM_STATE_{name}" for name in ("ABOVE", "SKIP_TASKBAR", "SKIP_PAGER", "STICKY")}
            self.assertLessEqual(wanted, set(told["_NET_WM_STATE"]))
            # KWin and Mutter cycle through all windows that take the focus in one way or the other.
            takes_focus = title != BUTTON
            self.assertEqual(told["takesFocus"], takes_focus)
            self.assertEqual("WM_TAKE_FOCUS" in told["WM_PROTOCOLS"], takes_focus)
            self.assertIn("WM_DELETE_WINDOW", told["WM_PROTOCOLS"])

    def test_the_button_stays_above_the_panel(self):
        """KWin and Mutter look at the window it lies over only when that changes, Xfwm4 only when it is shown."""
        bystander = self.start_bystander()
        self.start_with_button()
        for times in (1, 2, 3):
            panel = self.open_panel()
            wait_until(self.button_is_on_top, "the button to be on top")
            laid_over = [told["transient"] for told in self.desktop.told(BUTTON)[1:]]
            self.assertEqual(laid_over, (["Flitmark", None] * times)[:-1])
            bystander.window.activate()
            panel.activate()
            wait_until(self.button_is_on_top, "the button to be on top of the panel that was activated")
            self.screen.key("Escape")
            self.wait_until_panel_closed()

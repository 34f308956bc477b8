# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""The hotkey on a Wayland desktop, which is a shortcut of the desktop's portal, and what the user is told of it."""

from desktop.case import DesktopCase
from desktop.portal import Portal
from desktop.waiting import hold, wait_until

COMMAND = "gapplication action org.flitmark.Flitmark toggle-panel"


class PortalTest(DesktopCase):
    # Where the desktop's habits have Qt press any button by Return, which the wizard's steps must not lose.
    VARIABLES = {"XDG_CURRENT_DESKTOP": "GNOME"}

    def setUp(self):
        super().setUp()
        self.home.make_vault()

    def start_portal(self, **parameters):
        portal = Portal(self.desktop, **parameters)
        self.addCleanup(portal.stop)
        return portal

    def start_on_wayland(self):
        """The program's windows are X11 windows here, as they are on a Wayland desktop."""
        return self.start(WAYLAND_DISPLAY="wayland-0")

    def line(self):
        """What the wizard's last step says of the hotkey on this computer; empty where there is nothing to say."""
        lines = [label.name for label in self.program.find_all(role="label") if label.name.startswith("On this")]
        return lines[0] if lines else ""

    def open_last_step(self):
        for button in ("Get Started", "Next", "Next"):
            self.program.find(button, "push button")
            self.screen.key("Return")
        self.program.find("You're All Set!")

    def wait_for_line(self, *parts):
        wait_until(lambda: all(part in self.line() for part in parts),
                   lambda: f"{parts} in what is said, which is {self.line()!r}")

    def test_binds_and_toggles_without_a_key_of_its_own(self):
        self.home.complete_setup()
        portal = self.start_portal()
        bystander = self.start_bystander()
        self.start_on_wayland()
        portal.wait_for_call("BindShortcuts")
        names = ["Register", "CreateSession", "BindShortcuts"]
        self.assertEqual([name for line in portal.calls().splitlines() for name in names if f" {name} " in line], names)
        for text in ("org.flitmark.Flitmark", "toggle-panel", "ALT+n", "Toggle note panel"):
            self.assertIn(text, portal.calls())
        self.screen.window("Flitmark Button")
        self.screen.key("alt+n")
        wait_until(lambda: "n" in bystander.keys(), "the key to be the other program's")
        self.assertFalse(self.panel_is_open())

        portal.emit("Activated", "Activated", "Activated")  # held, as some desktops tell it
        self.wait_for_focus("Note")
        hold(self.panel_is_open, "the panel stays open", 0.3)
        portal.emit("Deactivated", "Activated", "Deactivated")
        self.wait_until_panel_closed()

        portal.stop()
        portal = self.start_portal(register=False)
        portal.wait_for_call("BindShortcuts")
        portal.emit("Activated")
        self.wait_for_focus("Note")

    def test_a_portal_that_takes_the_key_with_the_session(self):
        """It shows its settings to who binds, and gives the key to one name only, by which the program always goes."""
        self.home.complete_setup()
        portal = self.start_portal(plasma=True)
        for starts in (1, 2):
            self.start_on_wayland()
            wait_until(lambda: portal.calls().count(" CreateSession ") == starts, portal.calls)
            self.screen.window("Flitmark Button")
            portal.emit("Activated", "Deactivated")
            self.wait_for_focus("Note")
            self.program.stop()
        self.assertNotIn("BindShortcuts", portal.calls())

    def test_tells_how_it_stands(self):
        for parameters, parts in [
            ({"answer": 1}, ["the desktop refused the hotkey", "declined", COMMAND]),
            ({"answer": 2}, ["could not be set up", "without an answer", COMMAND]),
            ({"plasma": True, "trigger": ""}, ["waits", "Choose a key"]),
            ({"trigger": "Ctrl+Alt+J"}, ["the hotkey works", "Ctrl+Alt+J"]),
            ({"trigger": ""}, ["waits", "Choose a key"]),
            (None, ["offers no hotkeys", COMMAND]),
        ]:
            with self.subTest(parameters):
                portal = self.start_portal(**parameters) if parameters is not None else None
                self.start_on_wayland()
                self.open_last_step()
                self.wait_for_line(*parts)
                self.program.stop()
                if portal is not None:
                    portal.stop()

    def test_wears_the_colours_the_desktop_asks_for(self):
        portal = self.start_portal(scheme=1)
        self.start_on_wayland()
        wizard = self.screen.window("Flitmark Setup")
        picture = self.desktop.folder / "wizard.png"

        def brightness():
            self.screen.picture(picture, wizard.geometry)
            return float(self.screen.run("convert", picture, "-gravity", "NorthWest", "-crop", "9x9+0+0", "-format",
                                         "%[fx:mean]", "info:") or 0.5)
        wait_until(lambda: brightness() < 0.2, lambda: f"a dark window; its brightness is {brightness()}")
        portal.change_scheme(2)
        wait_until(lambda: brightness() > 0.8, lambda: f"a light window; its brightness is {brightness()}")

    def test_consent_that_comes_late(self):
        portal = self.start_portal(answer=-1, trigger="Press <Alt>n")
        self.start_on_wayland()
        self.open_last_step()
        self.wait_for_line("waits for your desktop's consent")
        portal.wait_for_call("BindShortcuts")
        portal.consent()
        wait_until(lambda: self.line() == "On this computer: Alt+N", self.line)

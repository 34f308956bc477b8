# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""A day with the program by keys alone: no pointer, no action of an input aid. The controls are only looked at."""

from desktop.accessibility import Gone
from desktop.day import DayCase
from desktop.waiting import PATIENCE, wait_until

SETTINGS = "Flitmark Settings"
# What Tab stops at: of a group of choices the chosen one, of a list the list.
STOPS = {"push button", "check box", "page tab", "text", "list", "slider", "combo box"}
PANEL_TABS = ("New", "Browse", "Daily")
SETTINGS_TABS = ("App", "Quick Tags", "Vault", "Notes", "Appearance", "Pomodoro", "Shortcuts")


class KeyboardDayTest(DayCase):
    def focused(self, other_than=None):
        """The name and role of the control that has the keyboard, as soon as it is another one."""
        def found():
            try:
                control = self.program.focused()
                at = control and (control.name, control.role)
                return at if at != other_than else None
            except Gone:
                return None
        return wait_until(found, lambda: f"the keyboard to leave {other_than} for another control")

    def walk(self, key="Tab"):
        """The controls that this key leads to, from the present one on."""
        at = self.focused()
        for _ in range(60):
            yield at
            # In the note Tab is a letter.
            self.screen.key("ctrl+Tab" if at[0] == "Note" and key == "Tab" else key)
            at = self.focused(other_than=at)
        self.fail(f"{key} leads on and on, at last to {at}")

    def go_to(self, *names, key="Tab"):
        """Goes on to the first control of one of these names, and gives its name."""
        return next(at[0] for at in self.walk(key) if at[0] in names)

    def use(self, name, key="Return"):
        self.go_to(name)
        self.screen.key(key)

    def choose(self, name, choices):
        """Makes this one of the choices the current one, by the arrows."""
        current = self.go_to(*choices)
        self.go_to(name, key="Right" if choices.index(name) > choices.index(current) else "Left")

    def check_round(self, name):
        """In the window or sheet of this name Tab reaches all controls and comes back to where it began."""
        visited = []
        for at in self.walk():
            if at in visited[:1]:
                break
            visited.append(at)
        there = {(control.name, control.role) for control in self.program.find(name).find_all()
                 if control.role in STOPS and control.name not in PANEL_TABS + SETTINGS_TABS
                 and {"focusable", "enabled"} <= control.states}
        self.assertEqual(there - set(visited), set(), "out of the Tab key's reach")

    def test_notes_settings_and_help(self):
        self.begin()
        self.open_by_hotkey()
        self.screen.type("Call Ada")
        self.check_round("Flitmark")
        self.go_to("#priority/high", key="shift+Tab")
        self.screen.key("space", "ctrl+Return")
        self.assertTrue(self.wait_for_note().read_text().endswith("Call Ada\n\n#priority/high"))
        self.wait_until_panel_closed()

        self.open_by_hotkey()
        self.choose("Browse", PANEL_TABS)
        self.check_round("Flitmark")
        self.go_to("Vault items")
        self.screen.key("End", "Return")
        self.wait_until_opened("Reading")

        self.screen.key("ctrl+comma")
        self.wait_for_focus("App")
        for name in SETTINGS_TABS:
            self.choose(name, SETTINGS_TABS)
            self.check_round(SETTINGS)
        self.use("Help")
        self.wait_for_focus("Flitmark Help")
        self.go_to("Overview")
        self.check_round("Flitmark Help")
        self.screen.key("Escape")
        self.wait_for_focus("Help")
        self.choose("Notes", SETTINGS_TABS)
        self.use("Play sound on save", "space")
        self.screen.key("ctrl+Return")
        wait_until(lambda: self.home.config().get("play_sound_on_save") is False, "the setting")
        wait_until(lambda: not self.screen.windows(SETTINGS), "the settings to close")

    def test_focus_tasks_and_a_pomodoro(self):
        self.begin(f"@2026-01-22 14:00:00 x{120 / PATIENCE:g}")
        self.open_by_hotkey()
        self.choose("Daily", PANEL_TABS)
        self.program.find("Write the page", "check box", "Flitmark")
        self.check_round("Flitmark")
        self.use("Edit focus")
        self.wait_for_focus("Focus")
        self.screen.key("ctrl+a")
        self.screen.type("Rest")
        self.use("Save")
        self.wait_for_line("**Rest**")
        self.use("Write the page", "space")
        self.wait_for_line("- [x] Write the page")
        self.use("Add task")
        self.wait_for_focus("New task")
        self.screen.type("Sleep\n")
        self.wait_for_line("- [ ] Sleep")
        self.use("Start Pomodoro for a task")
        self.program.find("Start Pomodoro", window="Flitmark")
        self.use("Sleep")
        self.screen.window("Pomodoro Check-in")
        self.wait_for_focus("Pomodoro Check-in")
        self.wait_for_line("- [ ] Sleep 🍅")
        self.use("On track")
        wait_until(lambda: not self.screen.windows("Pomodoro Check-in"), "the check-in to close")


class GnomeKeyboardDayTest(KeyboardDayTest):
    """Where the desktop's habits have Qt press any button by Return."""

    VARIABLES = {"XDG_CURRENT_DESKTOP": "GNOME"}

# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""A user who hears the program and does not see it."""

from gi.repository import GLib

from .accessibility import Gone, register_for_events, unless_gone
from .waiting import wait_until

# What has to say by its name what it is for.
_CONTROLS = {"push button", "check box", "radio button", "text", "list", "list item", "slider", "combo box", "page tab",
             "menu item", "link"}


class ScreenReader:
    """Finds controls by role and name, acts by their actions and by the keyboard, and keeps what is spoken: what gets the
    focus, what is read out by itself, and what a state changes to. To be made before the program starts."""

    def __init__(self, case):
        self._case = case
        self._spoken = []
        register_for_events(case.desktop.accessibility, self._hear)

    def _hear(self, control, kind, detail, on):
        try:
            if kind == "Activate":
                self._spoken.append(control.name)
            elif (kind, detail, on) == ("StateChanged", "focused", 1):
                self._spoken.append(self._description_of(control))
            elif (kind, detail, on) == ("StateChanged", "showing", 1) and control.role == "notification":
                self._spoken.append(control.name)
            elif (kind, detail) == ("PropertyChange", "accessible-value"):
                self._spoken.append(f"{control.name} {control.value}")
            elif (kind, detail) == ("PropertyChange", "accessible-description"):
                self._spoken.append(f"{control.name} {control.description}")
            elif (kind, detail) == ("StateChanged", "checked"):
                self._spoken.append(f"{control.name} {'checked' if on else 'not checked'}")
        except Gone:
            pass

    @staticmethod
    def _description_of(control):
        states = [state for state in ("checked", "selected") if control.has(state)]
        return " ".join([control.name, control.role, *states, control.description])

    def hears(self, *words):
        """Waits until all of this is said in one go. What was said before is forgotten then."""
        def found():
            while GLib.MainContext.default().iteration(False):
                pass
            return next((number for number, said in enumerate(self._spoken, 1) if all(word in said for word in words)), 0)
        del self._spoken[:wait_until(found, lambda: f"{words} to be said; it was: {self._spoken}")]

    def act(self, name, role="push button"):
        """Does what the control is there for."""
        control = self.find(name, role)
        wait_until(lambda: control.has("enabled"), f"{control} to be enabled")
        control.press()

    def find(self, name, role):
        """The control of this name and role. All around it must have a name too."""
        def found():
            controls = self._case.program.find_all()
            for control in controls:
                if unless_gone(lambda: control.role in _CONTROLS and control.has("focusable") and not control.name):
                    raise AssertionError(f"without a name: {control.tree()}")
            return [control for control in controls if unless_gone(lambda: control.is_called(name, role))]
        return wait_until(found, lambda: f'{role} "{name}" among\n{self._case.program.tree()}')[0]

    def go_to(self, name, role):
        """Brings the keyboard there."""
        control = self.find(name, role)
        if not control.has("focused"):
            control.take_focus()
            self.hears(name, role)

    def write(self, name, text):
        """Types into the text of this name, in place of what is in it."""
        self.go_to(name, "text")
        self._case.screen.key("ctrl+a", "Delete")
        self._case.screen.type(text)

# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""What a screen reader sees: the program's controls, read over the accessibility bus.

The bus is spoken to directly. The usual client library keeps a cache that only a running main loop brings up to date,
and knows one bus per process; a test needs fresh answers and a new bus every time.
"""

from dataclasses import dataclass

from gi.repository import Gio, GLib

from .waiting import PATIENCE

_ACCESSIBLE = "org.a11y.atspi.Accessible"
_ACTION = "org.a11y.atspi.Action"
_COMPONENT = "org.a11y.atspi.Component"
_TEXT = "org.a11y.atspi.Text"
_EDITABLE = "org.a11y.atspi.EditableText"
_PROPERTIES = "org.freedesktop.DBus.Properties"

_REGISTRY = "org.a11y.atspi.Registry"
_ROOT = "/org/a11y/atspi/accessible/root"
_NOTHING = "/org/a11y/atspi/null"

_CALL_TIMEOUT_MS = int(5000 * PATIENCE)
_SCREEN_COORDINATES = 0

# Bit numbers of the states in the accessibility protocol that tests ask for.
_STATES = {
    "active": 1,
    "checked": 4,
    "enabled": 8,
    "expanded": 10,
    "focusable": 11,
    "focused": 12,
    "modal": 16,
    "selected": 23,
    "sensitive": 24,
    "showing": 25,
    "visible": 30,
}


class Gone(Exception):
    """The control, or the window, is no longer there."""


def unless_gone(ask, otherwise=None):
    """What `ask()` gives; `otherwise` when a control has left meanwhile."""
    try:
        return ask()
    except Gone:
        return otherwise


@dataclass(frozen=True)
class Rectangle:
    """A place on the screen, in its pixels, origin top left."""

    x: int
    y: int
    width: int
    height: int

    @property
    def centre(self):
        return self.x + self.width // 2, self.y + self.height // 2

    @property
    def right(self):
        return self.x + self.width

    @property
    def bottom(self):
        return self.y + self.height


def connect(session_bus_address):
    """A connection to the accessibility bus of the desktop with this session bus, which starts it when needed."""
    session_bus = connect_to(session_bus_address)
    try:
        (address,) = session_bus.call_sync(
            "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None, GLib.VariantType("(s)"),
            Gio.DBusCallFlags.NONE, 10 * _CALL_TIMEOUT_MS, None).unpack()
    finally:
        session_bus.close_sync(None)
    return connect_to(address)


def connect_to(address):
    """A connection to the bus at this address."""
    flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
    connection = Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
    connection.set_exit_on_close(False)
    return connection


def register_for_events(connection, hear):
    """Has programs say what happens to their controls, and calls `hear(control, event, detail, value)` for it while the main
    context is iterated."""
    for events in ("object:", "window:"):
        connection.call_sync(_REGISTRY, "/org/a11y/atspi/registry", _REGISTRY, "RegisterEvent",
                             GLib.Variant("(sass)", (events, [], "")), None, Gio.DBusCallFlags.NONE, _CALL_TIMEOUT_MS, None)
    for interface in ("org.a11y.atspi.Event.Object", "org.a11y.atspi.Event.Window"):
        connection.signal_subscribe(
            None, interface, None, None, None, Gio.DBusSignalFlags.NONE,
            lambda bus, owner, path, _, event, data: hear(Accessible(bus, owner, path), event, data[0], data[1]))


def applications(connection):
    """The root of each accessible application on the bus."""
    return unless_gone(lambda: Accessible(connection, _REGISTRY, _ROOT).children, [])


class Accessible:
    """One control. Every property asks the program anew and raises `Gone` when the control has left."""

    def __init__(self, connection, owner, path, window=None):
        self._connection = connection
        self.owner = owner
        self._path = path
        self._window = window

    def __eq__(self, other):
        return isinstance(other, Accessible) and (self.owner, self._path) == (other.owner, other._path)

    def __hash__(self):
        return hash((self.owner, self._path))

    def __repr__(self):
        return unless_gone(lambda: f'{self.role} "{self.name}"', "a control that has gone")

    def _call(self, interface, method, arguments=None, reply="(a(so))"):
        try:
            return self._connection.call_sync(
                self.owner, self._path, interface, method, arguments, GLib.VariantType(reply),
                Gio.DBusCallFlags.NONE, _CALL_TIMEOUT_MS, None).unpack()
        except GLib.Error as error:
            raise Gone(f"{method}: {error.message}") from error

    def _property(self, interface, name):
        return self._call(_PROPERTIES, "Get", GLib.Variant("(ss)", (interface, name)), "(v)")[0]

    @property
    def name(self):
        return self._property(_ACCESSIBLE, "Name")

    @property
    def description(self):
        return self._property(_ACCESSIBLE, "Description")

    @property
    def role(self):
        """The role's name: "push button", "check box", "text", ..."""
        return self._call(_ACCESSIBLE, "GetRoleName", reply="(s)")[0]

    @property
    def children(self):
        window = None if self._path == _ROOT else self.window
        found, = self._call(_ACCESSIBLE, "GetChildren")
        return [Accessible(self._connection, owner, path, window) for owner, path in found if path != _NOTHING]

    @property
    def window(self):
        """The control's window, as a control itself."""
        return self._window or self

    @property
    def process_id(self):
        return self._connection.call_sync(
            "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "GetConnectionUnixProcessID",
            GLib.Variant("(s)", (self.owner,)), GLib.VariantType("(u)"), Gio.DBusCallFlags.NONE, _CALL_TIMEOUT_MS,
            None).unpack()[0]

    @property
    def states(self):
        """The names of the states that hold, of those in the table above."""
        (low, high), = self._call(_ACCESSIBLE, "GetState", reply="(au)")
        bits = low | high << 32
        return {name for name, bit in _STATES.items() if bits >> bit & 1}

    def has(self, state):
        return state in self.states

    def is_called(self, name, role):
        """Whether it has this name and this role; None stands for any."""
        return (name is None or self.name == name) and (role is None or self.role == role)

    @property
    def extents(self):
        """The control's place as the program believes it to be; see `Program.place_of`."""
        (x, y, width, height), = self._call(
            _COMPONENT, "GetExtents", GLib.Variant("(u)", (_SCREEN_COORDINATES,)), "((iiii))")
        return Rectangle(x, y, width, height)

    @property
    def text(self):
        """The text of an editor or field; the name of anything else, as a label shows it."""
        texts = unless_gone(lambda: self._call(_TEXT, "GetText", GLib.Variant("(ii)", (0, -1)), "(s)"))
        return texts[0] if texts is not None else self.name

    @property
    def value(self):
        """The number of a slider."""
        return self._property("org.a11y.atspi.Value", "CurrentValue")

    def set_text(self, text):
        """Replaces the text as an input aid would, without the keyboard."""
        self._call(_EDITABLE, "SetTextContents", GLib.Variant("(s)", (text,)), "(b)")

    @property
    def actions(self):
        """The names of what can be done with the control."""
        return [name for name, _, _ in self._call(_ACTION, "GetActions", reply="(a(sss))")[0]]

    def press(self, action=0):
        """Runs the control's first action, or the one of this name, as a screen reader's user would."""
        number = action if isinstance(action, int) else self.actions.index(action)
        self._call(_ACTION, "DoAction", GLib.Variant("(i)", (number,)), "(b)")

    def take_focus(self):
        """Gives the control the keyboard, if its window has it."""
        self._call(_COMPONENT, "GrabFocus", reply="(b)")

    def walk(self, depth=0):
        """This control and all below it that are on screen, outermost first, as (depth, control)."""
        yield depth, self
        for child in unless_gone(lambda: self.children, []):
            if unless_gone(lambda: child.has("showing")):
                yield from child.walk(depth + 1)

    def find_all(self, name=None, role=None):
        """The controls on screen below this one that have this name and role."""
        return [control for depth, control in self.walk()
                if depth > 0 and unless_gone(lambda: control.is_called(name, role))]

    def tree(self):
        """This control and all below it as indented lines, for people."""
        def line(control):
            return f"{control} ({control.description}) {control.extents} {' '.join(sorted(control.states))}"

        return "\n".join("  " * depth + unless_gone(lambda: line(control), "(gone)") for depth, control in self.walk())

# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""A mock of the desktop's shortcuts portal, for python-dbusmock. It writes down every call it gets."""

import re

import dbus
from dbusmock import MOCK_IFACE, get_object

BUS_NAME = "org.freedesktop.portal.Desktop"
MAIN_OBJ = "/org/freedesktop/portal/desktop"
MAIN_IFACE = "org.freedesktop.portal.GlobalShortcuts"
SETTINGS_IFACE = "org.freedesktop.portal.Settings"
SYSTEM_BUS = False

SYSTEMD_OBJ = "/org/freedesktop/systemd1"
SYSTEMD_IFACE = "org.freedesktop.systemd1.Manager"
_RUN_JOB = f"""ret = dbus.ObjectPath("{SYSTEMD_OBJ}/job/1")
self.EmitSignal("{SYSTEMD_IFACE}", "JobRemoved", "uoss", [dbus.UInt32(1), ret, args[0], "done"])"""


def load(mock, parameters):
    """`answer` is the code with which the user's answer to binding comes, `trigger` the key that was bound; an answer
    of -1 is none yet. `plasma` is to be as Plasma 5.27's portal, with systemd's part in it: a shortcut comes with the
    session and is the component's that asked first, which is known by its unit and its session's token."""
    mock.answer = parameters.get("answer", 0)
    mock.trigger = parameters.get("trigger", "Alt+N")
    mock.plasma = parameters.get("plasma", False)
    if mock.plasma:
        mock.systemd_name = dbus.service.BusName("org.freedesktop.systemd1", mock.connection)
        mock.AddObject(SYSTEMD_OBJ, SYSTEMD_IFACE, {}, [("StartTransientUnit", "ssa(sv)a(sa(sv))", "o", _RUN_JOB)])
    mock.scheme = parameters.get("scheme", 0)
    mock.AddMethod(SETTINGS_IFACE, "Read", "ss", "v", "ret = dbus.UInt32(self.scheme, variant_level=1)")
    if parameters.get("register", True):
        mock.AddMethod("org.freedesktop.host.portal.Registry", "Register", "sa{sv}", "", "")


def _respond(mock, sender, options, code, results):
    """Makes the request's object, as the caller knows it, and answers there at once: before the call returns."""
    path = f"{MAIN_OBJ}/request/{sender[1:].replace('.', '_')}/{options['handle_token']}"
    mock.AddObject(path, "org.freedesktop.portal.Request", {}, [])
    mock.request = path
    if code >= 0:
        get_object(path).EmitSignal("org.freedesktop.portal.Request", "Response", "ua{sv}", [
            dbus.UInt32(code), dbus.Dictionary(results, signature="sv")])
    return dbus.ObjectPath(path)


def _shortcuts(trigger):
    properties = dbus.Dictionary({"trigger_description": trigger}, signature="sv")
    return dbus.Array([dbus.Struct(("toggle-panel", properties), signature="sa{sv}")], signature="(sa{sv})")


@dbus.service.method(MAIN_IFACE, in_signature="a{sv}", out_signature="o", sender_keyword="sender")
def CreateSession(self, options, sender=None):
    self.session = f"{MAIN_OBJ}/session/{sender[1:].replace('.', '_')}/{options['session_handle_token']}"
    results = {"session_handle": self.session}
    if self.plasma:
        units = [call[2][0] for call in get_object(SYSTEMD_OBJ).call_log]
        self.component = (re.sub("-[0-9]+.scope$", "", units[-1]) if units else "", options["session_handle_token"])
        results["shortcuts"] = _shortcuts(self.trigger) if options.get("shortcuts") else []
    return _respond(self, sender, options, 0, results)


@dbus.service.method(MAIN_IFACE, in_signature="oa(sa{sv})sa{sv}", out_signature="o", sender_keyword="sender")
def BindShortcuts(self, session, shortcuts, parent, options, sender=None):
    assert session == self.session
    if self.plasma:
        return _respond(self, sender, options, 0, {"shortcuts": dbus.Array([], signature="(sa{sv})")})
    return _respond(self, sender, options, self.answer, {"shortcuts": _shortcuts(self.trigger)})


@dbus.service.method(MOCK_IFACE, in_signature="s", out_signature="")
def Emit(self, name):
    """Tells that the shortcut was "Activated" or "Deactivated"."""
    if self.plasma and self.component != ("app-org.flitmark.Flitmark", "flitmark"):
        return
    self.EmitSignal(MAIN_IFACE, name, "osta{sv}", [
        dbus.ObjectPath(self.session), "toggle-panel", dbus.UInt64(1), dbus.Dictionary({}, signature="sv")])


@dbus.service.method(MOCK_IFACE, in_signature="", out_signature="")
def Consent(self):
    """The user's answer that was still to come: yes."""
    get_object(self.request).EmitSignal("org.freedesktop.portal.Request", "Response", "ua{sv}", [
        dbus.UInt32(0), dbus.Dictionary({"shortcuts": _shortcuts(self.trigger)}, signature="sv")])


@dbus.service.method(MOCK_IFACE, in_signature="u", out_signature="")
def ChangeScheme(self, scheme):
    """The user has chosen other colours: 1 is dark, 2 light."""
    self.EmitSignal(SETTINGS_IFACE, "SettingChanged", "ssv", ["org.freedesktop.appearance", "color-scheme", scheme])

# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""The desktop's shortcuts portal, as a mock on a test's own session bus."""

import json
from pathlib import Path

from . import processes
from .waiting import wait_until

_TEMPLATE = Path(__file__).with_name("portal_template.py")


class Portal:
    """Runs from its making until `stop`; `parameters` are those of the template."""

    def __init__(self, desktop, **parameters):
        self._screen = desktop.screen
        self._log = desktop.folder / "portal.txt"
        with self._log.open("wb") as output:
            self._process = processes.start(
                ["/usr/bin/python3", "-m", "dbusmock", "--template", str(_TEMPLATE), "--parameters",
                 json.dumps(parameters)], desktop.environment, stdout=output, stderr=output)
        wait_until(lambda: self._call("org.freedesktop.DBus.Peer.Ping"), "the portal to answer")

    def _call(self, method, *arguments):
        return self._screen.run("dbus-send", "--session", "--print-reply", "--dest=org.freedesktop.portal.Desktop",
                                "/org/freedesktop/portal/desktop", method, *arguments)

    def calls(self):
        """The lines in which the portal wrote down the calls it got."""
        return self._log.read_text(errors="replace")

    def wait_for_call(self, text):
        wait_until(lambda: text in self.calls(), lambda: f"{text} among the calls:\n{self.calls()}")

    def emit(self, *names):
        """Tells the program that its shortcut was "Activated" or "Deactivated"."""
        for name in names:
            self._call("org.freedesktop.DBus.Mock.Emit", f"string:{name}")

    def consent(self):
        """Gives the user's answer to a question that was left open: yes."""
        self._call("org.freedesktop.DBus.Mock.Consent")

    def change_scheme(self, scheme):
        """Tells that the user has chosen other colours: 1 is dark, 2 light."""
        self._call("org.freedesktop.DBus.Mock.ChangeScheme", f"uint32:{scheme}")

    def stop(self):
        processes.stop(self._process)

# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""A desktop of a test's own: X server, window manager, session bus and accessibility bus, invisible and private."""

import json
import os
import re
import shutil
import subprocess
import tempfile
from pathlib import Path

from . import accessibility, processes
from .screen import Screen
from .waiting import wait_until

_TOOLS = ("Xvfb", "openbox", "dbus-daemon", "xdotool", "xprop", "xwininfo", "xclip", "import")

# Only the accessibility bus may be started on demand: no other service of this computer takes part in a test.
_BUS_CONFIGURATION = """<busconfig>
  <type>session</type>
  <listen>unix:dir={folder}</listen>
  <servicedir>{services}</servicedir>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""
_WRITING_MANAGER = Path(__file__).with_name("writing_manager.py")
_ACCESSIBILITY_SERVICE = Path("/usr/share/dbus-1/services/org.a11y.Bus.service")

# What a program of the surrounding desktop must not pass on to this one.
_NOT_INHERITED = ("DBUS_", "DISPLAY", "WAYLAND_", "XDG_", "XAUTHORITY", "SESSION_MANAGER", "AT_SPI_", "QT_", "GTK_",
                  "LC_", "LANG", "FLITMARK_", "DESKTOP_STARTUP_ID")


class Desktop:
    """The desktop, running from `start` until `stop`. `environment` is what programs on it are to be started with."""

    def __init__(self, size=(1440, 900), compositor=False, window_manager="openbox"):
        self._size = size
        self._window_manager = window_manager
        self._compositor = compositor
        self._children = []
        self._accessibility = None
        self.folder = None
        self.environment = {}
        self.screen = None

    def start(self):
        missing = [tool for tool in _TOOLS if not shutil.which(tool)]
        if not _ACCESSIBILITY_SERVICE.exists():
            missing.append("at-spi2-core")
        if missing:
            raise RuntimeError(f"missing on this computer: {', '.join(missing)}; scripts/test installs what it needs")
        processes.adopt_orphans()
        self.folder = Path(tempfile.mkdtemp(prefix="flitmark-desktop-"))
        try:
            self._start_all()
        except BaseException:
            self.stop()
            raise
        return self

    def _start_all(self):
        runtime = self.folder / "runtime"
        runtime.mkdir(mode=0o700)
        home = self.folder / "home"
        home.mkdir()
        self.environment = {
            name: value for name, value in os.environ.items() if not name.startswith(_NOT_INHERITED)
        }
        self.environment |= {
            "HOME": str(home), "XDG_RUNTIME_DIR": str(runtime), "LANG": "C.UTF-8", "TZ": "Europe/Berlin",
            "QT_QPA_PLATFORM": "xcb", "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "NO_AT_BRIDGE": "0",
        }
        self.environment["DISPLAY"] = self._start_server()
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = self._start_bus()
        self.screen = Screen(self.environment, self._size)
        self._start_window_manager()
        if self._compositor:
            self._start("xcompmgr")
            wait_until(self.screen.has_compositor, "a compositor on the screen")

    def _start(self, *command, **options):
        child = processes.start(command, self.environment, **options)
        self._children.append(child)
        return child

    def _start_server(self):
        width, height = self._size
        child = self._start(
            "Xvfb", "-displayfd", "1", "-screen", "0", f"{width}x{height}x24", "-dpi", "96",
            "-nolisten", "tcp", "-noreset", "-r", stdout=subprocess.PIPE, text=True)
        self._server = child
        return ":" + _first_line(child, "Xvfb")

    def _start_window_manager(self):
        ready = self.folder / "window-manager-is-ready"
        if self._window_manager == "openbox":
            # Long before it is ready it says that it is there; a window that comes in between may never be shown.
            self._start("openbox", "--sm-disable", "--startup", f"touch {ready}")
        else:
            self._start("/usr/bin/python3", str(_WRITING_MANAGER), str(ready))
        wait_until(ready.exists, "the window manager to be ready")

    def told(self, title):
        """What the window manager that writes has been told of the window with this title, from its first showing on."""
        lines = (self.folder / "window-manager-is-ready").read_text().splitlines()
        return [told for told in map(json.loads, lines) if told["title"] == title]

    def _start_bus(self):
        services = self.folder / "services"
        services.mkdir()
        shutil.copy(_ACCESSIBILITY_SERVICE, services)
        configuration = self.folder / "bus.conf"
        configuration.write_text(_BUS_CONFIGURATION.format(folder=self.folder / "runtime", services=services))
        return self.start_bus(f"--config-file={configuration}")[1]

    def start_bus(self, kind="--session"):
        """Starts a session bus, a further one by default, and gives its process and address."""
        child = self._start("dbus-daemon", kind, "--nofork", "--nopidfile", "--print-address=1",
                            stdout=subprocess.PIPE, text=True)
        return child, _first_line(child, "dbus-daemon")

    def start_wayland(self):
        """Starts a Wayland session with an X server inside and gives the variables of programs in it."""
        output = self.folder / "weston.txt"
        with output.open("wb") as stream:
            self._start("weston", "--backend=headless-backend.so", "--xwayland", "--socket=wayland-e2e",
                        "--width=1280", "--height=800", stdout=stream, stderr=subprocess.STDOUT)
        found = wait_until(lambda: re.search(r"xserver listening on display (:\d+)", output.read_text()),
                           lambda: f"the X server of the Wayland session:\n{output.read_text()}")
        return {"WAYLAND_DISPLAY": "wayland-e2e", "DISPLAY": found.group(1), "XDG_SESSION_TYPE": "wayland",
                "QT_QPA_PLATFORM": ""}

    def lose_server(self):
        """Ends the X server under its programs."""
        processes.stop(self._server)

    @property
    def accessibility(self):
        """The connection to the accessibility bus."""
        if self._accessibility is None:
            self._accessibility = accessibility.connect(self.environment["DBUS_SESSION_BUS_ADDRESS"])
        return self._accessibility

    def stop(self):
        """Ends everything that runs on the desktop and removes its files."""
        if self._accessibility is not None and not self._accessibility.is_closed():
            self._accessibility.close_sync(None)
        if self.screen is not None:
            self.screen.release()
        for child in reversed(self._children):
            processes.stop(child)
        self._children.clear()
        if self.folder is not None:
            processes.end_orphans(f"XDG_RUNTIME_DIR={self.folder / 'runtime'}")
            shutil.rmtree(self.folder, ignore_errors=True)

    def __enter__(self):
        return self.start()

    def __exit__(self, *_):
        self.stop()


def _first_line(child, name):
    line = child.stdout.readline().strip()
    if not line:
        raise RuntimeError(f"{name} did not start (status {child.wait()})")
    return line

# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""The program under test, running on a desktop for the user of a home folder."""

import os
import signal
import subprocess
import time
from datetime import datetime
from pathlib import Path
from zoneinfo import ZoneInfo

from . import accessibility, processes
from .accessibility import Gone, Rectangle, unless_gone
from .waiting import DEADLINE_SECONDS, PATIENCE, NotInTime, wait_until

_FAKE_TIME_LIBRARIES = "faketime/libfaketimeMT.so.1"

_TESTS = Path(__file__).parents[2]

# Under sanitizers the first report ends the program and shows in its output.
SANITIZER_OPTIONS = {
    "ASAN_OPTIONS": "abort_on_error=0:verify_asan_link_order=0",
    "UBSAN_OPTIONS": "print_stacktrace=1",
    "TSAN_OPTIONS": f"suppressions={_TESTS}/threads.supp:print_suppressions=0:halt_on_error=1",
}


def executable():
    """The program to test, named by the environment."""
    path = os.environ.get("FLITMARK_PROGRAM", "")
    if not os.access(path, os.X_OK):
        raise RuntimeError(f'FLITMARK_PROGRAM names no program: "{path}"')
    return path


class WallClock:
    """A clock that can be set while the program runs, kept in the file at `path`. As after a sleep, its timers don't
    notice."""

    def __init__(self, path, time_of_day):
        self.path = Path(path)
        self.set(time_of_day)

    def set(self, time_of_day, day="2026-01-22"):
        """Makes it this day and this "HH:MM:SS" in the time zone of the desktop, and lets it run from there."""
        wanted = datetime.fromisoformat(f"{day} {time_of_day}").replace(tzinfo=ZoneInfo("Europe/Berlin"))
        replacement = self.path.with_suffix(".new")
        replacement.write_text(f"{wanted.timestamp() - time.time():+.3f}")
        replacement.rename(self.path)


class Program:
    """One run of the program. `clock` is a time and a speed for it ("@2026-01-22 17:58:30 x60") instead of the real
    ones, or a `WallClock`; `variables` are added to its environment. Its output goes to `output_path`."""

    def __init__(self, desktop, home, output_path, clock=None, variables=None):
        self._desktop = desktop
        self._screen = desktop.screen
        self._output_path = Path(output_path)
        self.ended_on_purpose = False
        environment = desktop.environment | SANITIZER_OPTIONS | {"HOME": str(home.folder)} | (variables or {})
        if clock is not None:
            environment["LD_PRELOAD"] = _fake_time_library()
            if isinstance(clock, WallClock):
                environment |= {"FAKETIME_TIMESTAMP_FILE": str(clock.path), "FAKETIME_NO_CACHE": "1"}
            else:
                environment["FAKETIME"] = clock
            if isinstance(clock, WallClock) or " x" not in clock:
                # The timers go on as they are.
                environment["FAKETIME_DONT_FAKE_MONOTONIC"] = "1"
        self._environment = environment
        self._folder = home.folder
        self._process = self._run(self._output_path)

    def _run(self, output_path):
        with output_path.open("ab") as output:
            return processes.start([executable()], self._environment, stdout=output, stderr=subprocess.STDOUT,
                                   cwd=self._folder)

    def start_again(self):
        """Starts the program a second time beside the running one, and gives the exit status of the new one."""
        return self._run(self._output_path).wait(DEADLINE_SECONDS * PATIENCE)

    @property
    def process_id(self):
        return self._process.pid

    @property
    def is_running(self):
        return self._process.poll() is None

    @property
    def status(self):
        """The exit status (negative: the signal that ended it), None while the program runs."""
        return self._process.poll()

    def output(self):
        """What the program has written so far."""
        return self._output_path.read_text(errors="replace")

    def wait_for_output(self, text, timeout=DEADLINE_SECONDS):
        wait_until(lambda: text in self.output(), lambda: f'"{text}" in the output:\n{self.output()}', timeout)

    def stop(self):
        """Ends the program, if it still runs."""
        self.ended_on_purpose = True
        processes.stop(self._process, 10.0 * PATIENCE)

    def send_signal(self, number):
        self._process.send_signal(number)

    def kill(self):
        """Ends the program as a crash or a power cut would."""
        self.ended_on_purpose = True
        self._process.send_signal(signal.SIGKILL)
        self._process.wait()

    def wait_for_exit(self, timeout=DEADLINE_SECONDS):
        """Waits until the program has ended by itself and gives its exit status."""
        wait_until(lambda: not self.is_running, "the program to end", timeout)
        self.ended_on_purpose = True
        return self.status

    # Controls

    def _root(self):
        own = (application for application in accessibility.applications(self._desktop.accessibility)
               if unless_gone(lambda: application.process_id == self._process.pid))
        return next(own, None)

    def tree(self):
        """All controls on screen, for people."""
        root = self._root()
        return root.tree() if root else "(no controls)"

    def find_all(self, name=None, role=None, window=None):
        """The controls on screen with this name and role, in the window of this title."""
        root = self._root()
        try:
            return [control for top in (root.children if root else [])
                    if top.has("showing") and window in (None, top.name)
                    for control in [top, *top.find_all()] if control.is_called(name, role)]
        except Gone:
            return []

    def find(self, name=None, role=None, window=None, timeout=DEADLINE_SECONDS):
        """The first such control, as soon as it is on screen."""
        wanted = f'{role or "a control"} "{name}" in "{window or "any window"}"'
        return wait_until(lambda: self.find_all(name, role, window), lambda: f"{wanted} among\n{self.tree()}",
                          timeout)[0]

    def wait_until_gone(self, name, role=None, window=None, timeout=DEADLINE_SECONDS):
        wait_until(lambda: not self.find_all(name, role, window), lambda: f'"{name}" to leave\n{self.tree()}', timeout)

    def focused(self):
        """The control that has the keyboard, or None."""
        # A list's current item calls itself focused in any window.
        return next((control for control in self.find_all() if unless_gone(
            lambda: control.has("focused") and control.window.has("active"))), None)

    def place_of(self, control):
        """Where the control is on screen. Its place inside its window is the program's word, in its own units, the
        window's own place the X server's: that is where the pointer has to go."""
        inner = control.extents
        believed = control.window.extents
        windows = self._screen.windows(control.window.name)
        actual = windows[0].geometry if windows else believed
        scale = float(self._environment.get("QT_SCALE_FACTOR", 1))
        return Rectangle(round((inner.x - believed.x) * scale) + actual.x,
                         round((inner.y - believed.y) * scale) + actual.y,
                         round(inner.width * scale), round(inner.height * scale))

    def click(self, name, role=None, window=None, button=1):
        """Clicks a control with the pointer, as soon as it is there, enabled and at rest. Gives the control."""
        control = self.find(name, role, window)

        def resting_place():
            before = self.place_of(control)
            return before if control.has("enabled") and self.place_of(control) == before else None

        place = wait_until(resting_place, f"{control} to be enabled and at rest")
        self._screen.click(*place.centre, button)
        return control


def _fake_time_library():
    """The library that gives a program another clock, the variant that is safe with threads."""
    for folder in ("/usr/lib/x86_64-linux-gnu", "/usr/lib/aarch64-linux-gnu", "/usr/lib"):
        path = f"{folder}/{_FAKE_TIME_LIBRARIES}"
        if os.path.exists(path):
            return path
    raise NotInTime("libfaketime is not installed")

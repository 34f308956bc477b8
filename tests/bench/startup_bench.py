# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""How fast the program starts, and how much memory it takes with the panel never opened and opened once.

Other commands are started in turn with the program and timed until their first window, for comparison in the same run.
"""

import os
import select
import shlex
import subprocess
import time

from stage import click_button, desktop_for, pss_mib, running
from desktop import processes
from desktop.waiting import wait_until

RUNS = 15
WARM_UPS = 2
SETTLE_SECONDS = 2.0
START_TIMEOUT_SECONDS = 30


class MapWatch:
    """Hears from the X server when a window is put on screen, without asking again and again."""

    def __init__(self, desktop):
        self._process = processes.start(["xev", "-root", "-event", "substructure"], desktop.environment,
                                        stdout=subprocess.PIPE)
        self._pending = b""
        os.set_blocking(self._process.stdout.fileno(), False)

    def forget(self):
        """Drops what has been heard so far."""
        while self._read(0.2):
            pass
        self._pending = b""

    def wait(self, command):
        """The time at which the next window, the one of `command`, was heard to be mapped."""
        deadline = time.monotonic() + START_TIMEOUT_SECONDS
        while b"MapNotify event" not in self._pending:
            if time.monotonic() > deadline:
                raise TimeoutError(f"no window of {command} came on screen")
            self._read(1.0)
        return time.monotonic()

    def _read(self, timeout):
        if not select.select([self._process.stdout], [], [], timeout)[0]:
            return False
        self._pending += os.read(self._process.stdout.fileno(), 65536)
        return True

    def stop(self):
        processes.stop(self._process)


def start_times(desktop, watch, commands, home):
    """The milliseconds to the first window of each command, measured in turn so that all see the same computer."""
    times = {command: [] for command in commands}
    for run in range(WARM_UPS + RUNS):
        for command in commands:
            watch.forget()
            begin = time.monotonic()
            process = processes.start(shlex.split(command), desktop.environment | {"HOME": str(home.folder)})
            elapsed = (watch.wait(command) - begin) * 1000
            processes.stop(process)
            if run >= WARM_UPS:
                times[command].append(elapsed)
    return times


def memory(desktop, home):
    """PSS before and after the panel was opened for the first time, each after a moment of rest."""
    with running(desktop, home) as program:
        time.sleep(SETTLE_SECONDS)
        before = pss_mib(program.process_id)
        click_button(desktop.screen)
        panel = desktop.screen.window("Flitmark")
        time.sleep(SETTLE_SECONDS)
        click_button(desktop.screen)
        wait_until(lambda: not panel.is_on_screen, "the panel to close")
        time.sleep(SETTLE_SECONDS)
        return before, pss_mib(program.process_id)


def measure(program, others):
    """The start times of the program and the other commands, and the program's memory before and after the panel."""
    with desktop_for(program) as (desktop, home):
        watch = MapWatch(desktop)
        times = start_times(desktop, watch, [program, *others], home)
        watch.stop()
        return times, *memory(desktop, home)

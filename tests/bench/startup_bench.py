#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""How fast the program starts and how much memory it takes, on a desktop of its own.

usage: startup_bench.py PROGRAM [OTHER-COMMAND...]

Prints a table: the time from starting the program until its button is on screen, and its share of the computer's
memory (PSS) with the panel never opened and opened once. Each other command, such as "gnote", is started in turn with
the program and timed until its first window, for comparison in the same run.
"""

import os
import select
import shlex
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "e2e"))

from desktop import processes  # noqa: E402
from desktop.desktop import Desktop  # noqa: E402
from desktop.home import Home  # noqa: E402
from desktop.program import Program  # noqa: E402
from desktop.waiting import wait_until  # noqa: E402

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


def pss_mib(process_id):
    """The process's proportional share of memory, in MiB."""
    for line in Path(f"/proc/{process_id}/smaps_rollup").read_text().splitlines():
        if line.startswith("Pss:"):
            return int(line.split()[1]) / 1024
    raise RuntimeError("no PSS in smaps_rollup")


def start_times(desktop, watch, commands, home):
    """The milliseconds to the first window of each command, measured in turn so that all see the same computer."""
    times = {command: [] for command in commands}
    for run in range(WARM_UPS + RUNS):
        for command in commands:
            watch.forget()
            environment = desktop.environment | {"HOME": str(home.folder)}
            environment.pop("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", None)
            begin = time.monotonic()
            process = processes.start(shlex.split(command), environment)
            elapsed = (watch.wait(command) - begin) * 1000
            processes.stop(process)
            if run >= WARM_UPS:
                times[command].append(elapsed)
    return times


def memory(desktop, home):
    """PSS before and after the panel was opened for the first time, each after a moment of rest. Without the
    accessibility bus, as for most users; so the panel is known by its window alone."""
    program = Program(desktop, home, desktop.folder / "output.txt", variables={"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "0"})
    try:
        button = desktop.screen.window("Flitmark Button")
        time.sleep(SETTLE_SECONDS)
        before = pss_mib(program.process_id)
        desktop.screen.click(*button.geometry.centre)
        panel = desktop.screen.window("Flitmark")
        time.sleep(SETTLE_SECONDS)
        desktop.screen.click(*button.geometry.centre)
        wait_until(lambda: not panel.is_on_screen, "the panel to close")
        time.sleep(SETTLE_SECONDS)
        return before, pss_mib(program.process_id)
    finally:
        program.stop()


def measure(program, others):
    """The start times of the program and the other commands, and the program's memory before and after the panel."""
    os.environ["FLITMARK_PROGRAM"] = program
    with Desktop() as desktop, tempfile.TemporaryDirectory() as folder:
        home = Home(Path(folder) / "user")
        home.make_vault()
        home.complete_setup()
        watch = MapWatch(desktop)
        times = start_times(desktop, watch, [program, *others], home)
        watch.stop()
        return times, *memory(desktop, home)


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    program, others = str(Path(sys.argv[1]).resolve()), sys.argv[2:]
    times, before, after = measure(program, others)
    print(f"{'start to first window, ms':40} {'median':>8} {'least':>8} {'most':>8}")
    for command, values in times.items():
        name = "flitmark" if command == program else command
        print(f"{name:40} {statistics.median(values):8.1f} {min(values):8.1f} {max(values):8.1f}")
    print(f"\n{'memory (PSS), MiB':40}")
    print(f"{'panel never opened':40} {before:8.1f}")
    print(f"{'panel opened once, closed again':40} {after:8.1f}")


if __name__ == "__main__":
    main()

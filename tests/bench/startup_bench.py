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


def wait_for_window(watch):
    """Returns as soon as the X server tells of the next window that is put on screen."""
    heard = b""
    while b"MapNotify event" not in heard:
        if not select.select([watch.stdout], [], [], START_TIMEOUT_SECONDS)[0]:
            raise TimeoutError("no window came on screen")
        heard += os.read(watch.stdout.fileno(), 65536)


def start_time(desktop, command, home):
    """The milliseconds to the command's first window."""
    environment = desktop.environment | {"HOME": str(home.folder)}
    environment.pop("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", None)
    watch = processes.start(["xev", "-root", "-event", "substructure"], desktop.environment, stdout=subprocess.PIPE)
    time.sleep(0.2)
    begin = time.monotonic()
    process = processes.start(shlex.split(command), environment)
    wait_for_window(watch)
    elapsed = (time.monotonic() - begin) * 1000
    processes.stop(process)
    processes.stop(watch)
    return elapsed


def pss_mib(process_id):
    """The process's proportional share of memory, in MiB."""
    for line in Path(f"/proc/{process_id}/smaps_rollup").read_text().splitlines():
        if line.startswith("Pss:"):
            return int(line.split()[1]) / 1024
    raise RuntimeError("no PSS in smaps_rollup")


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


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    program, others = str(Path(sys.argv[1]).resolve()), sys.argv[2:]
    os.environ["FLITMARK_PROGRAM"] = program
    with Desktop() as desktop, tempfile.TemporaryDirectory() as folder:
        home = Home(Path(folder) / "user")
        home.make_vault()
        home.complete_setup()
        commands = [program, *others]
        # In turn, so that all see the same computer. The first rounds warm it up.
        rounds = [[start_time(desktop, command, home) for command in commands] for _ in range(WARM_UPS + RUNS)]
        before, after = memory(desktop, home)

    print(f"{'start to first window, ms':40} {'median':>8} {'least':>8} {'most':>8}")
    for name, values in zip(["flitmark", *others], zip(*rounds[WARM_UPS:])):
        print(f"{name:40} {statistics.median(values):8.1f} {min(values):8.1f} {max(values):8.1f}")
    print(f"\n{'memory (PSS), MiB':40}")
    print(f"{'panel never opened':40} {before:8.1f}")
    print(f"{'panel opened once, closed again':40} {after:8.1f}")


if __name__ == "__main__":
    main()

# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""How fast the program starts, and how much memory it takes with the panel never opened and opened once.

Other commands are started in turn with the program and timed until their first window, for comparison in the same run.
"""

import shlex
import time

from stage import click_button, desktop_for, pss_mib, running
from desktop import processes
from desktop.waiting import wait_until
from xserver import XServer

RUNS = 15
WARM_UPS = 2
SETTLE_SECONDS = 2.0
START_TIMEOUT_SECONDS = 30


def start_times(desktop, commands, home):
    """The milliseconds to the first window of each command, measured in turn so that all see the same computer."""
    server = XServer(desktop.environment["DISPLAY"])
    times = {command: [] for command in commands}
    for run in range(WARM_UPS + RUNS):
        for command in commands:
            server.forget_windows()
            begin = time.monotonic()
            process = processes.start(shlex.split(command), desktop.environment | {"HOME": str(home.folder)})
            elapsed = (server.wait_for_window(START_TIMEOUT_SECONDS) - begin) * 1000
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
        times = start_times(desktop, [program, *others], home)
        return times, *memory(desktop, home)

# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""How fast the program starts, and how much memory it takes with the panel never opened and opened once.

Other commands are started in turn with the program, timed until their first window and weighed a moment later, for comparison
in the same run.
"""

import shlex
import time

from stage import click_button, desktop_for, pss_mib, running
from desktop import processes
from desktop.waiting import wait_until
from xserver import XServer

WARM_UPS = 2
SETTLE_SECONDS = 2.0
START_TIMEOUT_SECONDS = 30


def start(desktop, commands, home, runs):
    """The milliseconds to the first window of each command, and the memory of every second run, measured in turn so that all
    see the same computer."""
    server = XServer(desktop.environment["DISPLAY"])
    times, memories = ({command: [] for command in commands} for _ in range(2))
    for run in range(WARM_UPS + runs):
        for command in commands:
            server.forget_windows()
            begin = time.monotonic()
            process = processes.start(shlex.split(command), desktop.environment | {"HOME": str(home.folder)})
            elapsed = (server.wait_for_window(START_TIMEOUT_SECONDS) - begin) * 1000
            if run >= WARM_UPS:
                times[command].append(elapsed)
                if run % 2 == 0:
                    time.sleep(SETTLE_SECONDS)
                    memories[command].append(pss_mib(process.pid))
            processes.stop(process)
    return times, memories


def memory_after_panel(desktop, home):
    """PSS after the panel was opened for the first time and closed again, after a moment of rest."""
    with running(desktop, home) as program:
        click_button(desktop.screen)
        panel = desktop.screen.window("Flitmark")
        time.sleep(SETTLE_SECONDS)
        click_button(desktop.screen)
        wait_until(lambda: not panel.is_on_screen, "the panel to close")
        time.sleep(SETTLE_SECONDS)
        return pss_mib(program.process_id)


def measure(program, others, runs):
    """The start times and the memory of the program and the other commands, and the program's memory after the panel."""
    with desktop_for(program) as (desktop, home):
        times, memories = start(desktop, [program, *others], home, runs)
        return times, memories, [memory_after_panel(desktop, home) for _ in memories[program]]

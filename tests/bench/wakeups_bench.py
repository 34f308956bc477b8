# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""How often the program wakes up by itself, by what is on screen.

A wake-up is a moment in which one of its threads does something, after a sleep of all of them: what the X server answers
at once to the painting that a timer began belongs to the same one. Idle, one a minute is to be expected, and with
a Pomodoro one a second."""

import subprocess
import tempfile
import time

from stage import click_button, desktop_for, running, start_pomodoro

NOTE = "## Today's Focus\nShip it\n\n## Tasks\n- [ ] Write the page\n"
SETTLE_SECONDS = 3
SHORTEST_SLEEP_SECONDS = 0.05


def wakeups(process_id, seconds):
    """The wake-ups a minute."""
    time.sleep(SETTLE_SECONDS)
    # Every system call is the beginning or the end of a sleep, or something that is done between two.
    with tempfile.NamedTemporaryFile("r") as trace:
        tracing = subprocess.Popen(["strace", "-f", "-qq", "-ttt", "-o", trace.name, "-p", str(process_id)])
        time.sleep(seconds)
        tracing.terminate()
        tracing.wait()
        # "12 1769086800.123456 ppoll(..."; a thread's first line is only the sleep in which it was found.
        moments = [float(line.split()[1]) for line in trace if "<... resuming" not in line]
    sleeps = sum(after - before >= SHORTEST_SLEEP_SECONDS for before, after in zip(moments, moments[1:]))
    return sleeps * 60 / seconds


def measure(program_path, seconds):
    """The wake-ups by what is on screen."""
    with desktop_for(program_path) as (desktop, home):
        home.write_daily_note(NOTE)
        with running(desktop, home, "@2026-01-22 14:00:00") as program:
            figures = {"idle, panel never opened": wakeups(program.process_id, seconds)}
            click_button(desktop.screen)
            desktop.screen.window("Flitmark")
            click_button(desktop.screen)
            figures["idle, panel hidden"] = wakeups(program.process_id, seconds)
            start_pomodoro(desktop.screen, program)
            figures["Pomodoro, panel hidden"] = wakeups(program.process_id, seconds)
    return figures

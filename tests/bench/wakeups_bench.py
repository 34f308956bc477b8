# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""How often the program wakes up by itself, by what is on screen.

A wake-up is a sleep that the main thread ended, as the kernel counts them. Idle, one a minute is to be expected, and
with a Pomodoro one a second and what the X server answers where the ring moves."""

import time
from pathlib import Path

from stage import click_button, desktop_for, running, start_pomodoro

NOTE = "## Today's Focus\nShip it\n\n## Tasks\n- [ ] Write the page\n"
SETTLE_SECONDS = 3


def sleeps(pid):
    """The sleeps so far, by thread."""
    counts = {}
    for task in Path(f"/proc/{pid}/task").iterdir():
        status = dict(line.split(":\t", 1) for line in (task / "status").read_text().splitlines() if ":\t" in line)
        counts[task.name] = int(status["voluntary_ctxt_switches"])
    return counts


def wakeups(process_id, seconds):
    """The wake-ups a minute of the main thread, and of the others together."""
    time.sleep(SETTLE_SECONDS)
    before = sleeps(process_id)
    time.sleep(seconds)
    counts = {task: count - before.get(task, 0) for task, count in sleeps(process_id).items()}
    main = counts.pop(str(process_id))
    return main * 60 / seconds, sum(counts.values()) * 60 / seconds


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

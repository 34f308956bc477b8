#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""How often the program wakes up by itself, by what is on screen. Usage: wakeups_bench.py PROGRAM [seconds]

A wake-up is a sleep that the main thread ended, as the kernel counts them. Idle, one a minute is to be expected, and
with a Pomodoro one a second and what the X server answers where the ring moves."""

import os
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "e2e"))

from desktop.desktop import Desktop  # noqa: E402
from desktop.home import Home  # noqa: E402
from desktop.program import Program  # noqa: E402

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
    os.environ["FLITMARK_PROGRAM"] = program_path
    with Desktop() as desktop:
        # A screen reader would ask now and then.
        desktop.environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "0"
        home = Home(desktop.folder / "user")
        home.make_vault()
        home.complete_setup()
        home.write_daily_note(NOTE)
        program = Program(desktop, home, desktop.folder / "output.txt", "@2026-01-22 14:00:00")
        screen = desktop.screen
        button = screen.window("Flitmark Button").geometry.centre
        figures = {"idle, panel never opened": wakeups(program.process_id, seconds)}
        screen.click(*button)
        screen.window("Flitmark")
        screen.click(*button)
        figures["idle, panel hidden"] = wakeups(program.process_id, seconds)
        screen.click(*button, 3)
        menu = screen.window("Flitmark Menu").geometry
        screen.click(menu.x + 40, menu.y + 4 + 32 + 32 + 9 + 16)
        program.wait_for_output("Started Pomodoro timer")
        figures["Pomodoro, panel hidden"] = wakeups(program.process_id, seconds)
        program.stop()
    return figures


def main():
    figures = measure(sys.argv[1], float(sys.argv[2]) if len(sys.argv) > 2 else 60)
    for label, (own, other) in figures.items():
        print(f"{label:34} main thread {own:6.1f} a minute, other threads {other:5.1f}")


if __name__ == "__main__":
    main()

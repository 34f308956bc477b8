#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""How much memory the program gains over a day of eight hours, lived in two minutes: Pomodoros with their answers,
reminders, notes captured, the daily note written by another program.

usage: day_bench.py PROGRAM
"""

import os
import sys
import tempfile
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "e2e"))

from desktop.desktop import Desktop  # noqa: E402
from desktop.home import Home  # noqa: E402
from desktop.program import Program  # noqa: E402
from desktop.waiting import wait_until  # noqa: E402
from startup_bench import pss_mib  # noqa: E402

SPEED = 240
HOURS = 8
NOTE = "## Today's Focus\nShip it\n\n## Tasks\n- [ ] Write\n- [ ] Send\n\n## Pomodoro Log\n**Today:** 0/8 completed\n"


class Day:
    def __init__(self, desktop, home, program):
        self._desktop, self._home, self._program = desktop, home, program
        self._screen = desktop.screen
        self._note = home.vault / "Daily" / "2026" / "2026-01-22.md"
        self._captured = 0

    def start_pomodoro(self):
        """By the button's menu, whose first item below the separator it is while none runs."""
        self._screen.click(*self._screen.window("Flitmark Button").geometry.centre, 3)
        menu = self._screen.window("Flitmark Menu").geometry
        self._screen.click(menu.x + 40, menu.y + 4 + 32 + 32 + 9 + 16)
        self._program.wait_for_output("Started Pomodoro timer")

    def round(self):
        """What happens in one Pomodoro: a captured note, a change from outside, the answer to each window that came up."""
        self._captured += 1
        self._screen.click(*self._screen.window("Flitmark Button").geometry.centre)
        panel = self._screen.window("Flitmark")
        wait_until(lambda: panel.is_active, "the panel to have the keyboard")
        self._screen.type(f"thought {self._captured}")
        self._screen.key("ctrl+Return")
        wait_until(lambda: not self._screen.windows("Flitmark"), "the panel to close")
        with self._note.open("a") as note:
            note.write(f"line {self._captured}\n")
        wait_until(lambda: self._screen.windows("Pomodoro Check-in"), "the check-in", 30)
        self._answer_all()

    def _answer_all(self):
        for title in ("Daily Review", "Pomodoro Check-in"):
            for window in self._screen.windows(title):
                window.activate()
                wait_until(lambda window=window: window.is_active, "the popup to have the keyboard")
                # A popup takes no key in its first moment; the first answer of a check-in logs the Pomodoro.
                keys = ("Escape",) if title == "Daily Review" else ("Tab", "Return")
                while self._screen.windows(title):
                    self._screen.key(*keys)
                    time.sleep(0.05)


def growth(program):
    """PSS in MiB after the first rounds and at the end of the day, and how many rounds there were in between."""
    os.environ["FLITMARK_PROGRAM"] = program
    with Desktop() as desktop, tempfile.TemporaryDirectory() as folder:
        home = Home(Path(folder) / "user")
        home.make_vault()
        times = [f"{hour:02}:{minute:02}" for hour in range(8, 17) for minute in (15, 45)]
        home.complete_setup(daily_review_times=times)
        note = home.vault / "Daily" / "2026" / "2026-01-22.md"
        note.parent.mkdir(parents=True)
        note.write_text(NOTE)
        running = Program(desktop, home, desktop.folder / "output.txt", f"@2026-01-22 08:00:00 x{SPEED}",
                          {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "0"})
        try:
            day = Day(desktop, home, running)
            day.start_pomodoro()
            for _ in range(2):
                day.round()
            began, first = time.monotonic(), pss_mib(running.process_id)
            rounds = 0
            while time.monotonic() - began < HOURS * 3600 / SPEED:
                day.round()
                rounds += 1
            return first, pss_mib(running.process_id), rounds
        finally:
            running.stop()


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    first, last, rounds = growth(str(Path(sys.argv[1]).resolve()))
    print(f"memory (PSS), MiB: {first:.2f} after two Pomodoros, {last:.2f} after {HOURS} hours and {rounds} more "
          f"({last - first:+.2f})")


if __name__ == "__main__":
    main()

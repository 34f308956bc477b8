#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""Measures all that has a budget and prints it beside the budget. Ends with 1 when one is not kept.

usage: table.py FOLDER-OF-A-RELEASE-BUILD [short] [PART...]

"short" takes the fewer and shorter measurements that a machine under load can bear; its figures say little. The parts
are start, hotkey, logic, wakeups and day; without one all are measured.
"""

import os
import statistics
import subprocess
import sys
from pathlib import Path

import day_bench
import hotkey_bench
import startup_bench
import wakeups_bench

OTHERS = {"xpad": "xpad --new", "gnote": "gnote", "featherpad": "featherpad --standalone"}


class Table:
    def __init__(self):
        self.is_good = True
        print(f"{'what':52} {'figure':>16}  {'budget':22}")

    def row(self, what, figure, budget, is_kept):
        self.is_good = self.is_good and is_kept
        print(f"{what:52} {figure:>16}  {budget:22} {'' if is_kept else 'NOT KEPT'}".rstrip(), flush=True)


def add_start(table, program, runs):
    times, memories, after = startup_bench.measure(program, list(OTHERS.values()), runs)
    time, memory = ({command: statistics.median(figures) for command, figures in measured.items()}
                    for measured in (times, memories))
    for name, command in OTHERS.items():
        print(f"  {name} to its window: {time[command]:.1f} ms, {memory[command]:.1f} MiB")
    leanest = min(time[command] for command in OTHERS.values())
    table.row(f"start to the button, of the leanest ({leanest:.0f} ms)", f"{time[program] / leanest:.2f}", "under 0.5",
              time[program] < leanest / 2)
    table.row("memory, panel never opened", f"{memory[program]:.1f} MiB", "28 MiB", memory[program] <= 28)
    opened = statistics.median(after)
    table.row("memory, panel opened once", f"{opened:.1f} MiB", "40 MiB", opened <= 40)


def add_wakeups(table, program, seconds):
    for label, count in wakeups_bench.measure(program, seconds).items():
        most = 62 if "Pomodoro" in label else 2
        table.row(f"wake-ups a minute, {label}", f"{count:.0f}", f"{most}", count <= most)


def add_hotkey(table, program):
    times = hotkey_bench.hotkey_times(program)
    p95 = times[len(times) * 95 // 100]
    table.row("hotkey to painted panel, p95", f"{p95:.1f} ms", "16 ms", p95 <= 16)


def add_logic(table, build):
    for name, *arguments in (["capture", build], ["daily"], ["listing"], ["daily_tab"]):
        output = subprocess.run([build / f"bench_{name}", *arguments], env=os.environ | {"QT_QPA_PLATFORM": "offscreen"},
                                capture_output=True, text=True, check=True).stdout
        for line in output.splitlines():
            if line.startswith("  "):
                print(line)
        for what, figure, unit, most in (line.split("\t") for line in output.splitlines() if "\t" in line):
            table.row(what, f"{figure} {unit}", f"{most} {unit}", float(figure) <= float(most))


def add_day(table, program):
    first, last, rounds = day_bench.growth(program)
    table.row(f"growth over eight hours, {rounds} Pomodoros", f"{last - first:+.2f} MiB", "1 MiB", last - first <= 1)


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    build, is_short = Path(sys.argv[1]).resolve(), "short" in sys.argv[2:]
    program = str(build / "flitmark")
    table = Table()
    parts = {
        "start": lambda: add_start(table, program, 3 if is_short else 15),
        "hotkey": lambda: add_hotkey(table, program),
        "logic": lambda: add_logic(table, build),
        "wakeups": lambda: add_wakeups(table, program, 10 if is_short else 60),
        "day": lambda: add_day(table, program),
    }
    for name in [part for part in sys.argv[2:] if part in parts] or list(parts)[:-1 if is_short else None]:
        parts[name]()
    # On a machine that does other things as well the figures prove nothing.
    return 0 if table.is_good or is_short else 1


if __name__ == "__main__":
    sys.exit(main())

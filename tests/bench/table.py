#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""Measures all that has a budget and prints it beside the budget. Ends with 1 when one is not kept.

usage: table.py FOLDER-OF-A-RELEASE-BUILD [short] [PART...]

"short" takes the fewer and shorter measurements that a machine under load can bear; its figures say little. The parts
are start, hotkey, logic, wakeups and day; without one all are measured.
"""

import os
import re
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


def output_of(program, *arguments):
    environment = os.environ | {"QT_QPA_PLATFORM": "offscreen"}
    return subprocess.run([str(program), *arguments], env=environment, capture_output=True, text=True, check=False).stdout


def numbers(pattern, text):
    """The numbers in the first place in the text that looks like the pattern."""
    found = re.search(pattern, text)
    if not found:
        raise RuntimeError(f"no {pattern!r} in\n{text}")
    return [float(number) for number in found.groups()]


def add_start(table, program):
    times, before, after = startup_bench.measure(program, list(OTHERS.values()))
    medians = {command: statistics.median(values) for command, values in times.items()}
    leanest = min(medians[command] for command in OTHERS.values())
    for name, command in OTHERS.items():
        print(f"  {name} to its window: {medians[command]:.1f} ms")
    table.row(f"start to the button, of the leanest ({leanest:.0f} ms)", f"{medians[program] / leanest:.2f}", "under 0.5",
              medians[program] < leanest / 2)
    table.row("memory, panel never opened", f"{before:.1f} MiB", "28 MiB", before <= 28)
    table.row("memory, panel opened once", f"{after:.1f} MiB", "40 MiB", after <= 40)


def add_wakeups(table, program, seconds):
    for label, count in wakeups_bench.measure(program, seconds).items():
        most = 62 if "Pomodoro" in label else 2
        table.row(f"wake-ups a minute, {label}", f"{count:.0f}", f"{most}", count <= most)


def add_hotkey(table, program):
    times = hotkey_bench.hotkey_times(program)
    p95 = times[len(times) * 95 // 100]
    table.row("hotkey to painted panel, p95", f"{p95:.1f} ms", "16 ms", p95 <= 16)


def add_logic(table, build):
    p99, = numbers(r"p99 +([0-9.]+) ms", output_of(build / "bench_capture", str(build)))
    table.row("keystroke to draft, 10 KB, p99", f"{p99:.2f} ms", "1 ms", p99 <= 1)
    daily = output_of(build / "bench_daily")
    speed, = numbers(r"parse 100 MB in new memory: ([0-9.]+) MB/s", daily)
    with_new_pages, = numbers(r"new memory, 100 MB against 1 MB: ([0-9.]+)", daily)
    growth, = numbers(r"kept memory, 100 MB against 1 MB: ([0-9.]+)", daily)
    table.row("parsing a daily note", f"{speed:.0f} MB/s", "200 MB/s", speed >= 200)
    table.row("parsing 100 MB, time per byte against 1 MB", f"{growth:.2f}", "linear: up to 1.25", growth <= 1.25)
    print(f"  with what the system takes to hand out new pages: {with_new_pages:.2f}")
    for line in output_of(build / "bench_listing").splitlines():
        if "ratio" in line:
            ratio, = numbers(r"ratio ([0-9.]+)", line)
            table.row(f"listing 100,000 notes, {line[:12].strip()}", f"{ratio:.2f} walks", "1.5 walks", ratio <= 1.5)
    for label, time in re.findall(r"^(.+?) +([0-9.]+) ms$", output_of(build / "bench_daily_tab"), re.MULTILINE):
        table.row(f"200 tasks shown, {label.strip()}", f"{time} ms", "16 ms", float(time) <= 16)


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
        "start": lambda: add_start(table, program),
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

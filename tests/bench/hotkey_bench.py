#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""How long it takes from pressing Alt+N in another program's window to the painted panel, on a desktop of its own.

usage: hotkey_bench.py PROGRAM
"""

import os
import sys
import tempfile
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "e2e"))

from desktop.bystander import Bystander  # noqa: E402
from desktop.desktop import Desktop  # noqa: E402
from desktop.home import Home  # noqa: E402
from desktop.program import Program  # noqa: E402
from desktop.waiting import wait_until  # noqa: E402
from xserver import XServer  # noqa: E402

RUNS = 100
WARM_UPS = 3


def hotkey_times(program):
    """The milliseconds from the key to the first pixel of the panel's frame, least first."""
    os.environ["FLITMARK_PROGRAM"] = program
    times = []
    with Desktop() as desktop, tempfile.TemporaryDirectory() as folder:
        home = Home(Path(folder) / "user")
        home.make_vault()
        home.complete_setup()
        running = Program(desktop, home, desktop.folder / "output.txt",
                          variables={"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "0"})
        try:
            desktop.screen.window("Flitmark Button")
            bystander = Bystander(desktop)
            server = XServer(desktop.environment["DISPLAY"])
            width, height = desktop.screen.width, desktop.screen.height
            # In the middle of the panel, which comes up in the bottom right corner.
            point = (width - 12 - 230, height - 12 - 280)
            for run in range(WARM_UPS + RUNS):
                before = server.pixel(*point)
                began = server.press("Alt_L", "n")
                painted = server.wait_for_pixel(*point, before)
                if run >= WARM_UPS:
                    times.append((painted - began) * 1000)
                # Away again from its own keyboard focus, so that the next key comes from the other window.
                panel = desktop.screen.window("Flitmark")
                wait_until(lambda: panel.is_active, "the panel to have the keyboard")
                desktop.screen.key("Escape")
                wait_until(lambda: not desktop.screen.windows("Flitmark") and bystander.window.is_active,
                           "the other window to have the keyboard again")
        finally:
            running.stop()
    return sorted(times)


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    times = hotkey_times(str(Path(sys.argv[1]).resolve()))
    print(f"hotkey to painted panel, ms, {RUNS} runs: p50 {times[RUNS // 2]:.1f}, p95 {times[RUNS * 95 // 100]:.1f}, "
          f"most {times[-1]:.1f}")


if __name__ == "__main__":
    main()

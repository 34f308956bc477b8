# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""Where the running program is measured: on a desktop of its own, for a user who finished the set-up."""

import contextlib
import os
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "e2e"))

from desktop.desktop import Desktop  # noqa: E402
from desktop.home import Home  # noqa: E402
from desktop.program import Program  # noqa: E402


@contextlib.contextmanager
def desktop_for(program):
    """Gives the desktop and the home of a user of `program`."""
    os.environ["FLITMARK_PROGRAM"] = program
    with Desktop() as desktop:
        # A screen reader would ask now and then, and most users have none: windows are known by their titles alone.
        desktop.environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "0"
        home = Home(desktop.folder / "user")
        home.make_vault()
        home.complete_setup()
        yield desktop, home


@contextlib.contextmanager
def running(desktop, home, clock=None):
    """Gives the program, whose button is on screen."""
    program = Program(desktop, home, desktop.folder / "output.txt", clock)
    try:
        desktop.screen.window("Flitmark Button")
        yield program
    finally:
        program.stop()


def click_button(screen):
    screen.click(*screen.window("Flitmark Button").geometry.centre)


def start_pomodoro(screen, program):
    """By the button's menu, whose first item below the separator it is while none runs."""
    screen.click(*screen.window("Flitmark Button").geometry.centre, 3)
    menu = screen.window("Flitmark Menu").geometry
    screen.click(menu.x + 40, menu.y + 4 + 32 + 32 + 9 + 16)
    program.wait_for_output("Started Pomodoro timer")


def pss_mib(process_id, kind="Pss"):
    """The process's proportional share of memory, in MiB; with "Pss_Anon" of what is no file's, which does not depend on what
    other programs have the same files open."""
    for line in Path(f"/proc/{process_id}/smaps_rollup").read_text().splitlines():
        if line.startswith(f"{kind}:"):
            return int(line.split()[1]) / 1024
    raise RuntimeError(f"no {kind} in smaps_rollup")

# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""How long it takes from pressing Alt+N in another program's window to the painted panel."""

import time

from stage import desktop_for, running
from desktop.bystander import Bystander
from desktop.waiting import wait_until
from xserver import XServer

RUNS = 100
WARM_UPS = 3


def hotkey_times(program):
    """The milliseconds from the key to the first pixel of the panel's frame, least first."""
    times = []
    with desktop_for(program) as (desktop, home), running(desktop, home):
        bystander = Bystander(desktop)
        # The key is watched a moment after the button has come.
        time.sleep(1)
        server = XServer(desktop.environment["DISPLAY"])
        # In the middle of the panel, which comes up in the bottom right corner.
        point = (desktop.screen.width - 12 - 230, desktop.screen.height - 12 - 280)
        for _ in range(WARM_UPS + RUNS):
            before = server.pixel(*point)
            began = server.press("Alt_L", "n")
            times.append((server.wait_for_pixel(*point, before) - began) * 1000)
            # Away again from its own keyboard focus, so that the next key comes from the other window.
            panel = desktop.screen.window("Flitmark")
            wait_until(lambda panel=panel: panel.is_active, "the panel to have the keyboard")
            desktop.screen.key("Escape")
            wait_until(lambda: not desktop.screen.windows("Flitmark") and bystander.window.is_active,
                       "the other window to have the keyboard again")
    return sorted(times[WARM_UPS:])

# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""Another program's window, to see who has the keyboard."""

import re

from . import processes
from .waiting import wait_until

_TITLE = "Bystander"


class Bystander:
    """A window with the keyboard that remembers the keys it gets."""

    def __init__(self, desktop, place="320x240+80+80"):
        self._output_path = desktop.folder / "bystander.txt"
        with self._output_path.open("wb") as output:
            self._process = processes.start(["xev", "-name", _TITLE, "-geometry", place, "-event", "keyboard"],
                                            desktop.environment, stdout=output)
        self.window = desktop.screen.window(_TITLE)
        self.window.activate()
        wait_until(lambda: self.window.is_active, "the other window to be active")

    def keys(self):
        """The names of the keys pressed in the window so far."""
        text = self._output_path.read_text(errors="replace")
        return re.findall(r"KeyPress event.*?keysym 0x[0-9a-f]+, (\w+)\)", text, re.DOTALL)

    def stop(self):
        processes.stop(self._process)

# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""The screen of a desktop: its windows, a real pointer, real keys, and pictures."""

import math
import re
import subprocess
import time

from Xlib import X, display

from . import processes
from .accessibility import Gone, Rectangle
from .waiting import DEADLINE_SECONDS, PATIENCE, wait_until

_TOOL_TIMEOUT_SECONDS = DEADLINE_SECONDS * PATIENCE

SINGLE_CLICK_SECONDS = 0.3
"""The program takes two clicks for one where they follow each other in a quarter of a second."""

DRAG_STEP = 4
"""The pixels between two moves of a drag."""

TAKE_OVER_STEPS = 3
"""The steps after which a drag pauses: enough to be known as a drag, and time for the window manager to take it over."""


class Screen:
    """Everything here goes through the X server, as a person's hand and eye do."""

    def __init__(self, environment, size):
        self._environment = environment
        self.width, self.height = size
        self._clipboard = None
        self._last_press = 0.0

    def run(self, *command):
        """The output of a command line tool on this screen; empty when it fails."""
        done = subprocess.run(command, env=self._environment, capture_output=True, text=True, check=False,
                              stdin=subprocess.DEVNULL, timeout=_TOOL_TIMEOUT_SECONDS)
        return done.stdout if done.returncode == 0 else ""

    def xdotool(self, *arguments):
        return self.run("xdotool", *(str(argument) for argument in arguments)).strip()

    def has_compositor(self):
        return '"xcompmgr"' in self.run("xwininfo", "-root", "-tree")

    # Windows

    def windows(self, title):
        """The windows on screen with exactly this title."""
        found = self.xdotool("search", "--onlyvisible", "--name", f"^{re.escape(title)}$").split()
        return [Window(self, int(number)) for number in found]

    def window(self, title, timeout=DEADLINE_SECONDS):
        """The window with this title, as soon as it is on screen."""
        return wait_until(lambda: self.windows(title), f'a window titled "{title}"', timeout)[0]

    def active_window(self):
        """The window that the window manager calls active, or None."""
        number = self.run("xprop", "-root", "-notype", "_NET_ACTIVE_WINDOW").rpartition("# ")[2].strip()
        return Window(self, int(number, 16)) if number.startswith("0x") and int(number, 16) else None

    def focused_window(self):
        """The window that gets the keys."""
        number = self.xdotool("getwindowfocus")
        return Window(self, int(number)) if number else None

    def stacking(self):
        """The managed windows from the lowest to the highest."""
        listed = self.run("xprop", "-root", "-notype", "_NET_CLIENT_LIST_STACKING").rpartition("# ")[2]
        return [Window(self, int(number, 16)) for number in listed.replace(",", " ").split()]

    # Pointer and keys

    def click(self, x, y, button=1):
        """Clicks once."""
        self._press_after_pause("mousemove", x, y, "click", button)

    def drag(self, start, end):
        """Presses at `start`, moves to `end` in steps as small as a hand's, as far as the screen goes, and releases."""
        steps = max(1, round(math.dist(start, end) / DRAG_STEP))
        command = ["mousemove", *start, "mousedown", 1]
        for step in range(1, steps + 1):
            x, y = (max(0, round(a + (b - a) * step / steps)) for a, b in zip(start, end))
            command += ["mousemove", x, y, "sleep", 0.3 * PATIENCE if step == TAKE_OVER_STEPS else 0.005]
        self._press_after_pause(*command, "mouseup", 1)

    def _press_after_pause(self, *command):
        """Never so soon after the press before that both would be a double click."""
        time.sleep(max(0.0, self._last_press + SINGLE_CLICK_SECONDS - time.monotonic()))
        self.xdotool(*command)
        self._last_press = time.monotonic()

    def type(self, text, delay_ms=5):
        """Types `text`; plain characters only, everything else is for `paste`."""
        for number, line in enumerate(text.split("\n")):
            if number:
                self.key("Return")
            if line:
                self.xdotool("type", "--delay", delay_ms, "--", line)

    def key(self, *keys):
        """Presses keys by their names, one after the other ("ctrl+Return")."""
        self.xdotool("key", "--delay", 5, *keys)

    def key_until(self, key, condition, what):
        """Presses a key until `condition()` holds: a window that came by itself is deaf to the first ones."""
        wait_until(lambda: condition() or (self.key(key), condition())[1], what)

    def repeat_keys(self):
        """Lets a held key repeat, as on any other desktop. Here, where typing may take long, it would double letters."""
        server = display.Display(self._environment["DISPLAY"])
        server.change_keyboard_control(auto_repeat_mode=X.AutoRepeatModeOn)
        server.sync()
        server.close()

    def copy(self, text):
        """Puts `text` on the clipboard and keeps it there until the next text."""
        self.release()
        self._clipboard = processes.start(["xclip", "-selection", "clipboard", "-quiet", "-in"], self._environment,
                                          stdin=subprocess.PIPE)
        self._clipboard.stdin.write(text.encode())
        self._clipboard.stdin.close()
        wait_until(lambda: self.run("xclip", "-selection", "clipboard", "-out") == text, "the clipboard's text")

    def paste(self, text):
        """Puts `text` on the clipboard and presses the keys that paste."""
        self.copy(text)
        self.key("ctrl+v")

    def release(self):
        """Lets go of the clipboard."""
        if self._clipboard is not None:
            processes.stop(self._clipboard)
            self._clipboard = None

    # Pictures

    def picture(self, path, area=None):
        """Writes a picture of the screen, or of an area of it, as PNG; equal pictures are equal files."""
        crop = []
        if area is not None:
            crop = ["-crop", f"{area.width}x{area.height}+{area.x}+{area.y}", "+repage"]
        self.run("import", "-window", "root", *crop, "-define", "png:exclude-chunks=date,time", str(path))


class Window:
    """A window on the screen, known by its number."""

    def __init__(self, screen, number):
        self._screen = screen
        self.number = number

    def __eq__(self, other):
        return isinstance(other, Window) and self.number == other.number

    def __hash__(self):
        return hash(self.number)

    def __repr__(self):
        return f'window {self.number:#x} "{self.title}"'

    @property
    def title(self):
        return self._screen.xdotool("getwindowname", self.number)

    @property
    def geometry(self):
        """The window's own area, without the frame that the window manager draws around it."""
        text = self._screen.run("xwininfo", "-id", str(self.number))
        values = [re.search(rf"{key}:\s+(-?\d+)", text)
                  for key in ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")]
        if not all(values):
            raise Gone(f"window {self.number:#x}")
        return Rectangle(*(int(value.group(1)) for value in values))

    @property
    def is_on_screen(self):
        return "Map State: IsViewable" in self._screen.run("xwininfo", "-id", str(self.number))

    @property
    def is_active(self):
        return self._screen.active_window() == self

    def property(self, name):
        """The value of a window property as the tool prints it; empty when it is not set."""
        text = self._screen.run("xprop", "-id", str(self.number), "-notype", name)
        return text.removeprefix(name).lstrip(" =:").strip() if "not found" not in text else ""

    def states(self):
        """The names of the states the window manager keeps for the window ("ABOVE", "SKIP_TASKBAR")."""
        return set(re.findall(r"_NET_WM_STATE_(\w+)", self.property("_NET_WM_STATE")))

    def activate(self):
        self._screen.xdotool("windowactivate", "--sync", self.number)

    def close(self):
        """Asks the window to close, as its close button does."""
        self._screen.run("wmctrl", "-i", "-c", hex(self.number))

    def picture(self, path, margin=0, patience=1.0):
        """Writes a picture of the window and of `margin` around it, taken when nothing in it moves any more, or when
        patience, in seconds, is at its end."""
        own = self.geometry
        x, y = max(0, own.x - margin), max(0, own.y - margin)
        right, bottom = min(self._screen.width, own.right + margin), min(self._screen.height, own.bottom + margin)
        area = Rectangle(x, y, right - x, bottom - y)
        deadline = time.monotonic() + patience
        last = None
        while time.monotonic() < deadline:
            self._screen.picture(path, area)
            if path.read_bytes() == last:
                break
            last = path.read_bytes()

# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""Another program that has the hotkey for itself."""

from . import processes
from .waiting import wait_until

_PROGRAM = """
import ctypes
x11 = ctypes.CDLL("libX11.so.6")
x11.XOpenDisplay.restype = x11.XDefaultRootWindow.restype = ctypes.c_void_p
display = ctypes.c_void_p(x11.XOpenDisplay(None))
root = ctypes.c_void_p(x11.XDefaultRootWindow(display))
n = x11.XKeysymToKeycode(display, ctypes.c_ulong(ord("n")))
x11.XGrabKey(display, n, 1 << 3, root, False, 1, 1)  # Alt
x11.XSync(display, False)
print("ready", flush=True)
event = (ctypes.c_int * 64)()
while True:
    x11.XNextEvent(display, event)
    if event[0] == 2:  # a key press
        print("press", flush=True)
"""


class KeyGrabber:
    """Holds Alt+N, with no further keys, on the whole screen and counts the presses."""

    def __init__(self, desktop):
        self._output_path = desktop.folder / "keygrabber.txt"
        with self._output_path.open("wb") as output:
            self._process = processes.start(["/usr/bin/python3", "-c", _PROGRAM], desktop.environment, stdout=output)
        wait_until(lambda: "ready" in self._output_path.read_text(), "the other program to hold the key")

    def presses(self):
        return self._output_path.read_text().count("press")

    def stop(self):
        processes.stop(self._process)

# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""The X server without a process in between: keys are pressed, pixels read and windows seen within microseconds."""

import ctypes
import select
import time


class XServer:
    """A connection of its own to the server of `display`."""

    def __init__(self, display):
        self._x = ctypes.CDLL("libX11.so.6")
        self._xtst = ctypes.CDLL("libXtst.so.6")
        self._x.XOpenDisplay.restype = ctypes.c_void_p
        self._x.XGetImage.restype = ctypes.c_void_p
        self._x.XGetPixel.restype = ctypes.c_ulong
        self._x.XDefaultRootWindow.restype = ctypes.c_ulong
        self._x.XStringToKeysym.restype = ctypes.c_ulong
        self._display = ctypes.c_void_p(self._x.XOpenDisplay(display.encode()))
        if not self._display:
            raise RuntimeError(f"no X server at {display}")
        self._root = ctypes.c_ulong(self._x.XDefaultRootWindow(self._display))

    def press(self, *names):
        """Presses keys together and lets them go. Gives the time just before the last one went down."""
        codes = [self._x.XKeysymToKeycode(self._display, ctypes.c_ulong(self._x.XStringToKeysym(name.encode())))
                 for name in names]
        for code in codes[:-1]:
            self._key(code, True)
        began = time.monotonic()
        self._key(codes[-1], True)
        for code in reversed(codes):
            self._key(code, False)
        return began

    def _key(self, code, is_down):
        self._xtst.XTestFakeKeyEvent(self._display, code, is_down, 0)
        self._x.XFlush(self._display)

    def pixel(self, x, y):
        """The colour on screen at a point."""
        all_planes, z_pixmap = ctypes.c_ulong(0xFFFFFF), 2
        image = ctypes.c_void_p(self._x.XGetImage(self._display, self._root, x, y, 1, 1, all_planes, z_pixmap))
        colour = self._x.XGetPixel(image, 0, 0)
        self._x.XDestroyImage(image)
        return colour

    def wait_for_pixel(self, x, y, differs_from, timeout=5.0):
        """The time at which the point was first seen with another colour."""
        deadline = time.monotonic() + timeout
        while self.pixel(x, y) == differs_from:
            if time.monotonic() > deadline:
                raise TimeoutError(f"nothing was painted at {x}, {y}")
        return time.monotonic()

    def forget_windows(self):
        """From now on windows are seen to be put on screen, once those of before have come to rest."""
        substructure_notify, discard = 1 << 19, True
        self._x.XSelectInput(self._display, self._root, ctypes.c_long(substructure_notify))
        time.sleep(0.2)
        self._x.XSync(self._display, discard)

    def wait_for_window(self, timeout):
        """The time at which the next window was put on screen."""
        map_notify, event = 19, (ctypes.c_long * 24)()
        deadline = time.monotonic() + timeout
        while event[0] & 0xFFFFFFFF != map_notify:
            if not self._x.XPending(self._display):
                left = deadline - time.monotonic()
                if left < 0:
                    raise TimeoutError("no window came on screen")
                select.select([self._x.XConnectionNumber(self._display)], [], [], left)
            else:
                self._x.XNextEvent(self._display, event)
        return time.monotonic()

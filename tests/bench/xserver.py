# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""The X server without a process in between: keys are pressed and pixels read within microseconds."""

import ctypes
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

# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""A window manager that writes down, one JSON object a line, what it is told of each window: what is set at the moment
it is to be shown ("map"), and each other window it is laid over from then on ("transient"). What gets the keyboard it
lays on top, whatever else has been asked for."""

import json
import sys

from Xlib import X, Xatom, display, error

_ATOM_LISTS = ("_NET_WM_WINDOW_TYPE", "_NET_WM_STATE", "WM_PROTOCOLS")


class WritingManager:
    def __init__(self, path):
        self._display = display.Display()
        self._root = self._display.screen().root
        self._output = open(path, "w", encoding="utf-8", buffering=1)
        self._windows = {}
        self._root.change_attributes(event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self._display.set_error_handler(lambda *_: None)  # of windows that have gone
        self._display.sync()

    def _atom(self, name):
        return self._display.intern_atom(name)

    def _values(self, window, name):
        found = window.get_full_property(self._atom(name), X.AnyPropertyType)
        return list(found.value) if found else []

    def _title(self, window):
        found = window.get_full_property(self._atom("_NET_WM_NAME"), X.AnyPropertyType)
        return found.value.decode() if found else window.get_wm_name()

    def _transient(self, window):
        parents = self._values(window, "WM_TRANSIENT_FOR")
        return self._windows.get(parents[0], "another window") if parents else None

    def _write(self, window, what, **details):
        print(json.dumps({"title": self._windows[window.id], "what": what} | details), file=self._output)

    def _tell(self, root_property, windows):
        self._root.change_property(self._atom(root_property), Xatom.WINDOW, 32, [window.id for window in windows])

    def _restack(self, window):
        window.configure(stack_mode=X.Above)
        self._tell("_NET_CLIENT_LIST_STACKING", [one for one in self._root.query_tree().children
                                                 if one.id in self._windows])

    def _activate(self, window):
        hints = window.get_wm_hints()
        if not hints or hints.input:
            window.set_input_focus(X.RevertToPointerRoot, X.CurrentTime)
            self._tell("_NET_ACTIVE_WINDOW", [window])
        self._restack(window)

    def on_map(self, event):
        window = event.window
        self._windows[window.id] = self._title(window)
        hints = window.get_wm_hints()
        self._write(window, "map", takesFocus=bool(not hints or hints.input),
                    desktop=self._values(window, "_NET_WM_DESKTOP"), transient=self._transient(window),
                    **{name: [self._display.get_atom_name(atom) for atom in self._values(window, name)]
                       for name in _ATOM_LISTS})
        window.change_attributes(event_mask=X.PropertyChangeMask)
        window.map()
        self._activate(window)

    def on_configure(self, event):
        asked = {name: getattr(event, name) for bit, name in (
            (X.CWX, "x"), (X.CWY, "y"), (X.CWWidth, "width"), (X.CWHeight, "height")) if event.value_mask & bit}
        event.window.configure(**asked)
        if event.value_mask & X.CWStackMode and event.stack_mode == X.Above:
            self._restack(event.window)

    def on_property(self, event):
        if event.atom == self._atom("WM_TRANSIENT_FOR"):
            self._write(event.window, "transient", transient=self._transient(event.window))

    def on_message(self, event):
        if event.client_type == self._atom("_NET_ACTIVE_WINDOW"):
            self._activate(event.window)

    def run(self):
        handlers = {X.MapRequest: self.on_map, X.ConfigureRequest: self.on_configure,
                    X.PropertyNotify: self.on_property, X.ClientMessage: self.on_message}
        while True:
            event = self._display.next_event()
            try:
                handlers.get(event.type, lambda event: None)(event)
            except (error.BadWindow, error.BadDrawable):
                pass


WritingManager(sys.argv[1]).run()

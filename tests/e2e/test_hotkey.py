# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""The hotkey on an X11 desktop: from any program, once a press, and no key of what is typed after it goes astray."""

import os

from desktop.case import SetUpCase
from desktop.keygrabber import KeyGrabber
from desktop.waiting import hold, wait_until

HOTKEY = "alt+n"

# What is typed in one go: with capitals, whose Shift is a key of its own, and longer than a fast typist's lead.
TEXT = ("Remember The Milk, and the bread. " * 6)[:200]
ROUNDS = int(os.environ.get("FLITMARK_TYPING_ROUNDS", "10"))


class HotkeyTest(SetUpCase):
    def setUp(self):
        super().setUp()
        self.bystander = self.start_bystander()

    def start_with_hotkey(self):
        """Starts the program and waits until its hotkey works. The panel is closed then."""
        self.start_with_button()
        self.open_by_hotkey()
        self.put_away()
        self.typed_before = len(self.bystander.keys())

    def put_away(self):
        """Closes the panel; the other window has the keyboard again."""
        self.wait_for_focus("Note")
        self.screen.key("Escape")
        self.wait_until_panel_closed()
        wait_until(lambda: self.bystander.window.is_active, "the other window to be active again")

    def keys_gone_astray(self):
        """What the other window got since the hotkey works, of keys that write."""
        return [key for key in self.bystander.keys()[self.typed_before:] if not key.endswith(("_L", "_R", "_Lock"))]

    def assert_toggles(self, keys=HOTKEY):
        self.screen.key(keys)
        self.screen.window("Flitmark")
        self.put_away()

    def test_toggles_from_another_program(self):
        self.start_with_hotkey()
        for keys in (HOTKEY, "alt+shift+n", "ctrl+alt+n", "super+ctrl+alt+shift+n", "Alt_R+n"):
            with self.subTest(keys):
                self.assert_toggles(keys)
        for lock in ("Caps_Lock", "Num_Lock"):
            with self.subTest(lock):
                self.screen.key(lock)
                self.assert_toggles()
                self.screen.key(lock)

        # The program's own windows keep the key; an open panel without the keyboard is put away.
        self.screen.key(HOTKEY)
        self.wait_for_focus("Note")
        self.screen.type("a")
        self.screen.key(HOTKEY, "alt+shift+n", "ctrl+alt+n")
        self.screen.type("b")
        self.wait_for_text("ab")
        self.assertTrue(self.panel_is_open())
        self.bystander.window.activate()
        self.screen.key(HOTKEY)
        self.wait_until_panel_closed()
        self.assertEqual(self.keys_gone_astray(), [])
        self.screen.key("n", "shift+n")
        wait_until(lambda: self.keys_gone_astray() == ["n", "N"], "N without Alt to be the other program's")

    def test_key_by_its_place(self):
        """Where the layout has another letter, and after it was changed while the program runs."""
        self.start_with_hotkey()
        self.screen.run("setxkbmap", "-layout", "us", "-variant", "dvorak", "-option", "altwin:swap_lalt_lwin")
        wait_until(lambda: "dvorak" in self.screen.run("setxkbmap", "-query"), "the other layout")
        self.assert_toggles("alt+b")
        self.screen.key("alt+n")
        wait_until(lambda: "n" in self.keys_gone_astray(), "the other key to be the other program's")
        self.assertFalse(self.panel_is_open())

    def test_held_key_counts_once(self):
        self.screen.repeat_keys()
        self.start_with_hotkey()
        self.screen.xdotool("keydown", "alt", "keydown", "n")
        self.wait_for_focus("Note")
        hold(self.panel_is_open, "the panel stays open", 1.2)
        self.bystander.window.activate()
        hold(self.panel_is_open, "the panel stays open when another window gets the keyboard", 0.5)
        self.screen.xdotool("keyup", "n", "keydown", "n")
        self.wait_until_panel_closed()
        hold(lambda: not self.panel_is_open(), "the panel stays closed", 1.0)
        self.screen.xdotool("keyup", "n", "keyup", "alt")
        self.assertEqual(self.keys_gone_astray(), [])
        self.assertEqual(self.home.draft(), {})
        self.assert_toggles()

    def test_typing_straight_on(self):
        self.start_with_hotkey()
        for _ in range(ROUNDS):
            self.screen.xdotool("key", "--delay", 0, HOTKEY, "type", "--delay", 0, TEXT)
            self.wait_for_text(TEXT)
            self.assertEqual(self.keys_gone_astray(), [])
            self.screen.key("ctrl+a", "Delete")
            self.wait_for_text("")
            self.put_away()

    def test_typing_while_the_hotkey_is_down(self):
        """As fast hands do: the next keys come before N is released."""
        self.start_with_hotkey()
        self.screen.xdotool("keydown", "alt", "keydown", "n", "keyup", "alt", "key", "--delay", 0, "a", "b", "keyup",
                            "n", "key", "c")
        self.wait_for_text("abc")
        self.put_away()
        self.assertEqual(self.keys_gone_astray(), [])
        self.assert_toggles()

    def test_shared_with_another_program(self):
        """A key that another program holds reaches both, alone and with further keys that it does not hold."""
        grabber = KeyGrabber(self.desktop)
        self.addCleanup(grabber.stop)
        self.screen.repeat_keys()
        self.start_with_hotkey()
        seen = grabber.presses()
        self.assert_toggles()
        wait_until(lambda: grabber.presses() == seen + 1, "the other program to get its key")
        self.assert_toggles("ctrl+alt+n")
        self.assertEqual(grabber.presses(), seen + 1)
        self.screen.xdotool("keydown", "alt", "keydown", "n")
        self.wait_for_focus("Note")
        hold(self.panel_is_open, "the panel stays open", 1.0)
        self.screen.xdotool("keyup", "n", "key", "n", "keyup", "alt")
        hold(self.panel_is_open, "a key typed into the panel itself does nothing", 0.3)
        self.put_away()

        # When the other program has gone the key is held here alone, from its next press on.
        grabber.stop()
        self.assert_toggles()
        self.screen.xdotool("key", "--delay", 0, HOTKEY, "type", "--delay", 0, TEXT)
        self.wait_for_text(TEXT)

    def test_the_keyboard_is_let_go_without_a_panel(self):
        """While the set-up is not finished there is nothing to show, and nobody is kept from typing."""
        self.home.config_path.unlink()
        self.start()
        wizard = self.screen.window("Flitmark Setup")
        wait_until(lambda: wizard.is_active, "the wizard to be active")
        self.bystander.window.activate()
        self.screen.key(HOTKEY, "x")
        wait_until(lambda: "x" in self.bystander.keys(), "typing to go on")
        self.assertFalse(self.panel_is_open())

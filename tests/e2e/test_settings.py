# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""The settings window: what "Done" stores, what takes effect, and what is dropped."""

from desktop.case import SetUpCase
from desktop.waiting import wait_until

TITLE = "Flitmark Settings"


class SettingsTest(SetUpCase):
    COMPOSITOR = True

    def open_settings(self, panel):
        panel.activate()
        self.program.click("Settings", window="Flitmark")
        window = self.screen.window(TITLE)
        wait_until(lambda: window.is_active, "the settings to have the keyboard")
        return window

    def click(self, *names):
        for name in names:
            self.program.click(name, window=TITLE)

    def wait_until_closed(self):
        wait_until(lambda: not self.screen.windows(TITLE), "the settings to close")

    def test_done_stores_and_takes_effect(self):
        self.start_with_button()
        panel = self.open_panel()
        self.assertIn("ABOVE", panel.states())
        place = self.open_settings(panel).geometry
        self.assertEqual((place.width, place.height), (640, 600))
        self.click("Appearance", "Forest Focus", "Notes", "Normal", "Window Opacity")
        self.program.find("Window Opacity: 75%", window=TITLE)
        self.screen.key("Left")
        self.program.find("Window Opacity: 70%", window=TITLE)
        self.assertEqual(self.home.config().get("color_palette", "obsidian_native"), "obsidian_native")
        self.screen.key("ctrl+Return")
        self.wait_until_closed()
        stored = self.home.config()
        self.assertEqual((stored["color_palette"], stored["window_mode"], stored["window_opacity"]),
                         ("forest_focus", "normal", 0.7))
        wait_until(lambda: "ABOVE" not in panel.states(), "the panel to be like other windows")
        self.assertTrue(panel.is_on_screen)
        wait_until(lambda: str(int(0.7 * 0xFFFFFFFF))[:4] in panel.property("_NET_WM_WINDOW_OPACITY"),
                   lambda: f"the panel's opacity, which is {panel.property('_NET_WM_WINDOW_OPACITY')}")

    def test_escape_asks_before_it_drops_all_but_quick_tags(self):
        self.start_with_button()
        panel = self.open_panel()
        window = self.open_settings(panel)
        self.click("Vault")
        field = self.program.click("Default Save Subfolder", "text", TITLE)
        self.screen.type("Elsewhere")
        wait_until(lambda: "Elsewhere" in field.text, "the field to hold what was typed")
        self.click("Quick Tags", "Delete")
        wait_until(lambda: len(self.home.config().get("quick_tags", [])) == 3, "the tag to be gone on disk")
        before = self.home.config()
        self.screen.key("Escape")
        question = self.screen.window("Save the changes?")
        self.assertTrue(window.is_on_screen)
        # It comes also while the panel is open, over which the settings stand.
        self.assertGreater(self.screen.stacking().index(question), self.screen.stacking().index(window))
        self.screen.key_until("Escape", lambda: not self.screen.windows("Save the changes?"), "the question to leave")
        self.assertTrue(window.is_on_screen)
        self.screen.key("Escape")
        self.program.click("Discard", window="Save the changes?")
        self.wait_until_closed()
        self.assertEqual(self.home.config(), before)
        self.assertTrue(self.panel_is_open())

        # Opened again, it shows what is stored; a half typed tag's Escape is the row's.
        window = self.open_settings(panel)
        self.click("Vault")
        self.assertEqual(self.program.find("Default Save Subfolder", "text", TITLE).text, "Inbox")
        self.click("Quick Tags", "Add Quick Tag")
        self.wait_for_focus("New tag icon")
        self.screen.key("Escape")
        self.wait_for_focus("Add Quick Tag")
        self.assertTrue(window.is_on_screen)

# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""Capturing a note: from the click on the button to the file in the vault."""

import re
import time

from desktop.case import SetUpCase
from desktop.waiting import hold, wait_for, wait_until

TAGS = [
    {"id": "0B0E2B5C-6A8F-4E51-9C0C-3B9B6F0D1A01", "icon": "🔥", "appendText": "#priority/high", "isDefault": False},
    {"id": "0B0E2B5C-6A8F-4E51-9C0C-3B9B6F0D1A02", "icon": "💡", "appendText": "#type/idea", "isDefault": True},
    {"id": "0B0E2B5C-6A8F-4E51-9C0C-3B9B6F0D1A03", "icon": "✅", "appendText": "#type/task", "isDefault": False},
]


class CaptureTest(SetUpCase):
    SETTINGS = {"quick_tags": TAGS}

    def tag(self, text):
        return self.program.find(text, "check box", "Flitmark")

    def is_on(self, text):
        return self.tag(text).has("checked")

    def save_by_key(self):
        self.screen.key("ctrl+Return")

    def body_of(self, path):
        return path.read_text().split("---\n\n", 1)[1]

    def test_typed_tagged_and_saved(self):
        bystander = self.start_bystander()
        # So slow that one sees whether the saved panel stays for a moment.
        self.start_with_button(clock="@2026-01-22 14:03:05 x0.1")
        # From the moment on in which the desktop calls the panel active no key may be lost or go elsewhere.
        text = "Buy milk, bread and 2 lemons today"
        self.click_button()
        wait_until(lambda: (active := self.screen.active_window()) and active.title == "Flitmark", "the panel")
        self.screen.type(text, delay_ms=0)
        self.wait_for_text(text)
        self.assertEqual(bystander.keys(), [])
        self.wait_for_draft(text)
        self.assertEqual(self.home.draft()["noteType"], "Fleeting")
        self.assertRegex(self.home.draft()["timestamp"], r"^2026-01-22T13:03:\d\dZ$")
        self.program.find("7 words", "label")

        # Clicked in another order than the configured one, which is the order in the note.
        self.assertTrue(self.is_on("#type/idea"), "a default tag")
        self.program.click("#type/task", "check box")
        self.program.click("#priority/high", "check box")
        wait_until(lambda: self.is_on("#priority/high") and self.is_on("#type/task"), "the tags to be on")
        self.program.click("Note")
        self.wait_for_focus("Note")
        self.save_by_key()

        note = self.wait_for_note()
        saved = time.monotonic()
        self.assertRegex(note.name, r"^2026-01-22--1403\d\d--buy-milk-bread-and-2-lemons-today\.md$")
        self.assertRegex(note.read_text(), re.compile(
            r"\A---\ncreated: 2026-01-22T13:03:\d\d\.\d{3}Z\ntype: fleeting\ntags: \[fleeting\]\n---\n\n"))
        self.assertEqual(self.body_of(note), f"{text}\n\n#priority/high #type/idea #type/task")
        self.program.find("Saved", "notification")
        self.assertFalse(self.home.draft_path.exists())
        self.assertEqual(self.editor().text, "")
        self.wait_until_panel_closed()
        self.assertGreater(time.monotonic() - saved, 3.5)
        wait_until(lambda: bystander.window.is_active, "the other window to be active again")
        self.screen.key("z")
        wait_for(["z"], bystander.keys)

        self.open_panel()
        self.assertEqual([self.is_on(tag["appendText"]) for tag in TAGS], [False, True, False])

    def test_draft_survives_a_crash_and_the_closed_panel(self):
        self.start_with_button()
        self.open_panel()
        self.screen.type("First line\n  second line")
        self.wait_for_text("First line\n  second line")
        self.program.kill()
        self.assertEqual(self.home.draft()["content"], "First line\n  second line")

        self.start_with_button()
        self.open_panel()
        self.program.click("Close", window="Flitmark")
        self.wait_until_panel_closed()
        self.open_panel()
        self.screen.type(", finished")
        self.wait_for_text("First line\n  second line, finished")
        self.program.click("#priority/high", "check box")
        self.program.click("Clear", "push button")
        self.wait_for_text("")
        wait_until(lambda: not self.home.draft_path.exists(), "the draft file to go")
        self.assertEqual([self.is_on(tag["appendText"]) for tag in TAGS], [False, True, False])
        self.assertEqual(self.home.notes(), [])

    def test_blank_text_is_not_saved(self):
        self.start_with_button()
        self.open_panel()
        self.screen.type("  \n ")
        self.wait_for_text("  \n ")
        self.save_by_key()
        self.program.find("Nothing to save", "notification")
        hold(self.panel_is_open, "the panel stays", 1.0)
        self.assertEqual(self.home.notes(), [])
        self.assertFalse(self.home.draft_path.exists())
        self.program.wait_until_gone("Nothing to save")

    def test_failed_save_loses_nothing(self):
        text = "שלום עולם — مرحبا\nнаïve 日本語 👩‍👩‍👧 🇫🇮 👍🏽"
        blocked = self.home.folder / "blocked"
        blocked.write_text("a file where the vault should be")
        self.home.complete_setup(quick_tags=TAGS, vault_path=str(blocked))
        self.start_with_button()
        self.open_panel()
        self.screen.paste(text)
        self.wait_for_text(text)
        self.program.click("#type/task", "check box")
        self.program.click("Save", "push button", "Flitmark")
        self.program.find("Error saving", "notification")
        hold(self.panel_is_open, "the panel stays", 1.0)
        self.assertEqual(self.editor().text, text)
        self.assertTrue(self.is_on("#type/task"))
        self.assertEqual(self.home.draft()["content"], text)

        # As soon as the vault is there, the same text can be saved.
        blocked.unlink()
        self.program.click("Save", "push button", "Flitmark")
        note, = wait_until(lambda: list(blocked.glob("Inbox/*--שלום-עולם-مرحبا.md")), "the note")
        self.assertEqual(self.body_of(note), f"{text}\n\n#type/idea #type/task")

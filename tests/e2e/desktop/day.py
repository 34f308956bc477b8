# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""What the tests of a whole day share: a user with a daily note, and a program that opens notes."""

from .case import AFTERNOON, SetUpCase
from .waiting import wait_until

NOTE = """## Today's Focus
**Ship it**

## Tasks
- [ ] Write the page
- [ ] Send it out
"""


class DayCase(SetUpCase):
    def setUp(self):
        super().setUp()
        self.home.write_daily_note(NOTE)
        self.programs = self.home.have_obsidian()

    def begin(self, clock=AFTERNOON):
        self.start_with_button(clock=clock, PATH=str(self.programs))

    def wait_until_opened(self, note):
        opened = self.home.folder / "opened"
        wait_until(lambda: opened.exists() and note in opened.read_text(), "the note to be opened")

# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""The example coach that the documents offer, with the real program."""

from pathlib import Path

from desktop import processes
from desktop.case import SetUpCase
from desktop.waiting import wait_until

COACH = Path(__file__).resolve().parents[2] / "docs" / "examples" / "coach.py"


class CoachTest(SetUpCase):
    def test_example_coach_asks_and_hears_the_answer(self):
        self.home.write_daily_note("## Today's Focus\nOld\n")
        self.start_bystander()
        self.start_with_button()
        said = self.desktop.folder / "coach.txt"
        with said.open("wb") as output:
            coach = processes.start([str(COACH), str(self.home.signals), "0.1"], self.desktop.environment, stdout=output)
        self.addCleanup(processes.stop, coach)

        # The coach knows the focus once it was set here; the other window's title has no word of it.
        self.open_panel()
        self.program.click("Daily", window="Flitmark")
        self.program.click("Edit focus", window="Flitmark")
        self.wait_for_focus("Focus")
        self.screen.key("ctrl+a")
        self.screen.type("Water the tomatoes")
        self.program.click("Save", "push button", "Flitmark")
        self.program.click("Refocusing now", "push button", "Flitmark")
        wait_until(lambda: "Water the tomatoes" in said.read_text() and "refocusing" in said.read_text(), said.read_text)
        self.assertEqual(self.home.daily_note.read_text(), "## Today's Focus\nWater the tomatoes\n")

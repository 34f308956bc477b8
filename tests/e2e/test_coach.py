# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""The example coach that the documents offer, with the real program."""

from pathlib import Path

from desktop import processes
from desktop.case import DesktopCase
from desktop.waiting import wait_until

COACH = Path(__file__).resolve().parents[2] / "docs" / "examples" / "coach.py"


class CoachTest(DesktopCase):
    def test_example_coach_asks_and_hears_the_answer(self):
        self.home.make_vault()
        self.home.complete_setup()
        note = self.home.vault / "Daily" / "2026" / "2026-01-22.md"
        note.parent.mkdir(parents=True)
        note.write_text("## Today's Focus\nOld\n")
        self.start_bystander()
        self.start_with_button(clock="@2026-01-22 14:00:00")
        folder = self.home.vault / ".vault-state" / "flit-mark"
        said = self.desktop.folder / "coach.txt"
        with said.open("wb") as output:
            coach = processes.start([str(COACH), str(folder), "0.1"], self.desktop.environment, stdout=output)
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
        self.assertEqual(note.read_text(), "## Today's Focus\nWater the tomatoes\n")


if __name__ == "__main__":
    import unittest

    unittest.main()

# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""The first run: from an empty home to the button on the desktop."""

from desktop.case import DesktopCase
from desktop.waiting import hold, wait_for, wait_until

WIZARD = "Flitmark Setup"


class SetupTest(DesktopCase):
    def setUp(self):
        super().setUp()
        self.archive = self.home.folder / "Archive"
        self.archive.mkdir()

    def start_wizard(self):
        self.start()
        return self.screen.window(WIZARD)

    def fill(self, field, text):
        """Replaces what a field holds, with the keyboard."""
        self.program.click(field, window=WIZARD)
        self.wait_for_focus(field)
        self.screen.key("ctrl+a")
        self.screen.paste(text)
        control = self.program.find(field)
        wait_for(text, lambda: control.text)

    def next(self, button="Next"):
        self.program.click(button, "push button", WIZARD)

    def test_leads_to_the_button(self):
        self.home.make_vault(self.archive)
        wizard = self.start_wizard()
        place = wizard.geometry
        self.assertEqual((place.width, place.height), (500, 550))
        self.assertAlmostEqual(place.centre[0], self.SIZE[0] / 2, delta=20)
        self.assertAlmostEqual(place.centre[1], self.SIZE[1] / 2, delta=40)
        self.assertTrue(wizard.is_active)
        self.program.find("Quick Note Capture for Obsidian")
        self.assertEqual(self.screen.windows("Flitmark Button"), [])

        self.next("Get Started")
        self.assertTrue(self.program.find("Archive", "radio button").has("checked"), "the first vault by name")
        self.assertEqual(self.program.find("Notes", "radio button").description, str(self.home.vault))
        self.program.click("Notes", "radio button")
        self.fill("Subfolder", "Captured")
        self.program.find("Notes will be saved to: vault/Captured")
        self.next()

        self.fill("New tag icon", "🎯")
        self.fill("New tag text", "#from/wizard")
        self.program.click("Add tag")
        wait_until(lambda: self.program.find("New tag text").text == "", "the fields to be empty again")
        self.next()

        self.program.find("You're All Set!")
        self.program.find("5 configured")
        self.next("Start Using Flitmark")
        self.screen.window("Flitmark Button")
        wait_until(lambda: not self.screen.windows(WIZARD), "the wizard to leave")

        config = self.home.config()
        self.assertEqual(config["vault_path"], str(self.home.vault))
        self.assertEqual(config["save_subfolder"], "Captured")
        self.assertIs(config["has_completed_setup"], True)
        self.assertEqual([tag["appendText"] for tag in config["quick_tags"]],
                         ["#priority/high", "#status/pinned", "#type/idea", "#type/task", "#from/wizard"])
        self.assertEqual(config["quick_tags"][-1]["icon"], "🎯")
        self.assertEqual(len(config), 20)
        self.assertEqual(list(config), sorted(config), "the keys in the order of the file")
        self.program.find("Not Now", "push button", "Start Flitmark automatically?")

    def test_is_finished_once_however_it_is_pressed(self):
        question = "Start Flitmark automatically?"
        self.screen.repeat_keys()
        self.home.make_vault()
        for act in (["click", "--repeat", 2, "--delay", 60, 1], ["click", "--repeat", 2, "--delay", 240, 1],
                    ["key", "--delay", 120, "Return", "Return"], ["keydown", "Return", "sleep", 2, "keyup", "Return"]):
            with self.subTest(act=act):
                self.home.config_path.unlink(missing_ok=True)
                self.home.forget_login_question()
                self.start_wizard()
                for button in ("Get Started", "Next", "Next"):
                    self.next(button)
                last = self.program.find("Start Using Flitmark", "push button", WIZARD)
                self.screen.xdotool("mousemove", *self.program.place_of(last).centre, *act)
                asked = self.screen.window(question)
                wait_until(lambda: not self.screen.windows(WIZARD), "the wizard to leave")
                self.assertEqual(len(self.screen.windows("Flitmark Button")), 1)
                # A held key that finished the wizard does not answer what comes after it. Another key does.
                self.assertTrue(asked.is_on_screen)
                self.assertFalse(self.home.login_question_is_answered())
                self.screen.key_until("Escape", self.home.login_question_is_answered, "the answer")
                self.end_program()

    def test_closing_the_wizard_finishes_nothing(self):
        self.home.make_vault()
        wizard = self.start_wizard()
        self.next("Get Started")
        self.program.find("Select Your Obsidian Vault")
        before = self.home.config()
        wizard.close()
        wait_until(lambda: not self.screen.windows(WIZARD), "the wizard to leave")
        hold(lambda: self.program.is_running and not self.screen.windows("Flitmark Button"),
             "running on without a button", 1.5)
        self.assertIs(before["has_completed_setup"], False)
        self.assertEqual(self.home.config(), before)

        self.program.stop()
        self.start_wizard()

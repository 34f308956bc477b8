# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""How the program lives in a session: one running copy, the session bus, login, Wayland, and every way to end."""

import os
import signal
import subprocess
import time

from desktop import processes
from desktop.case import SetUpCase
from desktop.program import SANITIZER_OPTIONS, executable
from desktop.screen import Screen
from desktop.waiting import PATIENCE, hold, wait_until

NAME = "org.flitmark.Flitmark"
PATH = "/org/flitmark/Flitmark"
QUESTION = "Start Flitmark automatically?"


class ShellTest(SetUpCase):
    def call(self, method, *arguments):
        """Calls the program on the session bus; gives the answer, empty for an error."""
        return self.screen.run("gdbus", "call", "--session", "--dest", NAME, "--object-path", PATH, "--method",
                               f"org.freedesktop.Application.{method}", *arguments)

    def wait_for_bus(self):
        wait_until(lambda: "interface org.freedesktop.Application" in self.screen.run(
            "gdbus", "introspect", "--session", "--dest", NAME, "--object-path", PATH), "the program on the bus")

    def start_again(self):
        begin = time.monotonic()
        self.assertEqual(self.program.start_again(), 0)
        self.assertLess(time.monotonic() - begin, 0.5 * PATIENCE)

    def test_a_second_start_shows_the_first(self):
        for bus in (None, "unix:path=/no/such/bus"):
            with self.subTest(bus=bus):
                self.start(**({"DBUS_SESSION_BUS_ADDRESS": bus} if bus else {}))
                self.screen.window("Flitmark Button")
                for _ in range(2):
                    self.start_again()
                    self.screen.window("Flitmark")
                self.assertEqual(len(self.screen.windows("Flitmark Button")), 1)
                self.program.kill()  # even so the next start is a first one
                wait_until(lambda: not self.screen.windows("Flitmark Button"), "the button to leave")

    def test_a_second_start_raises_the_wizard(self):
        self.home.config_path.unlink()
        self.start()
        wizard = self.screen.window("Flitmark Setup")
        self.start_bystander()
        self.start_again()
        wait_until(lambda: wizard.is_active, "the wizard to be active")
        wizard.close()
        wait_until(lambda: not self.screen.windows("Flitmark Setup"), "the wizard to leave")
        self.start_again()
        self.screen.window("Flitmark Setup")

    def test_the_desktop_asks_on_the_session_bus(self):
        self.start_with_button()
        self.wait_for_bus()
        self.assertTrue(self.call("Activate", "{'activation-token': <'e2e_TIME1'>}"))
        panel = self.screen.window("Flitmark")
        self.wait_for_focus("Note")
        self.assertIn("e2e_TIME1", panel.property("_NET_STARTUP_ID"))
        self.screen.run("gapplication", "action", NAME, "toggle-panel")
        self.wait_until_panel_closed()
        self.assertTrue(self.call("ActivateAction", "daily", "[]", "{}"))
        wait_until(lambda: self.program.find("Daily", window="Flitmark").has("checked"), "the Daily tab")
        self.assertTrue(self.call("Open", "['file:///tmp/x']", "{}"))
        self.assertEqual(self.call("ActivateAction", "no-such", "[]", "{}"), "")
        self.assertTrue(self.panel_is_open())
        self.assertTrue(self.call("ActivateAction", "quit", "[]", "{}"), "an answer before the end")
        self.assertEqual(self.program.wait_for_exit(), 0)

    def test_a_bus_that_goes_away_takes_nothing_with_it(self):
        bus, address = self.desktop.start_bus()
        self.start(DBUS_SESSION_BUS_ADDRESS=address)
        self.screen.window("Flitmark Button")
        wait_until(lambda: NAME in self.screen.run(
            "gdbus", "call", "--address", address, "--dest", "org.freedesktop.DBus", "--object-path", "/", "--method",
            "org.freedesktop.DBus.ListNames"), "the program on the bus")
        bus.kill()
        bus.wait()
        hold(lambda: self.program.is_running, "running on", 0.5)
        self.start_again()
        self.screen.window("Flitmark")

    def test_every_end_is_a_clean_one(self):
        text = ""
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            with self.subTest(number):
                self.start_with_button()
                self.open_panel()
                self.screen.type(f"{number.name} ")
                text += f"{number.name} "
                self.wait_for_text(text)
                self.program.send_signal(number)
                self.assertEqual(self.program.wait_for_exit(), 0)
                self.assertEqual(self.home.draft()["content"], text)

    def test_a_lost_screen_ends_it_with_one_line_and_the_draft(self):
        self.start_with_button()
        self.open_panel()
        self.screen.type("Do not lose me")
        self.wait_for_text("Do not lose me")
        before = self.program.output()
        self.desktop.lose_server()
        self.assertEqual(self.program.wait_for_exit(), 1)
        lines = self.program.output().removeprefix(before).splitlines()
        self.assertEqual(len(lines), 1, lines)
        self.assertEqual(self.home.draft()["content"], "Do not lose me")

    def test_started_without_standard_descriptors_it_prints_into_no_file(self):
        program = processes.start(["/bin/sh", "-c", 'exec "$0" <&- >&- 2>&-', executable()],
                                  self.desktop.environment | SANITIZER_OPTIONS | {"HOME": str(self.home.folder)})
        self.addCleanup(processes.stop, program)
        self.screen.window("Flitmark Button")
        for number in range(3):
            self.assertEqual(os.readlink(f"/proc/{program.pid}/fd/{number}"), "/dev/null")

    def test_without_a_display_it_says_so(self):
        for variables in ({"DISPLAY": ""}, {"DISPLAY": ":9999"}):
            self.start(**variables, QT_QPA_PLATFORM="")
            self.assertEqual(self.program.wait_for_exit(), 1)
        lines = self.program.output().splitlines()
        self.assertEqual(len(lines), 2, lines)
        self.assertTrue(all(line.startswith("Flitmark can't start: ") for line in lines), lines)


class LoginTest(SetUpCase):
    def setUp(self):
        super().setUp()
        self.home.forget_login_question()

    def test_asks_once_and_writes_an_entry_that_the_desktop_reads(self):
        self.start_with_button()
        window = self.screen.window(QUESTION)
        wait_until(lambda: window.is_active, "the question to have the keyboard")
        self.program.find("Flitmark works best when the floating capture button and Option+N hotkey are available "
                          "after login.", window=QUESTION)
        self.program.click("Enable Auto-Start", "push button", QUESTION)
        wait_until(self.home.autostart_path.exists, "the autostart entry")
        subprocess.run(["desktop-file-validate", self.home.autostart_path], check=True)
        self.assertIn(os.environ["FLITMARK_PROGRAM"], self.home.autostart_path.read_text())
        # What the user then changes stays.
        changed = self.home.autostart_path.read_text() + "Hidden=true\n"
        self.home.autostart_path.write_text(changed)
        self.program.stop()
        self.start_with_button()
        hold(lambda: not self.screen.windows(QUESTION), "not asked again", 1.0)
        self.assertEqual(self.home.autostart_path.read_text(), changed)

    def test_a_thought_comes_before_the_question(self):
        bystander = self.start_bystander()
        self.start_with_button()
        question = self.screen.window(QUESTION)
        wait_until(lambda: question.is_active, "the question to have the keyboard")
        self.screen.key("space")
        bystander.window.activate()
        wait_until(lambda: bystander.window.is_active, "the other window to have the keyboard")
        self.screen.key("alt+n")
        self.wait_for_focus("Note")
        self.screen.type("Ask Ann")
        self.wait_for_draft("Ask Ann")
        self.screen.key("Escape")
        wait_until(lambda: self.screen.window(QUESTION).is_active, "the question to come back")
        self.assertFalse(self.home.login_question_is_answered())
        last = self.program.find("Not Now", "push button", QUESTION)
        self.screen.key_until("Tab", lambda: last.has("focused"), "the last button to have the keyboard")
        self.screen.key("space")
        wait_until(self.home.login_question_is_answered, "the answer")
        self.assertFalse(self.home.autostart_path.exists())

    def test_a_refusal_is_kept_and_a_failure_shown(self):
        self.start_with_button()
        wait_until(lambda: self.screen.window(QUESTION).is_active, "the question to have the keyboard")
        self.screen.key_until("Escape", self.home.login_question_is_answered, "the answer to be kept")
        self.assertFalse(self.home.autostart_path.exists())
        self.program.stop()

        self.home.forget_login_question()
        self.home.autostart_path.parent.write_text("in the way")
        self.start_with_button()
        wait_until(lambda: self.screen.window(QUESTION).is_active, "the question to have the keyboard")
        failure = "Auto-Start could not be enabled"
        self.screen.key_until("Return", lambda: self.screen.windows(failure), "the alert")
        self.screen.key_until("Return", lambda: not self.screen.windows(failure), "the alert to leave")


class WaylandTest(SetUpCase):
    def test_captures_a_note_through_the_x_server_of_the_session(self):
        session = self.desktop.start_wayland()
        self.screen = Screen(self.desktop.environment | session, (1280, 800))
        self.start_with_button(**session)
        self.program.find("Flitmark Button", "push button").press()
        self.screen.window("Flitmark")
        self.editor().set_text("From Wayland")
        self.wait_for_draft("From Wayland")
        self.program.find("Save", "push button").press()
        self.assertIn("From Wayland", self.wait_for_note().read_text())

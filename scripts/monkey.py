# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""A monkey: it uses the program at random, while another program writes into the same vault and the clock jumps.

usage: monkey.py FOLDER MINUTES SEED

It plays rounds of a fresh desktop and home each, until the minutes are over, one round at least; the first with SEED, each
further one with the next number. What a step does is decided by the round's seed and the step's number alone, so a round can be
played again. It fails at the first round that ends in a crash, a report of a sanitizer, a hang, a line of output nobody knows, a
broken or forgotten file, or with a line gone that the other program wrote. The steps of each round are left in FOLDER.
"""

import json
import random
import re
import shutil
import sys
import time
import unittest
from pathlib import Path

from gi.repository import Gio, GLib

from desktop import accessibility, case
from desktop.accessibility import unless_gone
from desktop.day import DayCase
from desktop.program import WallClock
from desktop.screen import Window
from desktop.waiting import PATIENCE, wait_until
from test_shell import NAME, PATH

STEPS = 150
ANSWER_SECONDS = 30
DAYS = ("2026-01-21", "2026-01-22", "2026-01-23")
CHOOSER = "Select your Obsidian vault folder"

KEYS = ("Tab", "shift+Tab", "Return", "space", "Escape", "Up", "Down", "Left", "Right", "Home", "End", "Page_Down", "BackSpace",
        "Delete", "ctrl+Return", "ctrl+comma", "ctrl+Tab", "ctrl+a", "ctrl+z", "ctrl+c", "ctrl+v", "ctrl+Home", "shift+Down",
        "F10", "shift+F10", "Menu", "alt+n", "n", "ctrl+q")
HELD = ("Tab", "Return", "space", "Escape", "Down", "Right", "BackSpace", "x", "ctrl+v", "alt+n", "ctrl+Return")
# Without a slash: nothing typed leads out of the home folder.
TEXTS = ("Call Ada", "#tag", "- [ ] task", "**Rest**", "1", "25:99", "a\n\nb", "## Tasks")
PASTED = ("Grüße 🍅 – 你好", "a\tb\n\n- [x] pasted\n" * 30, "\u202eabc\u0301")
ACTIONS = ("toggle-panel", "daily", "settings", "help", "quit")

# What the program may say: what it does, what it could not do, and what a computer without a sound card makes a library say.
KNOWN_LINES = re.compile(r"(CheckinWindowController|SignalManager|DailyNoteManager): |Failed to |ALSA lib ")
LEFT_OVERS = re.compile(r"\.~|\.(tmp|part|lock|unreadable)$")


class Monkey(DayCase):
    """One round: `seed` decides it."""

    SIZE = (1280, 800)
    maxDiff = None
    seed = 0

    def setUp(self):
        chance = random.Random(self.seed)
        self.COMPOSITOR = chance.random() < 0.5
        super().setUp()
        self.screen.repeat_keys()
        self.artifacts = case.ARTIFACTS / f"evidence-{self.seed}"
        shutil.rmtree(self.artifacts, ignore_errors=True)
        case.ARTIFACTS.mkdir(parents=True, exist_ok=True)
        self.log = self.enterContext((case.ARTIFACTS / f"steps-{self.seed}.txt").open("w", buffering=1))
        self.bus = accessibility.connect_to(self.desktop.environment["DBUS_SESSION_BUS_ADDRESS"])
        self.addCleanup(self.bus.close_sync, None)
        self.clock = WallClock(self.desktop.folder / "clock", "14:00:00")
        self.starts = 0
        self.written = {}
        self.home.write_coach_config('{"pomodoro_interval_minutes": 1}')
        if chance.random() < 0.3:
            self.home.config_path.unlink()
            self.home.forget_login_question()

    def test_round(self):
        self.begin_again()
        for number in range(STEPS):
            chance = random.Random(f"{self.seed} {number}")
            step = chance.choices(list(WEIGHTS), list(WEIGHTS.values()))[0]
            pause = chance.choice((0, 0, 0.02, 0.1, 0.5))
            self.say(f"{number} {step.__name__}")
            if self.screen.windows(CHOOSER):
                # It could delete folders all over this computer.
                self.screen.key("Escape")
            else:
                unless_gone(lambda: step(self, chance))
            time.sleep(pause)
            self.check_health()
        self.end_program()
        self.check_files()

    def say(self, text):
        self.log.write(f"{text}\n")

    # The program

    def begin_again(self):
        """Starts the program, every other time with a clock that runs fast rather than jumps."""
        self.starts += 1
        folder = self.home.folder / "bin"
        self.start(self.clock if self.starts % 2 else "@2026-01-22 14:00:00 x20", PATH=str(folder))
        self.say(f"start {self.starts}")
        self.check_health()

    def check_health(self):
        """The program answers, or has ended well and is started again."""
        wait_until(lambda: not self.program.is_running or self.answers(), "an answer on the bus", ANSWER_SECONDS)
        if not self.program.is_running:
            self.assertEqual(self.program.wait_for_exit(), 0, self.program.output())
            self.begin_again()
        vault = self.home.config().get("vault_path", "")
        if vault and not Path(vault).is_relative_to(self.home.folder):
            self.say(f"back from {vault}")
            self.end_program()
            self.home.complete_setup()
            self.begin_again()

    def answers(self):
        """Whether the program refuses, from its main thread, to do what it can't."""
        return "no-such" in self.ask("no-such")

    def ask(self, action):
        """Asks for an action on the session bus, and gives the words of a refusal."""
        try:
            self.bus.call_sync(NAME, PATH, "org.freedesktop.Application", "ActivateAction",
                               GLib.Variant("(sava{sv})", (action, [], {})), None, Gio.DBusCallFlags.NONE,
                               int(1000 * ANSWER_SECONDS * PATIENCE), None)
        except GLib.Error as error:
            return error.message
        return ""

    # What a step can do

    def any_window(self, chance):
        """One of the program's windows on screen, or None."""
        numbers = sorted(int(number) for number in self.screen.xdotool(
            "search", "--onlyvisible", "--class", "^flitmark$").split())
        at = chance.random()
        return Window(self.screen, numbers[int(at * len(numbers))]) if numbers else None

    def any_control(self, chance):
        """One of the controls on screen, mostly one that does something, or None."""
        at, is_any = chance.random(), chance.random() < 0.2
        controls = [control for control in self.program.find_all()
                    if is_any or unless_gone(lambda: control.has("focusable"))]
        return controls[int(at * len(controls))] if controls else None

    def any_point(self, chance):
        """A place in one of the windows."""
        window = self.any_window(chance)
        x, y = chance.random(), chance.random()
        place = window.geometry if window else accessibility.Rectangle(0, 0, *self.SIZE)
        return place.x + int(x * place.width), place.y + int(y * place.height)

    def click_control(self, chance):
        control = self.any_control(chance)
        button = chance.choices((1, 2, 3, 4, 5), (20, 1, 3, 1, 1))[0]
        times = chance.choice((1, 1, 1, 2, 3))
        if control:
            place = self.program.place_of(control)
            self.say(f"  {control} at {place}, button {button}, {times} times")
            self.screen.xdotool("mousemove", *place.centre, "click", "--repeat", times, "--delay", 30, button)

    def click_point(self, chance):
        x, y = self.any_point(chance)
        self.say(f"  {x} {y}")
        self.screen.xdotool("mousemove", x, y, "click", "--repeat", chance.choice((1, 2)), chance.choice((1, 1, 1, 3)))

    def act(self, chance):
        """Does what a control is there for, as an input aid would."""
        if control := self.any_control(chance):
            self.say(f"  {control}")
            control.press()

    def drag(self, chance):
        begin, end = self.any_point(chance), (chance.randrange(self.SIZE[0]), chance.randrange(self.SIZE[1]))
        self.say(f"  {begin} {end}")
        self.screen.drag(begin, end)

    def key(self, chance):
        keys = chance.choices(KEYS, k=chance.choice((1, 1, 2, 5)))
        self.say(f"  {keys}")
        self.screen.key(*keys)

    def hold(self, chance):
        key = chance.choice(HELD)
        self.say(f"  {key}")
        self.screen.xdotool("keydown", key, "sleep", chance.choice((0.7, 1.2)), "keyup", key)

    def type(self, chance):
        text = chance.choice(TEXTS)
        self.say(f"  {text!r}")
        self.screen.type(text, chance.choice((0, 5)))

    def paste(self, chance):
        self.screen.paste(chance.choice(PASTED))

    def hotkey(self, chance):
        """The hotkey, and what is typed straight on."""
        more = chance.choice(((), ("type", "--delay", 0, "typed"), ("key", "ctrl+Tab")))
        self.say(f"  {more}")
        self.screen.xdotool("key", "--delay", 0, "alt+n", *more)

    def close(self, chance):
        if window := self.any_window(chance):
            self.say(f"  {window}")
            window.close()

    def ask_on_the_bus(self, chance):
        action = chance.choice(ACTIONS)
        self.say(f"  {action}")
        self.ask(action)

    def jump(self, chance):
        day, time_of_day = chance.choice(DAYS), f"{chance.randrange(24):02}:{chance.randrange(60):02}:{chance.randrange(60):02}"
        self.say(f"  {day} {time_of_day}")
        self.clock.set(time_of_day, day)

    def write(self, chance):
        """Another program writes a line into a note."""
        day, at = chance.choice(DAYS), chance.random()
        way = chance.choice(("append", "insert", "insert slowly", "rename over"))
        place = chance.randrange(3)
        notes = [self.home.vault / "Daily" / "2026" / f"{day}.md"] * 4 + sorted(self.home.vault.glob("*/*.md"))
        path = notes[int(at * len(notes))]
        line = f"{chance.choice(('- [ ] ', '- ', ''))}other {len(self.written.setdefault(path, []))} ü"
        self.say(f"  {way} {line!r} in {path.name}")
        path.parent.mkdir(parents=True, exist_ok=True)
        if way == "append" or not path.exists():
            with path.open("a") as file:
                file.write(f"\n{line}\n")
        else:
            lines = path.read_text().split("\n")
            # Not below the heading of the focus: that line would be the focus, which the user may replace.
            heading = next((number for number, old in enumerate(lines) if "Tasks" in old), 0)
            lines.insert((0, heading + 1, len(lines))[place], line)
            self.rewrite(path, "\n".join(lines), way)
        self.written[path].append(line)

    @staticmethod
    def rewrite(path, text, way):
        if way == "rename over":
            beside = path.with_name("beside.part")
            beside.write_text(text)
            beside.rename(path)
            return
        with path.open("w") as file:
            if way == "insert slowly":
                file.write(text[:len(text) // 2])
                file.flush()
                time.sleep(0.03)
                file.write(text[len(text) // 2:])
            else:
                file.write(text)

    def alert(self, chance):
        alert = {"alert_id": "a", "triggered_at": "now", "planned": "Plan", "actual": "News", "misalignment_count": 2,
                 "status": "pending", "more": chance.random()}
        path = self.home.signals / "coach-alert.json"
        if path.exists():
            path.write_text(json.dumps(alert))

    # The files

    def check_files(self):
        for path, lines in self.written.items():
            for line in lines:
                # Whatever became of its box.
                self.assertIn(line.removeprefix("- [ ] "), path.read_text(), path)
        for folder in (self.home.vault, self.home.own_folder):
            for path in (path for path in folder.rglob("*") if path.is_file()):
                self.assertIsNone(LEFT_OVERS.search(path.name), f"{path} was left")
                text = path.read_bytes().decode()
                if path.suffix == ".json" and text:
                    json.loads(text)

    def check_output(self):
        super().check_output()
        unknown = [line for line in self.program.output().splitlines() if not KNOWN_LINES.match(line)]
        self.assertEqual(unknown, [], "said by the program")


WEIGHTS = {Monkey.click_control: 30, Monkey.click_point: 6, Monkey.act: 8, Monkey.drag: 3, Monkey.key: 18, Monkey.hold: 5,
           Monkey.type: 6, Monkey.paste: 2, Monkey.hotkey: 5, Monkey.close: 2, Monkey.ask_on_the_bus: 4, Monkey.jump: 4,
           Monkey.write: 14, Monkey.alert: 2}


def main():
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    case.ARTIFACTS = Path(sys.argv[1]).resolve()
    minutes, Monkey.seed = float(sys.argv[2]), int(sys.argv[3])
    end = time.monotonic() + 60 * minutes
    while True:
        begin = time.monotonic()
        result = unittest.TestResult()
        monkey = Monkey("test_round")
        monkey.run(result)
        for _, problem in result.errors + result.failures:
            sys.exit(f"{problem}\nscripts/monkey 0 {Monkey.seed} plays this round again.")
        lines = sum(map(len, monkey.written.values()))
        print(f"seed {Monkey.seed}: {STEPS} steps, {monkey.starts} starts, {lines} lines by another program, "
              f"{time.monotonic() - begin:.0f} s: well", flush=True)
        if time.monotonic() > end:
            break
        Monkey.seed += 1


if __name__ == "__main__":
    main()

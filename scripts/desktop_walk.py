# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""Walks one way through the program on a whole desktop session, by real keys, and prints how it went: a line for each
question, its parts divided by tabs. For scripts/desktops, which runs it inside a container of its own."""

import contextlib
import datetime
import json
import os
import re
import shutil
import subprocess
import sys
import time
from dataclasses import dataclass
from pathlib import Path

from desktop.home import Home
from desktop.screen import Screen
from desktop.waiting import PATIENCE, NotInTime, wait_until

USER = "walker"
DISPLAY = ":7"
SIZE = (1024, 768)
LETTERS = "abcdefghijklmopqrstuvwxyz"[:24]
BUTTON, PANEL, WIZARD = "Flitmark Button", "Flitmark", "Flitmark Setup"
LOGIN_QUESTION = "Start Flitmark automatically?"
REVIEW = "Daily Review"


def pause(seconds):
    """What a person would leave the desktop; longer where the machine is slow."""
    time.sleep(seconds * PATIENCE / 2)


@dataclass(frozen=True)
class Session:
    """A desktop: what starts it, the keys that open its launcher and other workspaces, the program that it starts last,
    its terminal, and what the program is called in the launcher."""
    command: str
    kind: str
    names: str
    launcher: str
    workspaces: tuple
    last_part: str
    terminal: str
    entry: str = "flitmark"

    @property
    def is_wayland(self):
        return self.kind == "wayland"


SESSIONS = {
    "i3": Session("i3", "x11", "i3", "super+d", ("super+2", "super+1"), "i3bar", "xterm -e keys"),
    "xfce": Session("startxfce4", "x11", "XFCE", "alt+F2", ("ctrl+alt+Right", "ctrl+alt+Left"), "xfdesktop", "xterm -e keys"),
    "sway": Session("sway", "wayland", "sway", "super+d", ("super+2", "super+1"), "swaybar", "foot keys"),
    "plasma-x11": Session("startplasma-x11", "x11", "KDE", "alt+F2", ("ctrl+F2", "ctrl+F1"), "plasmashell", "konsole -e keys", "Flitmark"),
    "plasma-wayland": Session("startplasma-wayland", "wayland", "KDE", "alt+F2", ("ctrl+F2", "ctrl+F1"),
                              "plasmashell", "konsole -e keys", "Flitmark"),
    "gnome-x11": Session("gnome-session --session=gnome", "x11", "GNOME", "alt+F2", ("super+Next", "super+Prior"),
                         "gnome-shell", "gnome-terminal -- keys"),
    "gnome-wayland": Session("gnome-session --session=gnome", "wayland", "GNOME", "alt+F2", ("super+Next", "super+Prior"),
                             "gnome-shell", "gnome-terminal -- keys"),
}


class Walk:
    def __init__(self, name, pictures):
        self.name = name
        self.session = SESSIONS[name]
        self.pictures = pictures
        shutil.rmtree(f"/home/{USER}", ignore_errors=True)
        self.home = Home(f"/home/{USER}")
        self.home.make_vault()
        self.typed = self.home.folder / "typed"
        for desktop in ("i3", "sway"):
            # Else the one asks for a configuration first, and both could use Alt.
            default = Path("/etc") / desktop / "config"
            if default.exists():
                own = self.home.folder / ".config" / desktop / "config"
                own.parent.mkdir()
                own.write_text(default.read_text().replace("Mod1", "Mod4"))
        # Without a graphics card what moves leaves no time for anything else.
        (self.home.folder / ".config" / "ksplashrc").write_text("[KSplash]\nEngine=none\n")
        (self.home.folder / ".config" / "kscreenlockerrc").write_text("[Daemon]\nAutolock=false\nLockOnResume=false\n")
        (self.home.folder / ".config" / "kdeglobals").write_text("[KDE]\nAnimationDurationFactor=0\n")
        self.outer = Screen(os.environ | {"DISPLAY": DISPLAY}, SIZE)
        self.inner = self.outer
        self._own_files()
        self.server = None

    def _own_files(self):
        subprocess.run(["chown", "-R", f"{USER}:", self.home.folder], check=True)

    # The session

    def log_in(self):
        self.server = subprocess.Popen(
            ["Xvfb", DISPLAY, "-screen", "0", f"{SIZE[0]}x{SIZE[1]}x24", "-nolisten", "tcp", "-noreset"],
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_until(lambda: self.outer.run("xdpyinfo"), "the X server")
        variables = {"DISPLAY": DISPLAY, "XDG_SESSION_TYPE": self.session.kind, "XDG_CURRENT_DESKTOP": self.session.names,
                     "LANG": "C.UTF-8", "LIBGL_ALWAYS_SOFTWARE": "1", "KWIN_COMPOSE": "Q", "WLR_BACKENDS": "x11", "WLR_RENDERER": "pixman",
                     "MUTTER_DEBUG_DUMMY_MODE_SPECS": f"{SIZE[0]}x{SIZE[1]}", "XDG_SESSION_DESKTOP": self.session.names}
        subprocess.run(
            ["systemd-run", "--quiet", "--unit=walk-session", "--collect", f"--uid={USER}", "--property=PAMName=login",
             "--property=WorkingDirectory=~", f"--property=StandardOutput=append:{self.pictures}/{self.name}.log",
             "--property=StandardError=inherit", *(f"--setenv={name}={value}" for name, value in variables.items()), "bash", "-lc",
             f"exec {self.session.command}"], check=True)
        if self.session.is_wayland:
            self.inner = wait_until(self._inner_screen, "the X server of the Wayland session", timeout=180)
        self.wait_until_still()

    def wait_until_still(self):
        """A session tells nobody that it is complete; then its last part is there and nothing moves any more."""
        wait_until(lambda: self.runs(self.session.last_part), self.session.last_part, timeout=180)
        last = None
        for _ in range(6):
            pause(15)
            self.picture("session")
            now = (self.pictures / f"{self.name}-session.png").stat().st_size
            if now == last:
                return
            last = now

    def _inner_screen(self):
        found = re.search(r"Xwayland (:\d+)(?:.* -auth (\S+))?", subprocess.run(
            ["ps", "-C", "Xwayland", "-o", "args="], capture_output=True, text=True, check=False).stdout)
        if not found:
            # Some start their X server with its first program.
            with contextlib.suppress(subprocess.TimeoutExpired):
                subprocess.run(["runuser", "-u", USER, "--", "env", "DISPLAY=:0", "xdpyinfo"], capture_output=True,
                               check=False, timeout=20)
            return None
        variables = {"DISPLAY": found.group(1)} | ({"XAUTHORITY": found.group(2)} if found.group(2) else {})
        return Screen(os.environ | variables, SIZE)

    def log_out(self):
        for command in (["systemctl", "stop", "walk-session"], ["loginctl", "terminate-user", USER]):
            subprocess.run(command, check=False, capture_output=True)
        self.server.terminate()
        self.server.wait()
        wait_until(lambda: not self.runs("flitmark"), "the program to end with its session", timeout=30)

    @staticmethod
    def runs(program):
        return subprocess.run(["pgrep", "-x", program], capture_output=True, check=False).returncode == 0

    # What a person does

    def launch(self, text, condition, what):
        """Types a command or a name into the desktop's launcher until `condition` holds."""
        for attempt in range(3):
            self.outer.key(self.session.launcher)
            pause(4)
            self.outer.type(text, delay_ms=60)
            pause(3)
            self.picture(f"launcher-{attempt}")
            self.outer.key("Return")
            with contextlib.suppress(NotInTime):
                return wait_until(condition, what, timeout=20)
            self.outer.key("Escape")
        raise NotInTime(what)

    def shown(self, title):
        windows = self.inner.windows(title)
        return windows[0] if windows else None

    def wait_for_window(self, title, timeout=20):
        return wait_until(lambda: self.shown(title), f'a window "{title}"', timeout)

    def wait_until_gone(self, title):
        wait_until(lambda: not self.shown(title), f'"{title}" to leave', 15)

    def picture(self, name):
        with contextlib.suppress(subprocess.TimeoutExpired):  # where the machine has better things to do
            self.outer.picture(self.pictures / f"{self.name}-{name}.png")

    def button_is_seen(self):
        """Whether the colour of the button's disc is where the X server says that the button is."""
        place = self.shown(BUTTON).geometry
        text = self.outer.run("import", "-window", "root", "-crop", f"1x1+{place.x + 16}+{place.centre[1]}", "-format",
                              "%[hex:u.p{0,0}]", "info:")
        return text.strip()[:6] == self.button_colour if hasattr(self, "button_colour") else text.strip()[:6]

    def typed_text(self):
        return self.typed.read_text() if self.typed.exists() else ""

    # The questions, in their order

    def starts_from_the_launcher(self):
        self.launch(self.session.entry, lambda: self.shown(WIZARD), "the wizard")
        pause(2)
        self.picture("wizard")

    def sets_up_by_keys(self):
        for _ in range(4):
            self.outer.key("Return")
            pause(2)
        self.wait_for_window(BUTTON)
        self.picture("button")
        self.button_colour = self.button_is_seen()

    def asks_once_for_the_login(self):
        self.wait_for_window(LOGIN_QUESTION)
        pause(1)
        self.outer.key("Return")
        wait_until(self.home.autostart_path.exists, "the autostart entry")

    def opens_a_terminal(self):
        self.launch(self.session.terminal, self.typed.exists, "the terminal")
        pause(3)
        self.outer.type("t")
        wait_until(lambda: self.typed_text() == "t", lambda: f"a letter in the terminal: {self.typed_text()!r}")
        self.picture("terminal")

    def button_is_on_another_workspace(self):
        there, back = self.session.workspaces
        # A key sent before the last one was answered may lead somewhere else.
        pause(3)
        self.outer.key(there)
        pause(3)
        self.picture("workspace")
        try:
            wait_until(self.button_is_seen, "the button on another workspace")
        finally:
            self.outer.key(back)
            pause(3)

    def button_is_in_no_list(self):
        states = self.shown(BUTTON).states()
        assert "SKIP_TASKBAR" in states, states
        self.outer.key("alt+Tab")
        pause(2)
        self.outer.type("c")
        wait_until(lambda: self.typed_text().endswith("c"), "the keyboard in the terminal after Alt+Tab")

    def hotkey_opens_with_what_is_typed_on(self):
        before = self.typed_text()
        self.outer.xdotool("key", "--delay", 0, "alt+n", "type", "--delay", 0, LETTERS)
        self.wait_for_window(PANEL)
        wait_until(lambda: self.home.draft().get("content", "").endswith(LETTERS[-1]), "the last letter in the draft")
        self.picture("panel")
        content = self.home.draft()["content"]
        astray = self.typed_text()[len(before):]
        return "" if content == LETTERS else f"{len(content)} of {len(LETTERS)} letters; {astray!r} in the terminal"

    def captures(self):
        self.outer.key("ctrl+Return")
        note = wait_until(self.home.notes, "a note")[0].read_text()
        self.wait_until_gone(PANEL)
        assert note.strip(), note

    def keyboard_is_back(self):
        before = self.typed_text()
        pause(1)
        self.outer.type("back")
        wait_until(lambda: self.typed_text() == before + "back", lambda: f"the terminal to have it: {self.typed_text()!r}")

    def button_stays_above_the_panel(self):
        for _ in range(2):
            self.outer.key("alt+n")
            self.wait_for_window(PANEL)
            pause(2)
            self.picture("panel-again")
            assert self.button_is_seen(), "it is covered"
            self.outer.key("Escape")
            self.wait_until_gone(PANEL)

    def starts_again_from_the_launcher(self):
        self.launch(self.session.entry, lambda: self.shown(PANEL), "the panel")
        pause(2)
        self.outer.type("again")
        wait_until(lambda: self.home.draft().get("content") == "again", lambda: f"what was typed: {self.home.draft()}")
        self.outer.key("Escape")
        self.wait_until_gone(PANEL)
        assert self.button_is_seen(), "the button has gone"

    def review_comes_without_the_keyboard(self):
        before = self.typed_text()
        self.wait_for_window(REVIEW, timeout=150)
        pause(1)
        self.picture("review")
        self.outer.type("calm")
        wait_until(lambda: self.typed_text() == before + "calm", "the keyboard to stay in the terminal")

    def comes_back_with_the_next_login(self):
        self.log_out()
        self.remember_a_review()
        self.log_in()
        self.wait_for_window(BUTTON, timeout=90)
        self.typed.unlink(missing_ok=True)
        self.launch(self.session.terminal, self.typed.exists, "the terminal")
        pause(3)
        self.outer.key("alt+n")
        self.wait_for_window(PANEL)
        pause(2)
        self.picture("next-login")
        self.outer.key("Escape")
        self.wait_until_gone(PANEL)

    def remember_a_review(self):
        """Has the program call for a review in two minutes or three."""
        config = self.home.config()
        due = datetime.datetime.now() + datetime.timedelta(minutes=3)
        config |= {"daily_review_enabled": True, "daily_review_times": [due.strftime("%H:%M")]}
        self.home.config_path.write_text(json.dumps(config))
        self._own_files()

    def walk(self):
        self.log_in()
        for question in (self.starts_from_the_launcher, self.sets_up_by_keys, self.asks_once_for_the_login,
                         self.opens_a_terminal, self.button_is_on_another_workspace, self.button_is_in_no_list,
                         self.hotkey_opens_with_what_is_typed_on, self.captures, self.keyboard_is_back,
                         self.button_stays_above_the_panel, self.starts_again_from_the_launcher,
                         self.comes_back_with_the_next_login, self.review_comes_without_the_keyboard):
            words = question.__name__.replace("_", " ")
            try:
                result = question() or "yes"
            except Exception as problem:  # the next questions may still have an answer
                self.picture(f"no-{question.__name__}")
                result = f"no: {type(problem).__name__}: {' '.join(str(problem).split())}"[:200]
            print(self.name, words, result, sep="\t", flush=True)


if __name__ == "__main__":
    Walk(sys.argv[1], Path(sys.argv[2])).walk()

# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""How much memory the program gains over a day of eight hours, lived in two minutes: Pomodoros with their answers,
reminders, notes captured, the daily note written by another program."""

import time

from stage import click_button, desktop_for, pss_mib, running, start_pomodoro
from desktop.waiting import PATIENCE, wait_until

SPEED = 240
HOURS = 8
NOTE = "## Today's Focus\nShip it\n\n## Tasks\n- [ ] Write\n- [ ] Send\n\n## Pomodoro Log\n**Today:** 0/8 completed\n"


def answer(screen, title, *keys):
    """Presses the keys until no window of this title is left: a popup takes none in its first moment, and what comes up takes
    the keyboard from what is there."""
    for window in screen.windows(title):
        deadline = time.monotonic() + PATIENCE
        while screen.windows(title) and time.monotonic() < deadline:
            if not window.is_active:
                window.activate()
            screen.key(*keys)
            time.sleep(0.05)


def live_a_pomodoro(screen, note, number):
    """A captured note, a change from outside, the answer to each window that came up."""
    click_button(screen)
    panel = screen.window("Flitmark")
    wait_until(lambda: panel.is_active, "the panel to have the keyboard")
    screen.type(f"thought {number}")
    answer(screen, "Flitmark", "ctrl+Return")
    with note.open("a") as file:
        file.write(f"line {number}\n")
    wait_until(lambda: screen.windows("Pomodoro Check-in"), "the check-in", 30)
    answer(screen, "Daily Review", "Escape")
    # The first answer of a check-in logs the Pomodoro.
    answer(screen, "Pomodoro Check-in", "Tab", "Return")


def growth(program):
    """Its own memory in MiB after the first rounds and at the end of the day, and how many rounds there were in between."""
    with desktop_for(program) as (desktop, home):
        times = [f"{hour:02}:{minute:02}" for hour in range(8, 17) for minute in (15, 45)]
        home.complete_setup(daily_review_times=times)
        home.write_daily_note(NOTE)
        with running(desktop, home, f"@2026-01-22 08:00:00 x{SPEED}") as day:
            start_pomodoro(desktop.screen, day)
            for number in range(2):
                live_a_pomodoro(desktop.screen, home.daily_note, number)
            began, first = time.monotonic(), pss_mib(day.process_id, "Pss_Anon")
            rounds = 0
            while time.monotonic() - began < HOURS * 3600 / SPEED:
                live_a_pomodoro(desktop.screen, home.daily_note, rounds)
                rounds += 1
            return first, pss_mib(day.process_id, "Pss_Anon"), rounds

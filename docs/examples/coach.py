#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""A small coach for Flitmark: asks when the active window has no word in common with the day's focus.

Usage: coach.py SIGNAL_FOLDER [SECONDS_BETWEEN_LOOKS]
"""

import datetime
import json
import pathlib
import re
import subprocess
import sys
import time
import uuid

SILENCE_AFTER_SNOOZE = 15 * 60


def read(file):
    """The object in a signal file, or an empty one while it is not there, is being written or makes no sense."""
    try:
        value = json.loads(file.read_text(encoding="utf-8"))
    except (OSError, ValueError):
        return {}
    return value if isinstance(value, dict) else {}


def write_in_place(file, value):
    """Flitmark watches the open file: it has to be written into, not replaced."""
    with open(file, "w", encoding="utf-8") as stream:
        json.dump(value, stream, indent=2, sort_keys=True)


def active_window_title():
    found = subprocess.run(["xdotool", "getactivewindow", "getwindowname"], capture_output=True, text=True, check=False)
    return found.stdout.strip()


def words(text):
    return {word for word in re.findall(r"\w+", text.casefold()) if len(word) > 2}


def raise_alert(folder, planned, actual, count):
    alert_id = uuid.uuid4().hex
    now = datetime.datetime.now(datetime.timezone.utc)
    write_in_place(folder / "coach-alert.json", {
        "actual": actual,
        "alert_id": alert_id,
        "misalignment_count": count,
        "planned": planned,
        "status": "pending",
        "triggered_at": now.strftime("%Y-%m-%dT%H:%M:%SZ"),
    })
    return alert_id


def wait_for_answer(folder, alert_id):
    while (answer := read(folder / "user-response.json")).get("alert_id") != alert_id:
        time.sleep(1)
    return answer["response"]


def main():
    folder = pathlib.Path(sys.argv[1])
    pause = float(sys.argv[2]) if len(sys.argv) > 2 else 30
    misses = 0
    while True:
        time.sleep(pause)
        planned = read(folder / "daily-focus.json").get("focus", "")
        title = active_window_title()
        if not planned or not title or words(planned) & words(title):
            misses = 0
            continue
        misses += 1
        if misses >= read(folder / "coach-config.json").get("misalignment_threshold", 2):
            answer = wait_for_answer(folder, raise_alert(folder, planned, title, misses))
            print(f"{title!r} instead of {planned!r}: {answer}", flush=True)
            misses = 0
            if answer == "snooze":
                time.sleep(SILENCE_AFTER_SNOOZE)


if __name__ == "__main__":
    main()

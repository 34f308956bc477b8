# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""Waiting for something on screen or on disk: always with a deadline, never a fixed sleep."""

import os
import time

POLL_SECONDS = 0.02

# Sanitizer builds are several times slower; their tests ask for more patience through the environment.
PATIENCE = float(os.environ.get("FLITMARK_E2E_PATIENCE", "1"))


# Only a failure takes that long, and a busy computer may need much of it.
DEADLINE_SECONDS = 30.0


class NotInTime(AssertionError):
    """What a test waited for did not come."""


def wait_until(condition, what, timeout=DEADLINE_SECONDS):
    """The first true value of `condition()`. `what` says what was expected, for the failure message; a callable is
    asked only then."""
    deadline = time.monotonic() + timeout * PATIENCE
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > deadline:
            raise NotInTime(f"not within {timeout * PATIENCE:g} s: {what() if callable(what) else what}")
        time.sleep(POLL_SECONDS)


def wait_for(expected, ask, timeout=DEADLINE_SECONDS):
    """Waits until `ask()` gives what is expected."""
    wait_until(lambda: ask() == expected, lambda: f"{expected!r}; it is {ask()!r}", timeout)


def hold(condition, what, seconds):
    """Fails as soon as `condition()` is false within the next `seconds`; for things that must not happen."""
    deadline = time.monotonic() + seconds
    while time.monotonic() < deadline:
        if not condition():
            raise AssertionError(f"did not hold for {seconds:g} s: {what}")
        time.sleep(POLL_SECONDS)

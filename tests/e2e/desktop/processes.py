# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""Child processes that never outlive the test, however it ends."""

import contextlib
import ctypes
import os
import signal
import subprocess
import time

PR_SET_PDEATHSIG = 1
PR_SET_CHILD_SUBREAPER = 36

_libc = ctypes.CDLL(None)


def adopt_orphans():
    """Makes this process the parent of whatever its descendants leave behind, such as services started by a bus."""
    _libc.prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0)


def _die_with_parent():
    _libc.prctl(PR_SET_PDEATHSIG, signal.SIGKILL, 0, 0, 0)


def start(command, environment, **options):
    """Starts `command` so that the kernel ends it together with this process. `options` are those of `Popen`."""
    options.setdefault("stdin", subprocess.DEVNULL)
    options.setdefault("stdout", subprocess.DEVNULL)
    options.setdefault("stderr", subprocess.DEVNULL)
    return subprocess.Popen(command, env=environment, preexec_fn=_die_with_parent, **options)


def stop(process, patience=3.0):
    """Asks `process` to end, then makes it end, and gives its status."""
    if process.poll() is None:
        process.terminate()
        try:
            process.wait(patience)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()
    if process.stdout:
        process.stdout.close()
    return process.returncode


def end_orphans(marker, patience=3.0):
    """Ends every process whose environment holds `marker` ("NAME=value"), and reaps those that have been adopted."""
    deadline = time.monotonic() + patience
    while alive := [int(pid) for pid in os.listdir("/proc") if pid.isdigit() and _is_marked(pid, marker.encode())]:
        for pid in alive:
            with contextlib.suppress(ProcessLookupError):
                os.kill(pid, signal.SIGTERM if time.monotonic() < deadline else signal.SIGKILL)
        time.sleep(0.01)
    with contextlib.suppress(ChildProcessError):
        while os.waitpid(-1, os.WNOHANG)[0]:
            pass


def _is_marked(pid, marker):
    try:
        with open(f"/proc/{pid}/environ", "rb") as file:
            return marker in file.read().split(b"\0")
    except OSError:
        return False

# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""Child processes that never outlive the test, however it ends."""

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
    """Ends every adopted process whose environment holds `marker` ("NAME=value"), and reaps those that have ended."""
    deadline = time.monotonic() + patience
    while True:
        alive = [pid for pid in _descendants() if _is_marked(pid, marker.encode())]
        for pid in alive:
            _signal(pid, signal.SIGTERM if time.monotonic() < deadline else signal.SIGKILL)
        _reap_orphans()
        if not alive:
            break
        time.sleep(0.01)


def _status_fields(pid):
    """State and parent of a process, or nothing when it has gone."""
    try:
        with open(f"/proc/{pid}/stat", "rb") as file:
            state, parent = file.read().rpartition(b")")[2].split()[:2]
    except OSError:
        return None
    return state, int(parent)


def _all_processes():
    listed = {int(entry): _status_fields(entry) for entry in os.listdir("/proc") if entry.isdigit()}
    return {pid: fields for pid, fields in listed.items() if fields is not None}


def _descendants():
    listed = _all_processes()

    def descends(pid):
        while pid in listed:
            pid = listed[pid][1]
            if pid == os.getpid():
                return True
        return False

    return [pid for pid in listed if descends(pid)]


def _is_marked(pid, marker):
    try:
        with open(f"/proc/{pid}/environ", "rb") as file:
            return marker in file.read().split(b"\0")
    except OSError:
        return False


def _signal(pid, number):
    try:
        os.kill(pid, number)
    except ProcessLookupError:
        pass


def _reap_orphans():
    for pid, (state, parent) in _all_processes().items():
        if state == b"Z" and parent == os.getpid():
            try:
                os.waitpid(pid, os.WNOHANG)
            except ChildProcessError:
                pass

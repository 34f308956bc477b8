# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""The files of one user: a home folder with a vault, Obsidian's list of vaults and the program's own folder."""

import json
from pathlib import Path

OBSIDIAN_VAULT_ID = "3f1c0a9d8b7e6f52"


class Home:
    """A fresh home folder below `folder`."""

    def __init__(self, folder):
        self.folder = Path(folder)
        self.vault = self.folder / "Notes"
        self.own_folder = self.folder / ".config" / "Flitmark"
        self.config_path = self.own_folder / "config.json"
        self.draft_path = self.own_folder / ".draft.json"
        self.defaults_path = self.own_folder / "defaults.ini"
        self.autostart_path = self.folder / ".config" / "autostart" / "org.flitmark.Flitmark.desktop"
        self.signals = self.vault / ".vault-state" / "flit-mark"
        self.daily_note = self.vault / "Daily" / "2026" / "2026-01-22.md"
        self.folder.mkdir(parents=True)

    def make_vault(self, *other_paths):
        """A vault with a few notes in it, known to Obsidian, as are the vaults at `other_paths`."""
        (self.vault / ".obsidian").mkdir(parents=True)
        (self.vault / "Inbox").mkdir()
        (self.vault / "Projects").mkdir()
        (self.vault / "Projects" / "Garden.md").write_text("# Garden\n\nPlant the beans in May.\n")
        (self.vault / "Reading list.md").write_text("A book about bees\n")
        vaults = {}
        for number, path in enumerate([self.vault, *other_paths]):
            vaults[f"{int(OBSIDIAN_VAULT_ID, 16) + number:016x}"] = {"path": str(path), "ts": 1768000000000}
        listed = self.folder / ".config" / "obsidian" / "obsidian.json"
        listed.parent.mkdir(parents=True)
        listed.write_text(json.dumps({"vaults": vaults}))

    def forget_login_question(self):
        """Leaves a user who has not been asked yet whether the program shall start at login."""
        self.defaults_path.unlink(missing_ok=True)

    def login_question_is_answered(self):
        return self.defaults_path.exists() and "LaunchAtLoginPrompted=true" in self.defaults_path.read_text()

    def complete_setup(self, **fields):
        """Leaves the configuration of a user who finished the set-up, with `fields` instead of the defaults."""
        self.own_folder.mkdir(parents=True, exist_ok=True)
        config = {"has_completed_setup": True, "vault_path": str(self.vault), "panel_width": 460, "panel_height": 560}
        self.config_path.write_text(json.dumps(config | fields))
        self.defaults_path.write_text("[General]\nFlitmarkLaunchAtLoginPrompted=true\n")

    def write_daily_note(self, text):
        """Leaves this as the note of January 22, 2026."""
        self.daily_note.parent.mkdir(parents=True, exist_ok=True)
        self.daily_note.write_text(text)

    def write_obsidian_settings(self, name, text):
        """Leaves this in a settings file of Obsidian's in the vault."""
        path = self.vault / ".obsidian" / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)

    def have_obsidian(self):
        """Registers a program for Obsidian's links; gives the folder with the command that opens all links, which writes
        them into the file `opened`."""
        applications = self.folder / ".local" / "share" / "applications"
        applications.mkdir(parents=True)
        (applications / "obsidian.desktop").write_text("[Desktop Entry]\nType=Application\nName=O\nExec=true %u\n")
        (applications / "mimeapps.list").write_text(
            "[Default Applications]\nx-scheme-handler/obsidian=obsidian.desktop\n")
        handler = self.folder / "bin" / "xdg-open"
        handler.parent.mkdir()
        handler.write_text('#!/bin/sh\nprintf "%s\\n" "$@" >> "$HOME/opened"\n')
        handler.chmod(0o755)
        return handler.parent

    def write_coach_config(self, text):
        """Leaves this text in the coach's configuration."""
        self.signals.mkdir(parents=True, exist_ok=True)
        (self.signals / "coach-config.json").write_text(text)

    def signal(self, name):
        """What the signal file says; empty while there is none."""
        return _read_json(self.signals / f"{name}.json")

    def config(self):
        """The configuration as it is on disk; empty while there is none or it is just being written."""
        return _read_json(self.config_path)

    def draft(self):
        """The draft on disk; empty when there is none."""
        return _read_json(self.draft_path)

    def notes(self, folder="Inbox"):
        """The notes in a folder of the vault, oldest name first."""
        return sorted((self.vault / folder).glob("*.md"))


def _read_json(path):
    try:
        return json.loads(path.read_text())
    except (FileNotFoundError, json.JSONDecodeError):
        return {}

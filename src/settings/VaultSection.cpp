// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Dialogs.h>
#include <settings/VaultSection.h>
#include <ui/Button.h>
#include <ui/Label.h>
#include <ui/TextField.h>

namespace flitmark {

VaultSection::VaultSection(SettingsModel& model, Dialogs& dialogs)
    : SettingsSection(model)
    , m_dialogs(dialogs)
{
    addHeading(tr("Vault Settings"));
    addLabel(tr("Obsidian Vault Path"), 12);
    TextField* path = makeField(tr("Obsidian Vault Path"), tr("Path to vault..."));
    auto* browse = new Button(tr("Browse"));
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    row->addWidget(path, 1);
    row->addWidget(browse);
    add(row, 0);
    Label* problem = addWarning();

    addLabel(tr("Default Save Subfolder"));
    TextField* subfolder = makeField(tr("Default Save Subfolder"), QStringLiteral("Inbox"));
    add(subfolder, 0);
    Label* destination = addCaption({});
    addCaption(tr("What you write in the panel has a folder of its own, on the Notes page."), 4);
    Label* dailyNote = addCaption({});
    finish();

    bind(path, &SettingsState::vaultPath);
    bind(subfolder, &SettingsState::saveSubfolder);
    connect(browse, &Button::clicked, this, &VaultSection::browseForFolder);
    follow([this, path, problem, destination, dailyNote] {
        const QString text = this->model().vaultPathProblem();
        showWarning(*problem, text);
        path->setAccessibleDescription(text);
        destination->setText(tr("Notes are saved to: %1").arg(this->model().saveFolder()));
        const QString place = this->model().dailyNotePlace();
        dailyNote->setText(place.isEmpty() ? QString() : tr("Today's note: %1").arg(place));
    });
}

void VaultSection::browseForFolder()
{
    m_dialogs.chooseFolder(*this, tr("Select your Obsidian vault folder"),
                           [this](const QString& path) { model().set(&SettingsState::vaultPath, path); });
}

} // namespace flitmark

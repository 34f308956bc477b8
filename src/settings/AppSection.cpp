// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/OnThisComputer.h>
#include <settings/AppSection.h>
#include <settings/SwitchRow.h>
#include <ui/AccessibleRole.h>
#include <ui/Button.h>
#include <ui/Label.h>
#include <ui/Switch.h>

namespace flitmark {

AppSection::AppSection(SettingsModel& model)
    : SettingsSection(model)
{
    addCard({makeLoginRow(), makeUpdatesRow()}, 0);

    auto* check = new Button(tr("Check for Updates..."));
    connect(check, &Button::clicked, &model, &SettingsModel::checkForUpdates);
    auto* row = new QHBoxLayout;
    row->addWidget(check);
    row->addStretch();
    add(row, 16);
    Label* result = addCaption({});
    follow([this, result] {
        result->setText(this->model().updateResult());
        result->setVisible(!result->text().isEmpty());
    });
    finish();
}

SwitchRow* AppSection::makeLoginRow()
{
    auto* row = new SwitchRow(tr("Start Flitmark at login"),
                              tr("Recommended for the floating capture button and global hotkey."));
    Label* status = row->addLine();
    Label* error = row->addLine();
    error->setColor(&Theme::red);
    setAccessibleRole(*error, QAccessible::Notification);
    follow([this, row, status, error] {
        row->toggle()->setChecked(model().launchAtLogin());
        status->setText(tr("Status: %1").arg(model().loginStatusText()));
        error->setText(model().loginError());
        error->setVisible(!error->text().isEmpty());
    });
    // Only a click: showing what is must not ask for it.
    connect(row->toggle(), &Switch::clicked, &model(), &SettingsModel::setLaunchAtLogin);
    return row;
}

SwitchRow* AppSection::makeUpdatesRow()
{
    auto* row = new SwitchRow(tr("Automatically check for updates"),
                              tr("Uses Sparkle to watch the GitHub Release appcast and offer new versions."));
    Label* local = row->addLine();
    follow([this, row, local] {
        row->toggle()->setEnabled(model().areUpdatesOffered());
        row->toggle()->setChecked(model().automaticallyChecksForUpdates());
        local->setText(onThisComputer::updates(model().areUpdatesOffered()));
    });
    connect(row->toggle(), &Switch::clicked, &model(), &SettingsModel::setAutomaticallyChecksForUpdates);
    return row;
}

} // namespace flitmark

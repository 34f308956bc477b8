// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/OnThisComputer.h>
#include <settings/NotesSection.h>
#include <settings/SwitchRow.h>
#include <ui/Label.h>
#include <ui/Slider.h>
#include <ui/TextField.h>

#include <QSignalBlocker>

#include <algorithm>

namespace flitmark {

NotesSection::NotesSection(SettingsModel& model)
    : SettingsSection(model)
{
    addHeading(tr("Note Settings"));
    auto* sound = new SwitchRow(tr("Play sound on save"), {});
    addCard({sound}, 12);
    bind(sound, &SettingsState::playSoundOnSave);

    addLabel(tr("Default Tags (comma-separated)"));
    TextField* tags = makeField(tr("Default Tags (comma-separated)"), tr("tag1, tag2, tag3"));
    add(tags, 0);
    bind(tags, &SettingsState::defaultTags);
    addCaption(tr("These tags are added to every note you create"));

    addLabel(tr("Folder for Captured Notes"));
    TextField* folder = makeField(tr("Folder for Captured Notes"), QStringLiteral("Inbox"));
    add(folder, 0);
    bind(folder, &SettingsState::captureSubfolder);
    Label* destination = addCaption({});
    follow([this, destination] {
        destination->setText(tr("What you write in the panel is saved to: %1").arg(this->model().captureFolder()));
    });

    addLabel(tr("Window Mode"));
    addChoices({{QStringLiteral("normal"), tr("Normal")},
                {QStringLiteral("desktop"), tr("Desktop (behind windows)")},
                {QStringLiteral("floating"), tr("Floating (always on top)")}},
               &SettingsState::windowMode);
    addCaption(onThisComputer::windowModes());
    addWindowOpacity();
    finish();
}

void NotesSection::addWindowOpacity()
{
    Label* label = addLabel({});
    auto* slider = new Slider(tr("Window Opacity"), 50, 100, 5);
    add(slider, 0);
    follow([this, label, slider] {
        const int percent = qRound(std::clamp(model().state().windowOpacity, 0.0, 1.0) * 100);
        label->setText(tr("Window Opacity: %1%").arg(percent));
        const QSignalBlocker blocker(slider);
        slider->setValue(percent);
        slider->update();
    });
    connect(slider, &Slider::valueChanged, this,
            [this](int percent) { model().set(&SettingsState::windowOpacity, percent / 100.0); });
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/OnThisComputer.h>
#include <settings/ShortcutsSection.h>
#include <ui/KeyCap.h>
#include <ui/Label.h>

namespace flitmark {

ShortcutsSection::ShortcutsSection(SettingsModel& model, const KeyMonitor& keyMonitor)
    : SettingsSection(model)
{
    addHeading(tr("Keyboard Shortcuts"));
    addText(tr("The global hotkey (⌥N) requires Accessibility permission."), TextRole::Body, 4, &Theme::text2);
    Label* hotkey = addCaption({}, 4);
    const auto showState = [hotkey, &keyMonitor] { hotkey->setText(onThisComputer::hotkey(keyMonitor.state())); };
    showState();
    connect(&keyMonitor, &KeyMonitor::stateChanged, this, showState);
    addCaption(onThisComputer::keys(), 4);

    addCard({makeRow(QStringLiteral("⌥N"), tr("Toggle note panel (global)")),
             makeRow(QStringLiteral("⌘S"), tr("Save note")), makeRow(QStringLiteral("⌘1"), tr("Fleeting note")),
             makeRow(QStringLiteral("⌘2"), tr("Task note")), makeRow(QStringLiteral("⌘3"), tr("Idea note")),
             makeRow(QStringLiteral("⌘,"), tr("Settings")), makeRow(QStringLiteral("⌘Q"), tr("Quit")),
             makeRow(tr("Esc"), tr("Close check-in popup"))},
            12);
    finish();
}

QWidget* ShortcutsSection::makeRow(const QString& key, const QString& text)
{
    auto* row = new QWidget;
    auto* parts = new QHBoxLayout(row);
    parts->setContentsMargins(16, 8, 16, 8);
    parts->setSpacing(16);
    parts->addWidget(new KeyCap(key));
    auto* label = new Label(text);
    label->setWordWrap(true);
    parts->addWidget(label, 1);
    return row;
}

} // namespace flitmark

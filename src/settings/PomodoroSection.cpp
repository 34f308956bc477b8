// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <settings/CoachPreset.h>
#include <settings/PomodoroSection.h>
#include <settings/ReminderTimes.h>
#include <settings/SwitchRow.h>
#include <ui/Button.h>
#include <ui/ComboBox.h>
#include <ui/Label.h>
#include <ui/Slider.h>
#include <ui/Surfaces.h>
#include <ui/TextArea.h>
#include <ui/TextField.h>

#include <QSignalBlocker>

#include <algorithm>
#include <limits>

namespace flitmark {

namespace {

constexpr int shortestInterval = 5;
constexpr int longestInterval = 60;

QLayout* leftAligned(QWidget* widget)
{
    auto* row = new QHBoxLayout;
    row->addWidget(widget);
    row->addStretch();
    return row;
}

} // namespace

PomodoroSection::PomodoroSection(SettingsModel& model)
    : SettingsSection(model)
{
    addHeading(tr("Coach Settings"));
    auto* pomodoro = new SwitchRow(tr("Enable Pomodoro Timer"), tr("Track focused work sessions with 🍅 on tasks"));
    auto* coach = new SwitchRow(tr("Enable Productivity Coach"), tr("Periodic check-ins to keep you on track"));
    addCard({pomodoro, coach}, 12);
    bind(pomodoro, &SettingsState::pomodoroEnabled);
    bind(coach, &SettingsState::coachEnabled);

    addInterval();
    addCheckinWindow();
    addDetection();
    addCoachStyle();
    addCoachPrompt();
    addReminders();

    add(new Divider, 20);
    auto* test = new Button(tr("Test Check-in"));
    test->setSymbol(QStringLiteral("play.circle"));
    connect(test, &Button::clicked, &model, &SettingsModel::testCheckin);
    add(leftAligned(test), 20);
    finish();
}

void PomodoroSection::addInterval()
{
    Label* label = addLabel({});
    auto* slider = new Slider(tr("Check-in Interval"), shortestInterval, longestInterval, 5);
    auto* row = new QHBoxLayout;
    row->setSpacing(12);
    row->addWidget(new Label(tr("5 min"), TextRole::Caption));
    row->addWidget(slider, 1);
    row->addWidget(new Label(tr("60 min"), TextRole::Caption));
    add(row, 0);
    follow([this, label, slider] {
        const qint64 minutes = model().state().pomodoroInterval;
        // A file may hold more than the number that bends the noun can.
        const auto plural = static_cast<int>(std::clamp<qint64>(minutes, 0, std::numeric_limits<int>::max()));
        label->setText(tr("Check-in Interval: %1 minutes", nullptr, plural).arg(minutes));
        const QSignalBlocker blocker(slider);
        slider->setValue(static_cast<int>(std::clamp<qint64>(minutes, shortestInterval, longestInterval)));
        slider->update();
    });
    connect(slider, &Slider::valueChanged, this,
            [this](int minutes) { model().set(&SettingsState::pomodoroInterval, minutes); });
}

void PomodoroSection::addCheckinWindow()
{
    auto* row = new QHBoxLayout;
    row->setSpacing(16);
    const auto addTime = [this, row](const QString& name, const QString& placeholder, QString SettingsState::*text) {
        auto* column = new QVBoxLayout;
        column->setSpacing(4);
        column->addWidget(new Label(name, TextRole::Strong));
        TextField* field = makeField(name, placeholder);
        column->addWidget(field);
        row->addLayout(column, 1);
        bind(field, text);
        follow([this, field, text] { field->setMarkedWrong(!SettingsModel::isTimeOfDay(model().state().*text)); });
    };
    addTime(tr("Start Time"), QStringLiteral("07:30"), &SettingsState::checkinStartTime);
    addTime(tr("End Time"), QStringLiteral("18:00"), &SettingsState::checkinEndTime);
    add(row, 16);
    Label* problem = addWarning();
    follow([this, problem] { showWarning(*problem, model().checkinWindowProblem()); });
    addCaption(tr("Check-ins only appear within this time window"));
}

void PomodoroSection::addDetection()
{
    addLabel(tr("Activity Detection"));
    addChoices({{QStringLiteral("pieces"), tr("Pieces LTM")},
                {QStringLiteral("manual"), tr("Manual Check-ins")},
                {QStringLiteral("hybrid"), tr("Hybrid")}},
               &SettingsState::detectionMode);
    Label* description = addCaption({});
    follow([this, description] {
        description->setText(model().detectionModeDescription());
        description->setVisible(!description->text().isEmpty());
    });
}

void PomodoroSection::addCoachStyle()
{
    addLabel(tr("Coach Style"));
    const QList<CoachPreset> presets = coachPresets();
    auto* style = new ComboBox(tr("Coach Style"));
    for (const CoachPreset& preset : presets) {
        style->addItem(preset.name, preset.id);
    }
    add(leftAligned(style), 0);
    Label* description = addCaption({});
    follow([this, style, description, presets] {
        const int index = style->findData(model().state().coachStyle);
        const QSignalBlocker blocker(style);
        style->setCurrentIndex(index);
        description->setText(index >= 0 ? presets[index].description : QString());
    });
    connect(style, &ComboBox::currentIndexChanged, this,
            [this, style](int index) { model().set(&SettingsState::coachStyle, style->itemData(index).toString()); });
}

void PomodoroSection::addCoachPrompt()
{
    addLabel(tr("Coach Prompt"));
    auto* prompt = new TextArea(tr("Coach Prompt"), 96);
    add(prompt, 0);
    addCaption(tr("This prompt is saved to your coach config and can be used by automation."));
    auto* replace = new Button(tr("Use this style's prompt"));
    auto* row = new QWidget;
    auto* column = new QVBoxLayout(row);
    column->setContentsMargins(0, 8, 0, 0);
    column->addLayout(leftAligned(replace));
    add(row, 0);
    follow([this, prompt, row] {
        const QSignalBlocker blocker(prompt);
        prompt->setText(model().state().coachPrompt);
        row->setVisible(model().offersPresetPrompt());
    });
    connect(prompt, &TextArea::textChanged, this,
            [this, prompt] { model().set(&SettingsState::coachPrompt, prompt->text()); });
    connect(replace, &Button::clicked, prompt, [this, prompt] {
        prompt->setFocus();
        model().usePresetPrompt();
    });
}

void PomodoroSection::addReminders()
{
    addHeading(tr("Daily Review Reminders"), 24);
    auto* remind = new SwitchRow(tr("Remind me to review my daily note"), tr("Scheduled prompts to reflect and plan"));
    addCard({remind}, 12);
    bind(remind, &SettingsState::dailyReviewEnabled);

    addLabel(tr("Reminder Times (24h)"));
    auto* times = new ReminderTimes(model());
    add(times, 0);
    Label* problem = addWarning();
    follow([this, problem] { showWarning(*problem, model().dailyReviewTimesProblem()); });
    auto* addTime = new Button(tr("Add Time"));
    addTime->setSymbol(QStringLiteral("plus.circle.fill"));
    connect(addTime, &Button::clicked, &model(), &SettingsModel::addDailyReviewTime);
    add(leftAligned(addTime), 8);
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <checkin/CheckinWindowController.h>
#include <config/ConfigManager.h>
#include <config/VaultGuess.h>
#include <core/Text.h>
#include <core/TimeOfDay.h>
#include <daily/DailyNoteManager.h>
#include <platform/AppUpdateController.h>
#include <platform/LoginItemManager.h>
#include <platform/NotificationCenter.h>
#include <settings/CoachPreset.h>
#include <settings/SettingsModel.h>
#include <signals/SignalManager.h>

#include <algorithm>

namespace flitmark {

namespace {

/// `pieces`, trimmed, without the empty ones.
QStringList trimmedPieces(const QStringList& pieces)
{
    QStringList kept;
    for (const QString& piece : pieces) {
        if (const QStringView trimmed = trimSpaces(piece); !trimmed.isEmpty()) {
            kept.append(trimmed.toString());
        }
    }
    return kept;
}

/// The prompt of a style; empty when it has none.
QString presetPrompt(const QString& style)
{
    for (const CoachPreset& preset : coachPresets()) {
        if (preset.id == style) {
            return preset.prompt;
        }
    }
    return {};
}

bool isKnownStyle(const QString& style)
{
    const QList<CoachPreset> presets = coachPresets();
    return std::any_of(presets.begin(), presets.end(),
                       [&style](const CoachPreset& preset) { return preset.id == style; });
}

} // namespace

SettingsModel::SettingsModel(const Services& services)
    : m_services(services)
    , m_quickTagEditor(services.configManager)
{
    connect(&services.loginItemManager, &LoginItemManager::changed, this, &SettingsModel::changed);
    connect(&services.updateController.updater(), &Updater::stateChanged, this, &SettingsModel::changed);
}

void SettingsModel::loadSettings()
{
    const AppConfig& config = m_services.configManager.config();
    const CoachConfig& coach = m_services.signalManager.coachConfig();
    m_state = {
        .vaultPath = config.vaultPath,
        .saveSubfolder = config.saveSubfolder,
        .captureSubfolder = config.noteTypes.value(fleetingNoteType()).subfolder,
        .defaultTags = config.defaultTags.join(QStringLiteral(", ")),
        .playSoundOnSave = config.playSoundOnSave,
        .windowMode = config.windowMode,
        .windowOpacity = config.windowOpacity,
        .selectedPalette = config.colorPalette,
        .pomodoroEnabled = config.pomodoroEnabled,
        .coachEnabled = config.coachEnabled,
        .pomodoroInterval = config.pomodoroIntervalMinutes,
        .checkinStartTime = config.checkinStartTime,
        .checkinEndTime = config.checkinEndTime,
        .detectionMode = config.detectionMode,
        .coachStyle = isKnownStyle(coach.coachStyle) ? coach.coachStyle : QString(customCoachStyle),
        .coachPrompt = coach.coachPrompt,
        .dailyReviewEnabled = config.dailyReviewEnabled,
        .dailyReviewTimes = config.dailyReviewTimes,
    };
    if (m_state.dailyReviewTimes.isEmpty()) {
        m_state.dailyReviewTimes = {QStringLiteral("19:00"), QStringLiteral("21:00"), QStringLiteral("23:00")};
    }
    if (m_state.coachPrompt.isEmpty()) {
        m_state.coachPrompt = presetPrompt(m_state.coachStyle);
    }
    m_stored = m_state;
    m_services.loginItemManager.refresh();
    Q_EMIT changed();
}

void SettingsModel::saveSettings()
{
    saveConfig();
    saveCoachConfig();
    m_stored = m_state;
    CheckinWindowController& controller = m_services.checkinController;
    const bool wasRunning = controller.isRunning();
    if (m_state.pomodoroEnabled && m_state.coachEnabled) {
        controller.startPomodoroTimer();
    } else {
        controller.stopPomodoroTimer();
        if (wasRunning) {
            // Nothing follows a stopped timer: the ring has to be told.
            Q_EMIT m_services.notificationCenter.pomodoroTimerUpdated(0.0);
        }
    }
    controller.startDailyReviewTimer();
    Q_EMIT m_services.notificationCenter.windowModeChanged();
}

void SettingsModel::writeTo(AppConfig& config) const
{
    config.vaultPath = m_state.vaultPath;
    config.saveSubfolder = m_state.saveSubfolder;
    config.defaultTags = trimmedPieces(m_state.defaultTags.split(u','));
    config.playSoundOnSave = m_state.playSoundOnSave;
    config.windowMode = m_state.windowMode;
    config.windowOpacity = m_state.windowOpacity;
    config.colorPalette = m_state.selectedPalette;
    config.pomodoroEnabled = m_state.pomodoroEnabled;
    config.coachEnabled = m_state.coachEnabled;
    config.pomodoroIntervalMinutes = m_state.pomodoroInterval;
    config.checkinStartTime = m_state.checkinStartTime;
    config.checkinEndTime = m_state.checkinEndTime;
    config.detectionMode = m_state.detectionMode;
    config.dailyReviewEnabled = m_state.dailyReviewEnabled;
    config.dailyReviewTimes = trimmedPieces(m_state.dailyReviewTimes);
    // Without a folder of their own captures go where all other notes go, until they are given one.
    if (config.noteTypes.contains(fleetingNoteType()) || !trimSpaces(m_state.captureSubfolder).isEmpty()) {
        config.noteTypes[fleetingNoteType()].subfolder = m_state.captureSubfolder;
    }
}

void SettingsModel::saveConfig()
{
    m_services.configManager.update([this](AppConfig& config) { writeTo(config); });
    m_services.configManager.save();
}

void SettingsModel::saveCoachConfig()
{
    CoachConfig coach = m_services.signalManager.currentConfig();
    coach.pomodoroIntervalMinutes = m_state.pomodoroInterval;
    coach.checkinStartTime = m_state.checkinStartTime;
    coach.checkinEndTime = m_state.checkinEndTime;
    coach.detectionMode = m_state.detectionMode;
    coach.coachStyle = m_state.coachStyle;
    coach.coachPrompt = m_state.coachPrompt;
    m_services.signalManager.setCoachConfig(std::move(coach));
    m_services.signalManager.saveConfig();
}

void SettingsModel::setSelectedTab(Tab tab)
{
    if (m_selectedTab != tab) {
        m_selectedTab = tab;
        Q_EMIT selectedTabChanged();
    }
}

QString SettingsModel::vaultPathProblem() const
{
    return flitmark::vaultPathProblem(m_state.vaultPath);
}

QString SettingsModel::saveFolder() const
{
    const QString subfolder = m_state.saveSubfolder.isEmpty() ? QStringLiteral("Inbox") : m_state.saveSubfolder;
    return m_state.vaultPath + u'/' + subfolder + u'/';
}

QString SettingsModel::dailyNotePlace() const
{
    if (!vaultPathProblem().isEmpty()) {
        return {};
    }
    const DailyNotePlace place = m_services.dailyNoteManager.placeIn(m_state.vaultPath);
    return place.exists ? place.pathInVault : place.newNote;
}

QString SettingsModel::captureFolder() const
{
    AppConfig config = m_services.configManager.config();
    writeTo(config);
    return ConfigManager::saveDirectory(config, fleetingNoteType());
}

QString SettingsModel::detectionModeDescription() const
{
    if (m_state.detectionMode == QLatin1String("pieces")) {
        return tr("Uses Pieces LTM to automatically detect what you're working on");
    }
    if (m_state.detectionMode == QLatin1String("manual")) {
        return tr("You'll self-report your work at each check-in");
    }
    if (m_state.detectionMode == QLatin1String("hybrid")) {
        return tr("Combines automatic detection with your self-reports");
    }
    return {};
}

bool SettingsModel::isTimeOfDay(QStringView time)
{
    return minuteOfDay(time).has_value();
}

QString SettingsModel::checkinWindowProblem() const
{
    if (!isTimeOfDay(m_state.checkinStartTime)) {
        return tr("Start Time is not a 24-hour time such as 07:30.");
    }
    if (!isTimeOfDay(m_state.checkinEndTime)) {
        return tr("End Time is not a 24-hour time such as 18:00.");
    }
    return minuteOfDay(m_state.checkinStartTime) > minuteOfDay(m_state.checkinEndTime)
               ? tr("The end comes before the start: no check-in will appear.")
               : QString();
}

bool SettingsModel::offersPresetPrompt() const
{
    const QString prompt = presetPrompt(m_state.coachStyle);
    return !prompt.isEmpty() && prompt != m_state.coachPrompt;
}

void SettingsModel::usePresetPrompt()
{
    if (offersPresetPrompt()) {
        set(&SettingsState::coachPrompt, presetPrompt(m_state.coachStyle));
    }
}

void SettingsModel::addDailyReviewTime()
{
    set(&SettingsState::dailyReviewTimes, m_state.dailyReviewTimes + QStringList(QStringLiteral("20:00")));
}

void SettingsModel::setDailyReviewTime(qsizetype index, const QString& time)
{
    QStringList times = m_state.dailyReviewTimes;
    if (index >= 0 && index < times.size()) {
        times[index] = time;
        set(&SettingsState::dailyReviewTimes, times);
    }
}

void SettingsModel::removeDailyReviewTime(qsizetype index)
{
    QStringList times = m_state.dailyReviewTimes;
    if (index >= 0 && index < times.size() && times.size() > 1) {
        times.removeAt(index);
        set(&SettingsState::dailyReviewTimes, times);
    }
}

QString SettingsModel::dailyReviewTimesProblem() const
{
    for (const QString& entry : m_state.dailyReviewTimes) {
        const QStringView time = trimSpaces(entry);
        if (!time.isEmpty() && !isTimeOfDay(time)) {
            return tr("“%1” is not a 24-hour time such as 19:00.").arg(time);
        }
    }
    return {};
}

} // namespace flitmark

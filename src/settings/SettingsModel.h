// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <config/ColorPalette.h>
#include <settings/QuickTagEditor.h>

#include <QObject>
#include <QStringList>

#include <type_traits>

namespace flitmark {

class AppUpdateController;
class CheckinWindowController;
class DailyNoteManager;
class LoginItemManager;
class NotificationCenter;
class SignalManager;

/// The settings that wait for "Done": a copy to work on.
struct SettingsState
{
    QString vaultPath;
    QString saveSubfolder;
    /// Of the vault, for what is captured in the panel.
    QString captureSubfolder;
    /// Separated by commas.
    QString defaultTags;
    bool playSoundOnSave = true;
    QString windowMode = QStringLiteral("desktop");
    double windowOpacity = 0.95;
    ColorPalette selectedPalette = ColorPalette::obsidianNative;
    bool pomodoroEnabled = true;
    bool coachEnabled = true;
    /// In minutes.
    qint64 pomodoroInterval = 20;
    QString checkinStartTime = QStringLiteral("07:30");
    QString checkinEndTime = QStringLiteral("18:00");
    QString detectionMode = QStringLiteral("pieces");
    QString coachStyle = QStringLiteral("supportive");
    QString coachPrompt;
    bool dailyReviewEnabled = true;
    QStringList dailyReviewTimes;

    bool operator==(const SettingsState&) const = default;
};

/// What the settings window shows and does, without its widgets.
///
/// Most of it is a working copy that only `saveSettings()` writes back. The quick tags, starting at login and the
/// automatic update checks are stored as soon as they change. Main thread only.
class SettingsModel final : public QObject
{
    Q_OBJECT

public:
    enum class Tab { app, quickTags, vault, notes, appearance, pomodoro, shortcuts };

    /// What the model works with; all of it must outlive it.
    struct Services
    {
        ConfigManager& configManager;
        SignalManager& signalManager;
        CheckinWindowController& checkinController;
        LoginItemManager& loginItemManager;
        AppUpdateController& updateController;
        NotificationCenter& notificationCenter;
        const DailyNoteManager& dailyNoteManager;
    };

    explicit SettingsModel(const Services& services);
    Q_DISABLE_COPY_MOVE(SettingsModel)

    /// Fills the working copy; to be called when the window appears.
    void loadSettings();
    /// Writes the working copy to the configuration and the coach's configuration, and has the timers take it up.
    void saveSettings();
    /// Whether the working copy was changed since it was filled or written back.
    bool hasUnsavedChanges() const { return m_state != m_stored; }

    Tab selectedTab() const { return m_selectedTab; }
    void setSelectedTab(Tab tab);

    const SettingsState& state() const { return m_state; }
    /// Changes one field of the working copy.
    template<typename T>
    void set(T SettingsState::*field, const std::type_identity_t<T>& value)
    {
        if (m_state.*field != value) {
            m_state.*field = value;
            Q_EMIT changed();
        }
    }

    QuickTagEditor& quickTagEditor() { return m_quickTagEditor; }

    /// Empty when the vault's path is the absolute path of a folder that exists, else one sentence for the user.
    QString vaultPathProblem() const;
    /// The folder into which notes would be saved, as a text for the user.
    QString saveFolder() const;
    /// Where in the vault today's note is, or would be, as a text for the user; empty where the vault's path has a
    /// problem.
    QString dailyNotePlace() const;
    /// The folder into which captures would be saved, whatever is typed; empty when the vault's path is not absolute.
    QString captureFolder() const;

    /// One sentence on how the chosen detection mode works; empty for an unknown one.
    QString detectionModeDescription() const;
    /// Empty when check-ins can appear at some time, else one sentence for the user.
    QString checkinWindowProblem() const;

    /// Whether the chosen style has a prompt and the prompt is another one.
    bool offersPresetPrompt() const;
    /// Replaces the prompt by that of the chosen style.
    void usePresetPrompt();

    void addDailyReviewTime();
    void setDailyReviewTime(qsizetype index, const QString& time);
    /// Does nothing for an invalid index, or when only one time is listed.
    void removeDailyReviewTime(qsizetype index);
    /// Empty when every time that is given can be read, else one sentence for the user.
    QString dailyReviewTimesProblem() const;
    /// Whether `time` names a minute of the day, as "19:00" does.
    static bool isTimeOfDay(QStringView time);

    bool launchAtLogin() const;
    /// Registers or unregisters the program at once; `launchAtLogin()` then says what has become of it.
    void setLaunchAtLogin(bool isWanted);
    QString loginStatusText() const;
    QString loginError() const;

    bool automaticallyChecksForUpdates() const;
    /// Stored at once.
    void setAutomaticallyChecksForUpdates(bool checks);
    void checkForUpdates() const;
    bool areUpdatesOffered() const;
    /// What the last check found, in one line; empty when there is nothing to say, or no check is offered.
    QString updateResult() const;

    /// Opens the check-in popup.
    void testCheckin();

Q_SIGNALS:
    /// The working copy, the login item or the updates changed.
    void changed();
    void selectedTabChanged();

private:
    void writeTo(AppConfig& config) const;
    void saveConfig();
    void saveCoachConfig();

    Services m_services;
    QuickTagEditor m_quickTagEditor;
    Tab m_selectedTab = Tab::app;
    SettingsState m_state;
    /// The working copy as it was filled or written back.
    SettingsState m_stored;
};

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/Directories.h>
#include <platform/FileEventSource.h>
#include <signals/CoachConfig.h>
#include <signals/SignalRecords.h>

#include <QObject>

#include <memory>
#include <optional>
#include <utility>

namespace flitmark {

class ConfigManager;
class RunLoop;

/// Talks to the coach through four files in one folder: tells it the focus and the user's answers, shares the coach's
/// configuration with it, and publishes its alerts as they arrive.
///
/// Every failure of a file prints a line and leaves what is in memory as it was. Main thread only.
class SignalManager final : public QObject
{
    Q_OBJECT

public:
    /// Chooses the folder and keeps it for good: inside the vault once the setup is complete, else in the program's own
    /// folder. Then loads the configuration, watches the alert file and looks at it.
    SignalManager(Directories directories, const ConfigManager& configManager, RunLoop& runLoop,
                  FileEventSources& fileEvents);
    ~SignalManager() override;
    Q_DISABLE_COPY_MOVE(SignalManager)

    /// The alert that waits for the user's answer.
    const std::optional<CoachAlert>& currentAlert() const { return m_currentAlert; }

    const CoachConfig& coachConfig() const { return m_coachConfig; }
    /// Replaces the configuration in memory. Nothing is written.
    void setCoachConfig(CoachConfig config);

    /// Reads the configuration from its file; writes the file when there is none. A file that can't be read or makes no
    /// sense yields the defaults and stays as it is.
    void loadConfig();
    /// The configuration with what others have written into its file since it was loaded; the one in memory where there
    /// is no file, or none that makes sense. Changes nothing in memory.
    CoachConfig currentConfig();
    /// Writes the configuration to its file; one that made no sense is kept beside it as a copy.
    void saveConfig();

    /// Tells the coach what the user works on. `pomodoroCount` is the day's number of Pomodoros.
    void writeDailyFocus(const QString& focus, const QString& status, qint64 pomodoroCount);

    /// The alert in the file, if it waits for an answer.
    std::optional<CoachAlert> readCoachAlert() const;

    /// Writes the user's answer to the alert `alertId`, withdraws the alert one turn of the main loop later, and marks
    /// it in its file as acknowledged if the file still holds it.
    void writeUserResponse(const QString& alertId, const QString& response, const QString& note);

    /// Whether the current local time lies inside the check-in window of the coach's configuration.
    bool isWithinCheckinWindow() const;

    QString signalDirectory() const { return m_signalDirectory; }
    QString dailyFocusURL() const { return m_signalDirectory + QStringLiteral("/daily-focus.json"); }
    QString coachAlertURL() const { return m_signalDirectory + QStringLiteral("/coach-alert.json"); }
    QString userResponseURL() const { return m_signalDirectory + QStringLiteral("/user-response.json"); }
    QString coachConfigURL() const { return m_signalDirectory + QStringLiteral("/coach-config.json"); }

    /// The descriptor on which events of the alert file's watch are received; -1 when it is not watched.
    int monitoredFileDescriptor() const { return m_fileMonitor ? m_fileMonitor->descriptor() : -1; }

Q_SIGNALS:
    /// An alert was found, be it the same as before, or the alert was withdrawn.
    void currentAlertChanged();
    /// `coachConfig()` differs from what it was.
    void coachConfigChanged();

private:
    std::optional<CoachConfig> readConfig();
    void startWatching();
    void checkForAlerts();
    void markAlertAcknowledged(const QString& alertId);
    void setCurrentAlert(std::optional<CoachAlert> alert);
    QString timestamp() const;

    Directories m_directories;
    RunLoop& m_runLoop;
    FileEventSources& m_fileEvents;
    QString m_signalDirectory;
    std::optional<CoachAlert> m_currentAlert;
    CoachConfig m_coachConfig;
    bool m_isConfigUnreadable = false;
    std::unique_ptr<FileEventSource> m_fileMonitor;
};

} // namespace flitmark

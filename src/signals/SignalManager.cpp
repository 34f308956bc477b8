// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <config/ConfigManager.h>
#include <platform/Files.h>
#include <platform/Json.h>
#include <platform/Print.h>
#include <platform/RunLoop.h>
#include <signals/SignalManager.h>

#include <QFileInfo>

namespace flitmark {

namespace {

QString messageOf(const FileError& error)
{
    return error.message;
}

void printFor(const QString& text)
{
    printLine(QStringLiteral("SignalManager: ") + text);
}

/// The alert that `bytes` hold, if it waits for an answer. Bytes that make no sense print a line.
std::optional<CoachAlert> pendingAlert(const tl::expected<QByteArray, QString>& bytes)
{
    const tl::expected<CoachAlert, QString> alert = bytes.and_then(parseJsonObject).and_then(&CoachAlert::fromJson);
    if (!alert) {
        printFor(QStringLiteral("Failed to read coach alert: ") + alert.error());
        return std::nullopt;
    }
    return alert->status == u"pending" ? std::optional(*alert) : std::nullopt;
}

QString chooseDirectory(const Directories& directories, const AppConfig& config)
{
    const bool hasVault =
        config.hasCompletedSetup && !config.vaultPath.isEmpty() && QFileInfo::exists(config.vaultPath);
    if (!hasVault) {
        return directories.ownFolder() + QStringLiteral("/state/flit-mark");
    }
    const auto inVault = QStringLiteral(".vault-state/flit-mark");
    return config.vaultPath + (config.vaultPath.endsWith(u'/') ? inVault : u'/' + inVault);
}

} // namespace

SignalManager::SignalManager(Directories directories, const ConfigManager& configManager, RunLoop& runLoop,
                             FileEventSources& fileEvents)
    : m_directories(std::move(directories))
    , m_runLoop(runLoop)
    , m_fileEvents(fileEvents)
    , m_signalDirectory(chooseDirectory(m_directories, configManager.config()))
    , m_coachConfig(CoachConfig::makeDefault(m_directories))
{
    // Where the folder can't be made, the first read or write says so.
    std::ignore = createFolder(m_signalDirectory);
    loadConfig();
    startWatching();
}

SignalManager::~SignalManager()
{
    // Before anything else goes: the watch calls from another thread.
    m_fileMonitor.reset();
}

void SignalManager::setCoachConfig(CoachConfig config)
{
    if (m_coachConfig == config) {
        return;
    }
    m_coachConfig = std::move(config);
    Q_EMIT coachConfigChanged();
}

void SignalManager::loadConfig()
{
    if (!QFileInfo::exists(coachConfigURL())) {
        m_isConfigUnreadable = false;
        saveConfig();
        return;
    }
    setCoachConfig(readConfig().value_or(CoachConfig::makeDefault(m_directories)));
}

CoachConfig SignalManager::currentConfig()
{
    return QFileInfo::exists(coachConfigURL()) ? readConfig().value_or(m_coachConfig) : m_coachConfig;
}

std::optional<CoachConfig> SignalManager::readConfig()
{
    const tl::expected<CoachConfig, QString> loaded =
        readFile(coachConfigURL())
            .map_error(messageOf)
            .and_then(parseJsonObject)
            .and_then([this](const QJsonObject& object) { return CoachConfig::fromJson(object, m_directories); });
    m_isConfigUnreadable = !loaded;
    if (!loaded) {
        printFor(QStringLiteral("Failed to load config: ") + loaded.error());
        return std::nullopt;
    }
    return *loaded;
}

void SignalManager::saveConfig()
{
    // The coach and the user may edit the file by hand: what a slip of theirs made unreadable can be got back.
    if (std::exchange(m_isConfigUnreadable, false)) {
        keepUnreadable(coachConfigURL());
    }
    if (const auto written = overwriteFile(coachConfigURL(), encodeJson(m_coachConfig.toJson())); !written) {
        printFor(QStringLiteral("Failed to save config: ") + written.error().message);
    }
}

void SignalManager::writeDailyFocus(const QString& focus, const QString& status, qint64 pomodoroCount)
{
    const DailyFocusSignal signal{focus, status, timestamp(), pomodoroCount};
    if (const auto written = overwriteFile(dailyFocusURL(), encodeJson(signal.toJson())); !written) {
        printFor(QStringLiteral("Failed to write daily focus: ") + written.error().message);
        return;
    }
    printFor(QStringLiteral("Wrote daily focus signal"));
}

std::optional<CoachAlert> SignalManager::readCoachAlert() const
{
    if (!QFileInfo::exists(coachAlertURL())) {
        return std::nullopt;
    }
    return pendingAlert(readFile(coachAlertURL()).map_error(messageOf));
}

void SignalManager::writeUserResponse(const QString& alertId, const QString& response, const QString& note)
{
    const UserResponse answer{alertId, response, note, timestamp()};
    if (const auto written = overwriteFile(userResponseURL(), encodeJson(answer.toJson())); !written) {
        printFor(QStringLiteral("Failed to write user response: ") + written.error().message);
        return;
    }
    printFor(QStringLiteral("Wrote user response for alert ") + alertId);
    // Queued before the file is touched, so that it comes before the look at the file which that touch calls for.
    m_runLoop.async(this, [this, alertId] {
        // Another one may have come meanwhile.
        if (m_currentAlert && m_currentAlert->alertId == alertId) {
            setCurrentAlert(std::nullopt);
        }
    });
    markAlertAcknowledged(alertId);
}

void SignalManager::markAlertAcknowledged(const QString& alertId)
{
    if (!QFileInfo::exists(coachAlertURL())) {
        return;
    }
    // Read once for both: another alert may take the place of this one at any moment.
    const tl::expected<QByteArray, QString> bytes = readFile(coachAlertURL()).map_error(messageOf);
    const std::optional<CoachAlert> alert = pendingAlert(bytes);
    if (!alert || alert->alertId != alertId) {
        return;
    }
    const tl::expected<void, QString> written =
        bytes.and_then(acknowledgedAlert).and_then([this](const QByteArray& changed) {
            return overwriteFile(coachAlertURL(), changed).map_error(messageOf);
        });
    if (!written) {
        printFor(QStringLiteral("Failed to mark alert acknowledged: ") + written.error());
    }
}

void SignalManager::startWatching()
{
    m_fileMonitor.reset();
    if (!QFileInfo::exists(coachAlertURL())) {
        std::ignore = overwriteFile(coachAlertURL(), QByteArray());
    }
    using Event = FileEventSource::Event;
    // The watch is cancelled before this object goes, so the handler always finds it there.
    auto source = m_fileEvents.open(coachAlertURL(), Event::Written, [this](FileEventSource::Events) {
        m_runLoop.async(this, [this] { checkForAlerts(); });
    });
    if (!source) {
        printFor(QStringLiteral("Failed to open file for monitoring"));
        return;
    }
    m_fileMonitor = *std::move(source);
    printFor(QStringLiteral("Started watching for coach alerts"));
    checkForAlerts();
}

void SignalManager::checkForAlerts()
{
    if (std::optional<CoachAlert> alert = readCoachAlert()) {
        printFor(QStringLiteral("Found pending alert: ") + alert->alertId);
        setCurrentAlert(std::move(alert));
    }
}

void SignalManager::setCurrentAlert(std::optional<CoachAlert> alert)
{
    m_currentAlert = std::move(alert);
    Q_EMIT currentAlertChanged();
}

bool SignalManager::isWithinCheckinWindow() const
{
    const QTime now = m_runLoop.now().time();
    return isWithinWindow(m_coachConfig.checkinStartTime, m_coachConfig.checkinEndTime, now.hour() * 60 + now.minute());
}

QString SignalManager::timestamp() const
{
    return m_runLoop.now().toUTC().toString(Qt::ISODate);
}

} // namespace flitmark

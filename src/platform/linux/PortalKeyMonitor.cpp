// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/linux/ApplicationScope.h>
#include <platform/linux/PortalKeyMonitor.h>

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>

#include <algorithm>
#include <utility>

namespace flitmark {

using namespace std::chrono_literals;

namespace {

constexpr QLatin1String connectionName("flitmark-hotkey");
/// Desktops keep the user's key by these names: they never change.
constexpr QLatin1String shortcutId("toggle-panel");
constexpr QLatin1String sessionToken("flitmark");

struct PortalShortcut
{
    QString id;
    QVariantMap properties;
};

QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut)
{
    argument.beginStructure();
    argument << shortcut.id << shortcut.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut)
{
    argument.beginStructure();
    argument >> shortcut.id >> shortcut.properties;
    argument.endStructure();
    return argument;
}

QVariant shortcutsToBind()
{
    const PortalShortcut shortcut{
        .id = shortcutId,
        .properties = {{QStringLiteral("description"), PortalKeyMonitor::tr("Toggle note panel")},
                       {QStringLiteral("preferred_trigger"), QStringLiteral("ALT+n")}},
    };
    return QVariant::fromValue(QList<PortalShortcut>{shortcut});
}

/// Our own among the shortcuts of an answer.
std::optional<PortalShortcut> ownShortcut(const QVariant& shortcuts)
{
    const auto bound = qdbus_cast<QList<PortalShortcut>>(shortcuts);
    const auto own = std::find_if(bound.begin(), bound.end(),
                                  [](const PortalShortcut& shortcut) { return shortcut.id == shortcutId; });
    return own == bound.end() ? std::nullopt : std::optional(*own);
}

/// True for the key that was asked for, in the words of any desktop: "Alt+N", "Press <Alt>n".
bool isPreferred(const QString& trigger)
{
    QString letters = trigger.toLower().remove(QLatin1String("press"));
    letters.removeIf([](QChar character) { return !character.isLetterOrNumber(); });
    return letters == QLatin1String("altn");
}

} // namespace

PortalKeyMonitor::PortalKeyMonitor(RunLoop& runLoop)
    : m_runLoop(runLoop)
{
}

PortalKeyMonitor::~PortalKeyMonitor()
{
    if (m_bus) {
        QDBusConnection::disconnectFromBus(connectionName);
    }
}

void PortalKeyMonitor::start()
{
    if (!std::exchange(m_isStarted, true)) {
        m_runLoop.after(startDelay, this, [this] { openBus(); });
    }
}

void PortalKeyMonitor::openBus()
{
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<QList<PortalShortcut>>();
    m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName);
    if (!m_bus->isConnected()) {
        setState({});
        return;
    }
    auto* watcher = new QDBusServiceWatcher(portal::service, *m_bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString& before, const QString& now) { changeOwner(before, now); });
    const auto listen = [this](const char* signal, const char* slot) {
        m_bus->connect(portal::service, portal::path, portal::globalShortcuts, QLatin1String(signal), this, slot);
    };
    listen("Activated", SLOT(activated(QDBusMessage)));
    listen("Deactivated", SLOT(deactivated(QDBusMessage)));
    listen("ShortcutsChanged", SLOT(shortcutsChanged(QDBusMessage)));
    // Portals look at a program once, when they hear of it first.
    m_isBinding = true;
    auto* scope = new ApplicationScope(*m_bus, m_runLoop, this);
    scope->enter([this] { bind(); });
}

void PortalKeyMonitor::changeOwner(const QString& before, const QString& now)
{
    if (!before.isEmpty()) {
        ++m_attempt;
        m_isBinding = false;
        m_session.clear();
        m_request.reset();
        setState({.status = Status::Waiting});
    }
    const auto bindIfNeeded = [this] {
        if (!m_isBinding && m_session.isEmpty()) {
            bind();
        }
    };
    if (!now.isEmpty()) {
        bindIfNeeded();
    } else {
        // Where nobody else starts the portal again, our asking does.
        m_runLoop.after(1s, this, bindIfNeeded);
    }
}

void PortalKeyMonitor::bind()
{
    m_isBinding = true;
    setState({.status = Status::Waiting});
    QDBusMessage message = QDBusMessage::createMethodCall(portal::service, portal::path,
                                                          QStringLiteral("org.freedesktop.host.portal.Registry"),
                                                          QStringLiteral("Register"));
    message.setArguments({QString(ApplicationScope::applicationId), QVariantMap()});
    auto* call = new QDBusPendingCallWatcher(m_bus->asyncCall(message), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call, attempt = ++m_attempt] {
        call->deleteLater();
        // Not every portal keeps a register, and those that don't need none.
        if (attempt == m_attempt) {
            createSession();
        }
    });
}

void PortalKeyMonitor::createSession()
{
    const QVariantMap options{{QStringLiteral("session_handle_token"), QString(sessionToken)},
                              {QStringLiteral("shortcuts"), shortcutsToBind()}};
    ask(QStringLiteral("CreateSession"), {}, options, [this](const QVariantMap& results) {
        followSession(results.value(QStringLiteral("session_handle")));
        const QVariant shortcuts = results.value(QStringLiteral("shortcuts"));
        if (ownShortcut(shortcuts)) {
            m_isBinding = false;
            readShortcuts(shortcuts);
        } else {
            bindShortcuts();
        }
    });
}

void PortalKeyMonitor::followSession(const QVariant& handle)
{
    // A text by the portal's description, though it names an object.
    m_session = handle.canConvert<QDBusObjectPath>() && handle.metaType() != QMetaType(QMetaType::QString)
                    ? handle.value<QDBusObjectPath>().path()
                    : handle.toString();
    m_bus->connect(portal::service, m_session, QStringLiteral("org.freedesktop.portal.Session"),
                   QStringLiteral("Closed"), this, SLOT(sessionClosed()));
}

void PortalKeyMonitor::bindShortcuts()
{
    ask(QStringLiteral("BindShortcuts"),
        {QVariant::fromValue(QDBusObjectPath(m_session)), shortcutsToBind(), QString()}, {},
        [this](const QVariantMap& results) {
            m_isBinding = false;
            readShortcuts(results.value(QStringLiteral("shortcuts")));
        });
}

void PortalKeyMonitor::ask(const QString& method, const QVariantList& arguments, const QVariantMap& options,
                           std::function<void(const QVariantMap&)> granted)
{
    m_request.reset(
        new PortalRequest(*m_bus, [this, granted = std::move(granted)](const PortalRequest::Answer& answer) {
            if (answer) {
                granted(*answer);
            } else {
                m_isBinding = false;
                setState(answer.error());
            }
        }));
    m_request->call(method, arguments, options);
}

void PortalKeyMonitor::readShortcuts(const QVariant& shortcuts)
{
    const std::optional<PortalShortcut> own = ownShortcut(shortcuts);
    if (!own) {
        setState({.status = Status::Failed, .reason = tr("The desktop left the key out.")});
        return;
    }
    const QString trigger = own->properties.value(QStringLiteral("trigger_description")).toString();
    if (trigger.isEmpty()) {
        setState({.status = Status::Waiting, .reason = tr("Choose a key for Flitmark in the desktop's settings.")});
    } else {
        setState({.status = Status::Working,
                  .reason = isPreferred(trigger) ? QString() : tr("The desktop's key for it is: %1.").arg(trigger)});
    }
}

bool PortalKeyMonitor::isOfSession(const QDBusMessage& signal) const
{
    return !m_session.isEmpty() && signal.arguments().value(0).value<QDBusObjectPath>().path() == m_session;
}

bool PortalKeyMonitor::isOfShortcut(const QDBusMessage& signal) const
{
    return isOfSession(signal) && signal.arguments().value(1).toString() == shortcutId;
}

void PortalKeyMonitor::activated(const QDBusMessage& signal)
{
    if (!isOfShortcut(signal)) {
        return;
    }
    if (m_state.status == Status::Waiting) {
        setState({.status = Status::Working});
    }
    if (!m_held) {
        Q_EMIT hotkeyPressed();
    }
    // Some desktops repeat a held key, and some never tell of its release: the pause after the last repeat does. It
    // begins when the press has been answered, which may have taken a while.
    m_held = m_runLoop.every(1s, [this] { m_held.reset(); });
}

void PortalKeyMonitor::deactivated(const QDBusMessage& signal)
{
    if (isOfShortcut(signal)) {
        m_held.reset();
    }
}

void PortalKeyMonitor::shortcutsChanged(const QDBusMessage& signal)
{
    if (isOfSession(signal)) {
        readShortcuts(signal.arguments().value(1));
    }
}

void PortalKeyMonitor::sessionClosed()
{
    m_session.clear();
    m_isBinding = false;
    setState({.status = Status::Failed, .reason = tr("The desktop has ended the session.")});
}

void PortalKeyMonitor::setState(const State& state)
{
    if (m_state != state) {
        m_state = state;
        Q_EMIT stateChanged();
    }
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/linux/ApplicationBus.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace flitmark {

namespace {

QString busName()
{
    return QStringLiteral("org.flitmark.Flitmark");
}

QString objectPath()
{
    return QStringLiteral("/org/flitmark/Flitmark");
}

QString interfaceName()
{
    return QStringLiteral("org.freedesktop.Application");
}

QString tokenIn(const QVariantMap& platformData)
{
    const QString token = platformData.value(QStringLiteral("activation-token")).toString();
    return token.isEmpty() ? platformData.value(QStringLiteral("desktop-startup-id")).toString() : token;
}

} // namespace

ApplicationBus::ApplicationBus(QObject* parent)
    : QObject(parent)
{
}

void ApplicationBus::start()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    // Before the name is there, so that no call that started the program comes too early.
    if (bus.isConnected() &&
        bus.registerObject(objectPath(), interfaceName(), this, QDBusConnection::ExportScriptableInvokables)) {
        requestName();
    }
}

void ApplicationBus::requestName()
{
    constexpr uint doNotQueue = 4;
    constexpr uint isTaken = 3;
    QDBusMessage request =
        QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
                                       QStringLiteral("org.freedesktop.DBus"), QStringLiteral("RequestName"));
    request << busName() << doNotQueue;
    auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(request), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<uint> reply = *watcher;
        watcher->deleteLater();
        if (!reply.isValid() || reply.value() != isTaken) {
            return;
        }
        QDBusMessage activate =
            QDBusMessage::createMethodCall(busName(), objectPath(), interfaceName(), QStringLiteral("Activate"));
        activate << QVariantMap();
        QDBusConnection::sessionBus().send(activate);
        Q_EMIT nameTaken();
    });
}

void ApplicationBus::Activate(const QVariantMap& platformData)
{
    Q_EMIT activationAsked(tokenIn(platformData));
}

void ApplicationBus::Open(const QStringList&, const QVariantMap& platformData)
{
    Q_EMIT activationAsked(tokenIn(platformData));
}

void ApplicationBus::ActivateAction(const QString& name, const QVariantList&, const QVariantMap& platformData)
{
    if (const std::optional<AppAction> action = appActionNamed(name)) {
        Q_EMIT actionAsked(*action, tokenIn(platformData));
    } else if (calledFromDBus()) {
        sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("There is no action \"%1\"").arg(name));
    }
}

} // namespace flitmark

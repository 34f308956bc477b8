// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/linux/PortalRequest.h>

#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QUuid>

#include <utility>

namespace flitmark {

namespace {

using Status = KeyMonitor::Status;

/// No portal at all, or one that knows no shortcuts, is the desktop's nature; other errors are no refusal either.
KeyMonitor::State stateOf(const QDBusError& error)
{
    switch (error.type()) {
    case QDBusError::ServiceUnknown:
    case QDBusError::UnknownObject:
    case QDBusError::UnknownInterface:
    case QDBusError::UnknownMethod:
    case QDBusError::Disconnected:
    case QDBusError::NoServer:
        return {};
    default:
        break;
    }
    if (error.name().startsWith(QLatin1String("org.freedesktop.DBus.Error.Spawn."))) {
        return {};
    }
    const bool isRefusal =
        error.type() == QDBusError::AccessDenied || error.name().endsWith(QLatin1String(".NotAllowed"));
    return {.status = isRefusal ? Status::Refused : Status::Failed,
            .reason = PortalRequest::tr("The desktop said: %1").arg(error.message())};
}

} // namespace

QString portal::makeToken()
{
    return QLatin1String("flitmark_") + QUuid::createUuid().toString(QUuid::Id128);
}

PortalRequest::PortalRequest(QDBusConnection bus, Answered answered)
    : m_bus(std::move(bus))
    , m_answered(std::move(answered))
{
}

void PortalRequest::call(const QString& method, const QVariantList& arguments, QVariantMap options)
{
    const QString token = portal::makeToken();
    options.insert(QStringLiteral("handle_token"), token);
    // Before the call, or the answer could be there first.
    const QString self = m_bus.baseService().mid(1).replace(u'.', u'_');
    listenAt(portal::path + QLatin1String("/request/") + self + QLatin1Char('/') + token);

    QDBusMessage message =
        QDBusMessage::createMethodCall(portal::service, portal::path, portal::globalShortcuts, method);
    message.setArguments(arguments + QVariantList{options});
    auto* call = new QDBusPendingCallWatcher(m_bus.asyncCall(message), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] { finishCall(*call); });
}

void PortalRequest::finishCall(const QDBusPendingCallWatcher& call)
{
    const QDBusPendingReply<QDBusObjectPath> reply = call;
    if (reply.isError()) {
        give(tl::unexpected(stateOf(reply.error())));
    } else if (reply.value().path() != m_path) {
        // Old portals choose the path themselves.
        listenAt(reply.value().path());
    }
}

void PortalRequest::listenAt(const QString& requestPath)
{
    m_path = requestPath;
    m_bus.connect(portal::service, requestPath, QStringLiteral("org.freedesktop.portal.Request"),
                  QStringLiteral("Response"), this, SLOT(respond(uint, QVariantMap)));
}

void PortalRequest::respond(uint code, const QVariantMap& results)
{
    constexpr uint granted = 0;
    constexpr uint declined = 1;
    if (code == granted) {
        give(results);
        return;
    }
    const KeyMonitor::State state =
        code == declined
            ? KeyMonitor::State{.status = Status::Refused, .reason = tr("It was declined when the desktop asked.")}
            : KeyMonitor::State{.status = Status::Failed,
                                .reason = tr("The desktop's question ended without an answer.")};
    give(tl::unexpected(state));
}

void PortalRequest::give(const Answer& answer)
{
    if (const Answered answered = std::exchange(m_answered, {})) {
        answered(answer);
    }
}

} // namespace flitmark

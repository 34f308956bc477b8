// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/linux/PortalColorScheme.h>
#include <platform/linux/PortalRequest.h>

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

namespace flitmark {

namespace {

constexpr QLatin1String settings("org.freedesktop.portal.Settings");
constexpr QLatin1String appearance("org.freedesktop.appearance");
constexpr QLatin1String colorScheme("color-scheme");

} // namespace

PortalColorScheme::PortalColorScheme(QObject* parent)
    : QObject(parent)
{
}

void PortalColorScheme::start()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.connect(portal::service, portal::path, settings, QStringLiteral("SettingChanged"), this,
                SLOT(settingChanged(QDBusMessage)));
    QDBusMessage message =
        QDBusMessage::createMethodCall(portal::service, portal::path, settings, QStringLiteral("Read"));
    message.setArguments({QString(appearance), QString(colorScheme)});
    auto* call = new QDBusPendingCallWatcher(bus.asyncCall(message), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] {
        call->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *call;
        if (reply.isValid()) {
            tell(reply.value().variant());
        }
    });
}

void PortalColorScheme::settingChanged(const QDBusMessage& signal)
{
    const QVariantList arguments = signal.arguments();
    if (arguments.value(0).toString() == appearance && arguments.value(1).toString() == colorScheme) {
        tell(arguments.value(2));
    }
}

void PortalColorScheme::tell(const QVariant& value)
{
    // The answer to the question is a variant in a variant.
    QVariant inner = value;
    while (inner.metaType() == QMetaType::fromType<QDBusVariant>()) {
        inner = inner.value<QDBusVariant>().variant();
    }
    switch (inner.toUInt()) {
    case 1:
        Q_EMIT told(Preference::Dark);
        break;
    case 2:
        Q_EMIT told(Preference::Light);
        break;
    default:
        Q_EMIT told(Preference::None);
        break;
    }
}

} // namespace flitmark

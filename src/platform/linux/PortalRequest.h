// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/KeyMonitor.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>

#include <tl/expected.hpp>

#include <functional>

class QDBusPendingCallWatcher;

namespace flitmark {

namespace portal {

constexpr QLatin1String service("org.freedesktop.portal.Desktop");
constexpr QLatin1String path("/org/freedesktop/portal/desktop");
constexpr QLatin1String globalShortcuts("org.freedesktop.portal.GlobalShortcuts");

/// A word of our own that nobody can guess.
QString makeToken();

} // namespace portal

/// A call to the desktop's portal, whose answer may wait for the user. Deleted before it has come, the answer is
/// dropped.
class PortalRequest final : public QObject
{
    Q_OBJECT

public:
    /// What was answered, or the state that the hotkey is in without it.
    using Answer = tl::expected<QVariantMap, KeyMonitor::State>;
    using Answered = std::function<void(const Answer&)>;

    PortalRequest(QDBusConnection bus, Answered answered);
    Q_DISABLE_COPY_MOVE(PortalRequest)

    /// Calls a method of the shortcuts portal. To be called once.
    void call(const QString& method, const QVariantList& arguments, QVariantMap options = {});

private:
    // Found by its name, as the bus library asks for it.
    Q_SLOT void respond(uint code, const QVariantMap& results);

    void listenAt(const QString& requestPath);
    void finishCall(const QDBusPendingCallWatcher& call);
    void give(const Answer& answer);

    QDBusConnection m_bus;
    Answered m_answered;
    QString m_path;
};

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/RunLoop.h>
#include <platform/linux/ApplicationScope.h>

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QFile>

#include <algorithm>
#include <utility>

namespace flitmark {

using namespace std::chrono_literals;

namespace {

constexpr QLatin1String service("org.freedesktop.systemd1");
constexpr QLatin1String path("/org/freedesktop/systemd1");
constexpr QLatin1String manager("org.freedesktop.systemd1.Manager");

struct UnitProperty
{
    QString name;
    QDBusVariant value;
};

/// A further unit to start with it. There is never one, yet the call has a list of them.
struct FurtherUnit
{
    QString name;
    QList<UnitProperty> properties;
};

template<typename Struct, typename Second>
QDBusArgument& write(QDBusArgument& argument, const Struct& data, Second Struct::*second)
{
    argument.beginStructure();
    argument << data.name << data.*second;
    argument.endStructure();
    return argument;
}

template<typename Struct, typename Second>
const QDBusArgument& read(const QDBusArgument& argument, Struct& data, Second Struct::*second)
{
    argument.beginStructure();
    argument >> data.name >> data.*second;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const UnitProperty& property)
{
    return write(argument, property, &UnitProperty::value);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, UnitProperty& property)
{
    return read(argument, property, &UnitProperty::value);
}

QDBusArgument& operator<<(QDBusArgument& argument, const FurtherUnit& unit)
{
    return write(argument, unit, &FurtherUnit::properties);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, FurtherUnit& unit)
{
    return read(argument, unit, &FurtherUnit::properties);
}

} // namespace

ApplicationScope::ApplicationScope(QDBusConnection bus, RunLoop& runLoop, QObject* parent)
    : QObject(parent)
    , m_bus(std::move(bus))
    , m_runLoop(runLoop)
{
}

bool ApplicationScope::isOfApplication(const QByteArray& controlGroups)
{
    const QList<QByteArray> lines = controlGroups.split('\n');
    return std::any_of(lines.begin(), lines.end(), [](const QByteArray& line) {
        const QByteArray unit = line.mid(line.lastIndexOf('/') + 1);
        return unit.startsWith("app-") && unit.contains(applicationId.data());
    });
}

void ApplicationScope::enter(std::function<void()> done)
{
    m_done = std::move(done);
    QFile controlGroups(QStringLiteral("/proc/self/cgroup"));
    if (controlGroups.open(QFile::ReadOnly) && isOfApplication(controlGroups.readAll())) {
        finish();
    } else {
        startUnit();
        m_runLoop.after(1s, this, [this] { finish(); });
    }
}

void ApplicationScope::startUnit()
{
    qDBusRegisterMetaType<UnitProperty>();
    qDBusRegisterMetaType<QList<UnitProperty>>();
    qDBusRegisterMetaType<FurtherUnit>();
    qDBusRegisterMetaType<QList<FurtherUnit>>();
    qDBusRegisterMetaType<QList<uint>>();
    const auto processId = static_cast<uint>(QCoreApplication::applicationPid());
    m_unit = QStringLiteral("app-%1-%2.scope").arg(applicationId).arg(processId);
    // Before the call, or the end of the job could be there first.
    m_bus.connect(service, path, manager, QStringLiteral("JobRemoved"), this, SLOT(jobRemoved(QDBusMessage)));
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, manager, QStringLiteral("StartTransientUnit"));
    const QList<UnitProperty> properties{
        {QStringLiteral("PIDs"), QDBusVariant(QVariant::fromValue(QList<uint>{processId}))},
        {QStringLiteral("Slice"), QDBusVariant(QStringLiteral("app.slice"))},
    };
    message.setArguments(
        {m_unit, QStringLiteral("fail"), QVariant::fromValue(properties), QVariant::fromValue(QList<FurtherUnit>())});
    auto* call = new QDBusPendingCallWatcher(m_bus.asyncCall(message), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] {
        call->deleteLater();
        if (call->isError()) {
            finish();
        }
    });
}

void ApplicationScope::jobRemoved(const QDBusMessage& signal)
{
    if (signal.arguments().value(2).toString() == m_unit) {
        finish();
    }
}

void ApplicationScope::finish()
{
    if (const auto done = std::exchange(m_done, {})) {
        done();
    }
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include <functional>

namespace flitmark {

class RunLoop;

/// The unit of the user's systemd that this process runs in. Portals take a program's identity from its name, which
/// differs by how the program was started; in a scope of our own it is always the same. Main thread only.
class ApplicationScope final : public QObject
{
    Q_OBJECT

public:
    /// What desktops know the application by.
    static constexpr QLatin1String applicationId{"org.flitmark.Flitmark"};

    ApplicationScope(QDBusConnection bus, RunLoop& runLoop, QObject* parent);
    Q_DISABLE_COPY_MOVE(ApplicationScope)

    /// Moves this process into such a scope, unless it is in a unit of our name, and then calls `done`: also where
    /// there is no systemd, and after a second at the latest. To be called once.
    void enter(std::function<void()> done);

    /// Whether the control groups of a process (the text of its file below /proc) name a unit of the application.
    static bool isOfApplication(const QByteArray& controlGroups);

private:
    // Found by its name, as the bus library asks for it. Before it has sent a path, it takes no slots with paths.
    Q_SLOT void jobRemoved(const QDBusMessage& signal);

    void startUnit();
    void finish();

    QDBusConnection m_bus;
    RunLoop& m_runLoop;
    QString m_unit;
    std::function<void()> m_done;
};

} // namespace flitmark

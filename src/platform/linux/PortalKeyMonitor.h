// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/KeyMonitor.h>
#include <platform/RunLoop.h>
#include <platform/linux/PortalRequest.h>

#include <memory>
#include <optional>

namespace flitmark {

/// The hotkey of a Wayland desktop, where only the desktop sees all keys: a shortcut of the GlobalShortcuts portal. It
/// is bound at every start and whenever the portal starts anew; the desktop remembers what the user decided. Some
/// portals take it with the session and show their settings to who binds it again, some know nothing but the binding:
/// the answer to the first decides whether the second is asked for. Typing is never held back here.
class PortalKeyMonitor final : public KeyMonitor
{
    Q_OBJECT

public:
    explicit PortalKeyMonitor(RunLoop& runLoop);
    ~PortalKeyMonitor() override;
    Q_DISABLE_COPY_MOVE(PortalKeyMonitor)

    void start() override;
    State state() const override { return m_state; }
    void giveTypingTo(WindowId) override {}

private:
    // Found by their names, as the bus library asks for it. Before it has sent a path, it takes no slots with paths.
    Q_SLOT void activated(const QDBusMessage& signal);
    Q_SLOT void deactivated(const QDBusMessage& signal);
    Q_SLOT void shortcutsChanged(const QDBusMessage& signal);
    Q_SLOT void sessionClosed();

    void openBus();
    void changeOwner(const QString& before, const QString& now);
    void bind();
    void createSession();
    /// Takes the session's path out of the answer and listens to it.
    void followSession(const QVariant& handle);
    void bindShortcuts();
    void ask(const QString& method, const QVariantList& arguments, const QVariantMap& options,
             std::function<void(const QVariantMap&)> granted);
    bool isOfSession(const QDBusMessage& signal) const;
    bool isOfShortcut(const QDBusMessage& signal) const;
    void readShortcuts(const QVariant& shortcuts);
    void setState(const State& state);

    RunLoop& m_runLoop;
    State m_state{.status = Status::Waiting};
    bool m_isStarted = false;
    /// A connection of its own: registering must be the first thing the portal hears on it.
    std::optional<QDBusConnection> m_bus;
    /// Counts the bindings, to tell answers that come too late.
    int m_attempt = 0;
    bool m_isBinding = false;
    QString m_session;
    std::unique_ptr<PortalRequest, QScopedPointerDeleteLater> m_request;
    /// Runs while the key is held, as far as the desktop tells.
    std::unique_ptr<RunLoop::Timer> m_held;
};

} // namespace flitmark

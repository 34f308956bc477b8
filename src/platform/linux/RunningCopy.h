// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/Descriptor.h>

#include <QObject>

#include <memory>

class QSocketNotifier;

namespace flitmark {

/// Keeps the program to one running copy per user, with or without a session bus. The first start holds a lock until
/// its process ends, however it ends. A later start tells the first one to show itself. Costs less than a millisecond
/// and needs no application object until `listen`.
///
/// Lock and messenger are one named pipe: what a later start writes waits in it until the first one listens.
class RunningCopy final : public QObject
{
    Q_OBJECT

public:
    enum class Claim {
        Apart,      ///< nothing was claimed
        First,      ///< this is the running copy, also where the folder allows no lock
        HandedOver, ///< another copy runs and has been told
        Failed,     ///< another copy runs and could not be told
    };

    /// Claims the place of the running copy in `folder`, an absolute path; nothing for an empty one. `activationToken`
    /// is what the desktop gave this start to let a window come to the front; may be empty.
    explicit RunningCopy(const QString& folder = folderOfUser(), const QByteArray& activationToken = tokenOfStart());
    ~RunningCopy() override;
    Q_DISABLE_COPY_MOVE(RunningCopy)

    Claim claim() const { return m_claim; }

    /// Reports later starts from now on, also those that came before.
    void listen();

    /// The folder for files of the user's sessions: `$XDG_RUNTIME_DIR` or what stands for it, else the program's own.
    static QString folderOfUser();
    static QByteArray tokenOfStart();

Q_SIGNALS:
    /// A later start wants to see the program.
    void activationAsked(const QString& activationToken);

private:
    Claim claimIn(const QString& folder, const QByteArray& activationToken);
    void readWishes();

    Descriptor m_pipe;
    Claim m_claim;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace flitmark

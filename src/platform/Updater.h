// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QString>
#include <QUrl>

namespace flitmark {

/// Looks for newer versions of the program. It tells of them and opens the download page; it downloads and runs
/// nothing. Main thread only.
class Updater : public QObject
{
    Q_OBJECT

public:
    enum class Status { Idle, Checking, UpToDate, Available, Failed, NotOffered };
    struct State
    {
        Status status = Status::Idle;
        QString version = {}; ///< Available: the newer version
        QString notes = {};   ///< Available: what is new, plain text; may be empty
        QUrl page = {};       ///< Available: where to get it
        QString reason = {};  ///< Failed, NotOffered: why, for the user

        bool operator==(const State&) const = default;
    };

    Updater() = default;
    Q_DISABLE_COPY_MOVE(Updater)

    /// Begins with the automatic checks. Called once.
    virtual void startUpdater() {}
    virtual bool automaticallyChecksForUpdates() const = 0;
    /// Stores the choice. Automatic checks happen at most once a day.
    virtual void setAutomaticallyChecksForUpdates(bool checks) = 0;
    /// Asks now. The answer comes by `stateChanged`; a check under way is not started twice.
    virtual void checkForUpdates() = 0;
    virtual State state() const = 0;

Q_SIGNALS:
    void stateChanged();
    /// The state is to be shown to the user now: they asked for a check, or an automatic one found a newer version.
    void attentionAsked();
};

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QString>

#include <chrono>

namespace flitmark {

/// Watches for the hotkey, N with the Option (Alt) key, wherever else the keyboard is. Keys typed into the program's
/// own windows are theirs and are not reported. Main thread only.
class KeyMonitor : public QObject
{
    Q_OBJECT

public:
    /// A window of the program; 0 is none.
    using WindowId = quintptr;

    enum class Status {
        Working,
        Waiting,    ///< for the desktop or the user to consent
        Refused,    ///< `reason` says by whom and why
        Failed,     ///< nobody refused, yet there is no hotkey; `reason` says why
        NotOffered, ///< this desktop lets no program watch keys
    };
    struct State
    {
        Status status = Status::NotOffered;
        /// A sentence or two for the user, without a final line break; may be empty.
        QString reason = {};

        bool operator==(const State&) const = default;
    };

    KeyMonitor() = default;
    Q_DISABLE_COPY_MOVE(KeyMonitor)

    /// How long after `start` the watching begins: it must not compete with the first window for the display.
    static constexpr std::chrono::milliseconds startDelay{100};

    /// Begins to watch, a moment later. Later calls do nothing.
    virtual void start() = 0;
    virtual State state() const = 0;
    /// Answers `hotkeyPressed`: what is typed after the hotkey goes to `window`, also what was typed before that window
    /// has the keyboard; for none it goes on as ever. Where the desktop can hold typing back, it does so until then,
    /// but not for longer than a second.
    virtual void giveTypingTo(WindowId window) = 0;

Q_SIGNALS:
    /// The hotkey was pressed while another program had the keyboard. Repeats of a held key are not reported.
    void hotkeyPressed();
    void stateChanged();
};

} // namespace flitmark

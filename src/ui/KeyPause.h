// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/RunLoop.h>

#include <QObject>

class QWidget;

namespace flitmark {

/// Keeps keys from a window that comes up by itself: what is typed in that moment is meant for something else. Main
/// thread only.
class KeyPause final : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive it.
    KeyPause(QWidget& window, RunLoop& runLoop);
    Q_DISABLE_COPY_MOVE(KeyPause)

    /// For half a second from now no key does anything in the window. Its focus goes to the window itself.
    void begin();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& m_window;
    RunLoop& m_runLoop;
    /// Set during the pause.
    std::unique_ptr<RunLoop::Timer> m_timer;
};

} // namespace flitmark

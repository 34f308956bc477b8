// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/Updater.h>

namespace flitmark {

/// Owns the program's updater from the start to the end of the program.
class AppUpdateController final : public QObject
{
    Q_OBJECT

public:
    /// Starts the updater, which must outlive it.
    explicit AppUpdateController(Updater& updater)
        : m_updater(updater)
    {
        m_updater.startUpdater();
    }
    Q_DISABLE_COPY_MOVE(AppUpdateController)

    Updater& updater() const { return m_updater; }

private:
    Updater& m_updater;
};

} // namespace flitmark

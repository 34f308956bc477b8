// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QtGlobal>

namespace flitmark {

/// Short sounds that confirm or call, by name: "Pop", "Tink".
class SystemSound
{
public:
    SystemSound() = default;
    virtual ~SystemSound() = default;
    Q_DISABLE_COPY_MOVE(SystemSound)

    /// Starts to play a sound and returns at once. Without a sound device, or with the desktop's event sounds switched
    /// off, nothing is heard.
    virtual void play(const QString& name) = 0;
};

} // namespace flitmark

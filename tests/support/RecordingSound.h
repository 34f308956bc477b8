// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/SystemSound.h>

#include <QStringList>

namespace flitmark {

/// Plays nothing and remembers what it was to play.
class RecordingSound final : public SystemSound
{
public:
    void play(const QString& name) override { played.append(name); }

    QStringList played;
};

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

class QSocketNotifier;

namespace flitmark {

/// Turns the signals by which a system asks a program to end (SIGTERM, SIGINT, and SIGHUP unless it is ignored) into a
/// call on the main thread. A second one of the same kind ends the program at once. One instance.
class EndSignals final : public QObject
{
    Q_OBJECT

public:
    explicit EndSignals(QObject* parent = nullptr);
    ~EndSignals() override;
    Q_DISABLE_COPY_MOVE(EndSignals)

Q_SIGNALS:
    void endAsked();
};

} // namespace flitmark

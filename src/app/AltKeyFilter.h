// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

namespace flitmark {

/// Installed on the application, it keeps keys pressed with Alt from writing letters, as Qt's text fields would have
/// them do.
class AltKeyFilter final : public QObject
{
public:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace flitmark

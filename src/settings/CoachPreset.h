// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QString>

namespace flitmark {

/// A manner the coach can have.
struct CoachPreset
{
    /// Under which it is stored.
    QString id;
    /// For the user, translated; so is the description.
    QString name;
    QString description;
    /// What the coach is told. Empty where users write their own.
    QString prompt;
};

/// Every preset, in the order in which they are offered.
QList<CoachPreset> coachPresets();

/// Of a style that the user made up.
inline constexpr QLatin1String customCoachStyle("custom");

} // namespace flitmark

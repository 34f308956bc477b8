// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <array>
#include <optional>
#include <utility>

namespace flitmark {

/// What a desktop's menu, key or script can ask of the running program.
enum class AppAction { TogglePanel, Daily, Settings, Help, Quit };

/// The action of this name; the desktop entry and the session bus use the same names.
inline std::optional<AppAction> appActionNamed(const QString& name)
{
    static constexpr std::array<std::pair<const char*, AppAction>, 5> named{{{"toggle-panel", AppAction::TogglePanel},
                                                                             {"daily", AppAction::Daily},
                                                                             {"settings", AppAction::Settings},
                                                                             {"help", AppAction::Help},
                                                                             {"quit", AppAction::Quit}}};
    for (const auto& [text, action] : named) {
        if (name == QLatin1String(text)) {
            return action;
        }
    }
    return std::nullopt;
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

namespace flitmark {

class ConfigManager;
class Dialogs;
class RunLoop;

/// Qt's dialog for folders, which is the desktop's where it offers one, and questions in the look of our windows, in
/// the palette of `configManager`. Both services must outlive it.
std::unique_ptr<Dialogs> makeDialogs(const ConfigManager& configManager, RunLoop& runLoop);

} // namespace flitmark

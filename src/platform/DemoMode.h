// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

namespace flitmark {

/// Whether the program shows the user's own notes, or fixed texts for pictures of itself.
enum class DemoMode { Off, On };

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/KeyMonitor.h>

#include <QString>

namespace flitmark {

struct Directories;

/// Where the texts of the interface speak of another system, these lines say what is true here. Each begins with "On
/// this computer: ".
namespace onThisComputer {

/// Whether the hotkey works, and what to do where it does not.
QString hotkey(const KeyMonitor::State& state);
/// The key itself where the hotkey works as promised, else what `hotkey` says.
QString hotkeyToPress(const KeyMonitor::State& state);
/// The systems the program runs on.
QString systems();
/// What the keys in the texts are called here.
QString keys();
/// Where the configuration lies, with the home folder as "~".
QString configFile(const Directories& directories);
/// What the window modes of the note panel come down to.
QString windowModes();
/// How the program learns of updates; `isOffered` is false where it was built without a place to ask.
QString updates(bool isOffered);

} // namespace onThisComputer

} // namespace flitmark

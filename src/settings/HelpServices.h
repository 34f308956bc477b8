// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/Directories.h>

namespace flitmark {

class KeyMonitor;
class Workspace;

/// What the help tells the truth about, and opens things with.
struct HelpServices
{
    Directories directories;
    KeyMonitor& keyMonitor;
    Workspace& workspace;
};

} // namespace flitmark

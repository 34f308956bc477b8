// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdio>
#include <cstdlib>

namespace flitmark {

/// Ends the fuzzer with a finding when a property does not hold.
inline void require(bool holds, const char* property)
{
    if (!holds) {
        std::fprintf(stderr, "Does not hold: %s\n", property);
        std::abort();
    }
}

} // namespace flitmark

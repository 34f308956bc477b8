// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

#include <cstdint>
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

/// Checks the properties of one input. Each program defines its own.
void checkInput(const QByteArray& bytes);

} // namespace flitmark

// What the fuzzer calls: a program is one source file, which includes this one.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    flitmark::checkInput(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    return 0;
}

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdlib>
#include <memory>

namespace flitmark {

template<typename Reply>
struct XcbFreed
{
    void operator()(Reply* reply) const { std::free(reply); }
};

/// A reply, an event or an error of the X server, freed when it goes; null where there is none.
template<typename Reply>
using XcbReply = std::unique_ptr<Reply, XcbFreed<Reply>>;

} // namespace flitmark

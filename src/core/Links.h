// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <tl/expected.hpp>

namespace flitmark {

/// The absolute path that `path`, an absolute path, leads to once every link in it is followed and every "." and ".."
/// taken away. Nothing at the end of a path or of a link need exist: what is missing is taken to be a plain folder, as
/// it would be after creating it. An error is the system's number for why a
/// part can't be looked at: links that lead in a circle, a name that is too long or no UTF-8, missing rights.
tl::expected<QString, int> resolveLinks(const QString& path);

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <optional>

namespace flitmark {

/// The absolute path that `path`, an absolute path, leads to once every link in it is followed and every "." and ".."
/// taken away. Nothing at the end of a path or of a link need exist: what is missing is taken to be a plain folder, as
/// it would be after creating it. Nothing comes back when links lead in a circle or may not be read.
std::optional<QString> resolveLinks(const QString& path);

} // namespace flitmark

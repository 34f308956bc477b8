// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace flitmark {

/// A first guess at where the user's vault is: the first of the usual folders below `home` that exists, else
/// `Documents` there, whether it exists or not. Looks only; creates nothing.
QString inferDefaultVaultPath(const QString& home);

/// Empty when `path` is the absolute path of a folder that exists, else one sentence for the user.
QString vaultPathProblem(const QString& path);

} // namespace flitmark

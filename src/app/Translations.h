// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QTranslator>

#include <memory>

namespace flitmark {

/// Where the translations of this program may lie: installed beside it, in its build, or in a data folder of the user
/// or the system.
QStringList translationFolders();

/// The translation for the first of `languages` that there is one for in `folders`; null when English comes first, in
/// which the program is written, or none is found. `languages` are names such as "de-AT", the preferred first.
std::unique_ptr<QTranslator> loadTranslation(const QStringList& languages, const QStringList& folders);

/// Lets the application speak the user's language, where there is a translation. Texts made before stay as they are.
void installTranslations();

} // namespace flitmark

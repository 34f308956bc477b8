// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace flitmark {

/// The text of a note's file, without a byte-order mark; nothing when the bytes are not UTF-8.
std::optional<QString> noteText(const QByteArray& bytes);

/// The bytes for `text` in the place of `old`: with a byte-order mark if that has one.
QByteArray noteBytes(const QString& text, const QByteArray& old);

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QtGlobal>

namespace flitmark {

/// Small facts the program remembers about itself, apart from the user's settings: deleting `config.json` does not
/// forget them.
class UserDefaults
{
public:
    UserDefaults() = default;
    virtual ~UserDefaults() = default;
    Q_DISABLE_COPY_MOVE(UserDefaults)

    /// The stored value of `key`, else `fallback`.
    virtual bool boolean(const QString& key, bool fallback) const = 0;
    /// Stores a value on disk, now. A failure prints a line.
    virtual void setBoolean(const QString& key, bool value) = 0;

    /// The stored text of `key`; empty when there is none.
    virtual QString text(const QString& key) const = 0;
    /// Stores a text likewise.
    virtual void setText(const QString& key, const QString& value) = 0;
};

} // namespace flitmark

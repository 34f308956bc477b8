// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>

#include <tl/expected.hpp>

#include <optional>

namespace flitmark {

/// True for a number without a fraction that 64 bits hold, however it was written (20.0).
bool isWhole(const QJsonValue& value);

/// `value` as the program writes all its JSON: UTF-8, indented, one member per line, keys in byte order at every level,
/// slashes in strings escaped, whole numbers without a fraction. Ends with a line feed.
QByteArray encodeJson(const QJsonValue& value);

/// The value that `bytes` hold, strictly by the grammar, or a sentence that says what is wrong with them. Of members
/// with one key the last counts. A whole number beyond 64 bits, any number beyond a double and more than 512 levels of
/// values within values are errors: nothing is read as something else.
tl::expected<QJsonValue, QString> parseJson(const QByteArray& bytes);

/// The same for an object; another value is an error.
tl::expected<QJsonObject, QString> parseJsonObject(const QByteArray& bytes);

/// Reads the members of one JSON object, strictly: a member of the wrong type is an error, and so is a missing one that
/// is required. The first error is kept, named by its key ("note_types.Idea.prefix"), and everything read after it is
/// a default value.
class JsonFields
{
public:
    /// `path` names the object inside its document; empty for the outermost one. `error` collects the first error and
    /// may be shared by the readers of nested objects.
    JsonFields(QJsonObject object, QString path, QString& error);

    /// The member `key`. `T` is QString, bool, double, qint64, QStringList, QJsonObject or QJsonArray. A whole number
    /// may be written with a fraction of zero (20.0).
    template<typename T>
    T required(const QString& key);

    /// The member `key`, or nothing when it is absent or null.
    template<typename T>
    std::optional<T> optional(const QString& key);

    /// Records `problem` as the error of the member `key`, unless there is one already.
    void fail(const QString& key, const QString& problem);

    /// The name of the member `key` inside the document.
    QString pathOf(const QString& key) const;

private:
    QJsonObject m_object;
    QString m_path;
    QString& m_error;
};

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QJsonValue>
#include <QString>

#include <tl/expected.hpp>

#include <vector>

namespace flitmark {

/// A JSON value whose numbers and strings are kept as they were written, so that writing it again loses nothing: no
/// digit of a large number, no number too large for any type.
struct RawJson
{
    struct Member;
    enum class Kind { Scalar, Array, Object };

    Kind kind = Kind::Scalar;
    /// A scalar as written: a string with its quotes, a number, true, false or null.
    QByteArray text;
    std::vector<RawJson> items;
    /// Sorted by key, in byte order; each key once.
    std::vector<Member> members;

    /// The value that `bytes` hold, strictly by the grammar, or a sentence that says what is wrong with them. Of
    /// members with one key the last counts. Values within values are followed to a depth of 512.
    static tl::expected<RawJson, QString> parse(const QByteArray& bytes);

    /// The order of members.
    static bool isBefore(const Member& a, const Member& b);

    /// The value in the form of `encodeJson`: indented, keys sorted, slashes escaped.
    QByteArray encode() const;

    /// The value for reading. A number that no type can hold is infinite.
    QJsonValue toValue() const;

    /// Makes `value` the member `key` of this object.
    void setString(const QString& key, const QString& value);
};

struct RawJson::Member
{
    QString key;
    /// The key as written, with its quotes.
    QByteArray keyText;
    RawJson value;
};

/// Begins a line of indented JSON, `depth` levels deep.
void appendJsonLine(QByteArray& out, int depth);

} // namespace flitmark

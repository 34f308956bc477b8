// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/RawJson.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <limits>
#include <utility>

namespace flitmark {

namespace {

/// The value of a single scalar token; undefined for a number that is out of all range.
QJsonValue scalarValue(QByteArray text)
{
    // At the beginning of a string Qt takes this character for a mark of the encoding, and drops it, unless it is
    // escaped.
    if (text.startsWith("\"\xEF\xBB\xBF")) {
        text.replace(1, 3, "\\uFEFF");
    }
    return QJsonDocument::fromJson('[' + text + ']').array().at(0);
}

/// `text`, a scalar as written, with its slashes escaped.
void appendScalar(QByteArray& out, const QByteArray& text)
{
    bool isEscaped = false;
    for (const char c : text) {
        if (c == '/' && !isEscaped) {
            out += '\\';
        }
        out += c;
        isEscaped = c == '\\' && !isEscaped;
    }
}

void appendValue(QByteArray& out, const RawJson& value, int depth)
{
    if (value.kind == RawJson::Kind::Scalar) {
        appendScalar(out, value.text);
        return;
    }
    const bool isObject = value.kind == RawJson::Kind::Object;
    out += isObject ? '{' : '[';
    bool isFirst = true;
    const auto startItem = [&] {
        if (!std::exchange(isFirst, false)) {
            out += ',';
        }
        appendJsonLine(out, depth + 1);
    };
    for (const RawJson::Member& member : value.members) {
        startItem();
        appendScalar(out, member.keyText);
        out += ": ";
        appendValue(out, member.value, depth + 1);
    }
    for (const RawJson& item : value.items) {
        startItem();
        appendValue(out, item, depth + 1);
    }
    if (!isFirst) {
        appendJsonLine(out, depth);
    }
    out += isObject ? '}' : ']';
}

} // namespace

void appendJsonLine(QByteArray& out, int depth)
{
    out += '\n';
    out.append(2 * static_cast<qsizetype>(depth), ' ');
}

bool RawJson::isBefore(const Member& a, const Member& b)
{
    const QByteArray aBytes = a.key.toUtf8();
    const QByteArray bBytes = b.key.toUtf8();
    // Keys that are no valid text may be equal as bytes without being the same.
    return aBytes == bBytes ? a.key < b.key : aBytes < bBytes;
}

QByteArray RawJson::encode() const
{
    QByteArray out;
    appendValue(out, *this, 0);
    out += '\n';
    return out;
}

QJsonValue RawJson::toValue() const
{
    if (kind == Kind::Scalar) {
        const QJsonValue value = scalarValue(text);
        return value.isUndefined() ? QJsonValue(std::numeric_limits<double>::infinity()) : value;
    }
    if (kind == Kind::Array) {
        QJsonArray array;
        for (const RawJson& item : items) {
            array.append(item.toValue());
        }
        return array;
    }
    QJsonObject object;
    for (const Member& member : members) {
        object.insert(member.key, member.value.toValue());
    }
    return object;
}

void RawJson::setString(const QString& key, const QString& value)
{
    const auto token = [](const QString& content) {
        const QByteArray list = QJsonDocument(QJsonArray{content}).toJson(QJsonDocument::Compact);
        return list.sliced(1, list.size() - 2);
    };
    Member member{key, token(key), RawJson()};
    member.value.text = token(value);
    const auto place = std::lower_bound(members.begin(), members.end(), member, isBefore);
    if (place != members.end() && place->key == key) {
        place->value = std::move(member.value);
    } else {
        members.insert(place, std::move(member));
    }
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Json.h>
#include <platform/RawJson.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QLocale>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <string_view>

namespace flitmark {

namespace {

void appendString(QByteArray& out, const QString& text)
{
    constexpr std::string_view hex = "0123456789abcdef";
    out += '"';
    for (const char c : text.toUtf8()) {
        switch (c) {
        case '"':
            out += "\\\"";
            break;
        case '\\':
            out += "\\\\";
            break;
        case '/':
            out += "\\/";
            break;
        case '\n':
            out += "\\n";
            break;
        case '\r':
            out += "\\r";
            break;
        case '\t':
            out += "\\t";
            break;
        default:
            if (static_cast<unsigned char>(c) < 0x20) {
                out += "\\u00";
                out += hex[static_cast<unsigned char>(c) >> 4U];
                out += hex[static_cast<unsigned char>(c) & 0xFU];
            } else {
                out += c;
            }
        }
    }
    out += '"';
}

void appendNumber(QByteArray& out, const QJsonValue& value)
{
    const QVariant variant = value.toVariant();
    if (!std::isfinite(variant.toDouble())) {
        out += "null"; // JSON has no infinity
        return;
    }
    out += variant.typeId() == QMetaType::LongLong
               ? QByteArray::number(variant.toLongLong())
               : QByteArray::number(variant.toDouble(), 'g', QLocale::FloatingPointShortest);
}

void appendValue(QByteArray& out, const QJsonValue& value, int depth);

void appendObject(QByteArray& out, const QJsonObject& object, int depth)
{
    QStringList keys = object.keys();
    std::sort(keys.begin(), keys.end(), [](const QString& a, const QString& b) { return a.toUtf8() < b.toUtf8(); });
    out += '{';
    for (const QString& key : std::as_const(keys)) {
        if (out.back() != '{') {
            out += ',';
        }
        appendJsonLine(out, depth + 1);
        appendString(out, key);
        out += ": ";
        appendValue(out, object.value(key), depth + 1);
    }
    if (!keys.isEmpty()) {
        appendJsonLine(out, depth);
    }
    out += '}';
}

void appendArray(QByteArray& out, const QJsonArray& array, int depth)
{
    out += '[';
    bool isFirst = true;
    for (const auto& item : array) {
        if (!isFirst) {
            out += ',';
        }
        isFirst = false;
        appendJsonLine(out, depth + 1);
        appendValue(out, item, depth + 1);
    }
    if (!array.isEmpty()) {
        appendJsonLine(out, depth);
    }
    out += ']';
}

void appendValue(QByteArray& out, const QJsonValue& value, int depth)
{
    switch (value.type()) {
    case QJsonValue::Bool:
        out += value.toBool() ? "true" : "false";
        break;
    case QJsonValue::Double:
        appendNumber(out, value);
        break;
    case QJsonValue::String:
        appendString(out, value.toString());
        break;
    case QJsonValue::Array:
        appendArray(out, value.toArray(), depth);
        break;
    case QJsonValue::Object:
        appendObject(out, value.toObject(), depth);
        break;
    case QJsonValue::Null:
    case QJsonValue::Undefined:
        out += "null";
        break;
    }
}

/// What a value of the wrong type should have been, and the value itself when it is right.
template<typename T>
struct FieldReader;

template<>
struct FieldReader<QString>
{
    static constexpr QLatin1StringView name{"a string"};
    static std::optional<QString> read(const QJsonValue& value)
    {
        return value.isString() ? std::optional(value.toString()) : std::nullopt;
    }
};

template<>
struct FieldReader<bool>
{
    static constexpr QLatin1StringView name{"true or false"};
    static std::optional<bool> read(const QJsonValue& value)
    {
        return value.isBool() ? std::optional(value.toBool()) : std::nullopt;
    }
};

template<>
struct FieldReader<double>
{
    static constexpr QLatin1StringView name{"a number"};
    static std::optional<double> read(const QJsonValue& value)
    {
        return value.isDouble() ? std::optional(value.toDouble()) : std::nullopt;
    }
};

template<>
struct FieldReader<qint64>
{
    static constexpr QLatin1StringView name{"a whole number"};
    static std::optional<qint64> read(const QJsonValue& value)
    {
        const QVariant variant = value.toVariant();
        if (variant.typeId() == QMetaType::LongLong) {
            return variant.toLongLong();
        }
        const double number = value.toDouble();
        // 2^63 is the first double that no longer fits.
        const bool fits = value.isDouble() && std::trunc(number) == number && number >= -0x1p63 && number < 0x1p63;
        return fits ? std::optional(static_cast<qint64>(number)) : std::nullopt;
    }
};

template<>
struct FieldReader<QJsonObject>
{
    static constexpr QLatin1StringView name{"an object"};
    static std::optional<QJsonObject> read(const QJsonValue& value)
    {
        return value.isObject() ? std::optional(value.toObject()) : std::nullopt;
    }
};

template<>
struct FieldReader<QJsonArray>
{
    static constexpr QLatin1StringView name{"a list"};
    static std::optional<QJsonArray> read(const QJsonValue& value)
    {
        return value.isArray() ? std::optional(value.toArray()) : std::nullopt;
    }
};

template<>
struct FieldReader<QStringList>
{
    static constexpr QLatin1StringView name{"a list of strings"};
    static std::optional<QStringList> read(const QJsonValue& value)
    {
        QStringList list;
        const QJsonArray items = value.toArray();
        for (const auto& item : items) {
            if (!item.isString()) {
                return std::nullopt;
            }
            list.append(item.toString());
        }
        return value.isArray() ? std::optional(list) : std::nullopt;
    }
};

} // namespace

QByteArray encodeJson(const QJsonValue& value)
{
    QByteArray out;
    appendValue(out, value, 0);
    out += '\n';
    return out;
}

tl::expected<QJsonObject, QString> parseJsonObject(const QByteArray& bytes)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError) {
        return tl::unexpected(
            QStringLiteral("The data is not valid JSON: %1 at byte %2.").arg(error.errorString()).arg(error.offset));
    }
    if (!document.isObject()) {
        return tl::unexpected(QStringLiteral("The data is JSON, but not an object."));
    }
    return document.object();
}

JsonFields::JsonFields(QJsonObject object, QString path, QString& error)
    : m_object(std::move(object))
    , m_path(std::move(path))
    , m_error(error)
{
}

template<typename T>
T JsonFields::required(const QString& key)
{
    if (!m_object.contains(key)) {
        fail(key, QStringLiteral("is missing"));
        return T();
    }
    const std::optional<T> value = FieldReader<T>::read(m_object.value(key));
    if (!value) {
        fail(key, QStringLiteral("is not ") + FieldReader<T>::name);
    }
    return value.value_or(T());
}

template<typename T>
std::optional<T> JsonFields::optional(const QString& key)
{
    const QJsonValue value = m_object.value(key);
    return value.isUndefined() || value.isNull() ? std::nullopt : std::optional(required<T>(key));
}

void JsonFields::fail(const QString& key, const QString& problem)
{
    if (m_error.isEmpty()) {
        m_error = QStringLiteral("The value of \"%1\" %2.").arg(pathOf(key), problem);
    }
}

QString JsonFields::pathOf(const QString& key) const
{
    return m_path.isEmpty() ? key : m_path + u'.' + key;
}

template QString JsonFields::required(const QString&);
template bool JsonFields::required(const QString&);
template double JsonFields::required(const QString&);
template qint64 JsonFields::required(const QString&);
template QJsonObject JsonFields::required(const QString&);
template QJsonArray JsonFields::required(const QString&);
template QStringList JsonFields::required(const QString&);
template std::optional<QString> JsonFields::optional(const QString&);
template std::optional<bool> JsonFields::optional(const QString&);
template std::optional<double> JsonFields::optional(const QString&);
template std::optional<qint64> JsonFields::optional(const QString&);
template std::optional<QJsonObject> JsonFields::optional(const QString&);
template std::optional<QJsonArray> JsonFields::optional(const QString&);
template std::optional<QStringList> JsonFields::optional(const QString&);

} // namespace flitmark

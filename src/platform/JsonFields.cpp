// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Json.h>

#include <QStringList>

namespace flitmark {

namespace {

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
        return isWhole(value) ? std::optional(value.toInteger()) : std::nullopt;
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

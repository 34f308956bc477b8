// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Json.h>

#include <QList>
#include <QMap>
#include <QStringDecoder>
#include <QStringList>
#include <QVariant>

#include <nlohmann/json.hpp>

#include <limits>
#include <string>

namespace flitmark {

namespace {

// So few that whoever walks over the values may do so by recursion.
constexpr qsizetype maximumDepth = 512;

using Library = nlohmann::json;

/// `text`, which is valid UTF-8. Qt's usual way would take a U+FEFF at its beginning for a mark of the encoding.
QString toText(const std::string& text)
{
    QStringDecoder decode(QStringDecoder::Utf8, QStringConverter::Flag::ConvertInitialBom);
    return decode(QByteArrayView(text));
}

/// The problem of text that is no JSON from `byte` on, counted from 1.
QString senselessAt(qsizetype byte)
{
    return QStringLiteral("The data is not valid JSON: it makes no sense at byte %1.").arg(byte);
}

/// Makes Qt's value of what the library's parser finds. Each operation returns false to end the parsing; `problem` says
/// why then.
class ValueBuilder final : public nlohmann::json_sax<Library>
{
public:
    QJsonValue value;
    QString problem;

    bool null() override { return add(QJsonValue()); }
    bool boolean(bool found) override { return add(found); }
    bool number_integer(number_integer_t found) override { return add(qint64{found}); }
    bool number_unsigned(number_unsigned_t found) override
    {
        return found <= std::numeric_limits<qint64>::max() ? add(static_cast<qint64>(found)) : failTooLarge();
    }
    bool number_float(number_float_t found, const string_t& text) override
    {
        // A whole number that is here is too large for the types of whole numbers: some of its digits would be lost.
        return text.find_first_of(".eE") != string_t::npos ? add(found) : failTooLarge();
    }
    bool string(string_t& found) override { return add(toText(found)); }
    bool binary(binary_t& /*found*/) override { return false; }
    bool start_object(size_t /*size*/) override { return open(QJsonValue::Object); }
    bool key(string_t& found) override
    {
        m_levels.back().key = toText(found);
        return true;
    }
    bool end_object() override
    {
        const Level level = m_levels.takeLast();
        QJsonObject object;
        for (auto member = level.members.begin(); member != level.members.end(); ++member) {
            object.insert(member.key(), member.value());
        }
        return add(object);
    }
    bool start_array(size_t /*size*/) override { return open(QJsonValue::Array); }
    bool end_array() override { return add(m_levels.takeLast().items); }
    bool parse_error(size_t position, const std::string& /*last*/, const Library::exception& error) override
    {
        return dynamic_cast<const Library::out_of_range*>(&error) != nullptr
                   ? failTooLarge()
                   : fail(senselessAt(static_cast<qsizetype>(position)));
    }

private:
    /// An object or a list that has not ended yet.
    struct Level
    {
        QJsonValue::Type type = QJsonValue::Array;
        /// That of the next member.
        QString key;
        /// Of members with one key the last counts. In order, so that Qt's object takes them quickly.
        QMap<QString, QJsonValue> members;
        QJsonArray items;
    };

    bool open(QJsonValue::Type type)
    {
        if (m_levels.size() == maximumDepth) {
            return fail(QStringLiteral("The data is nested too deeply."));
        }
        m_levels.emplaceBack().type = type;
        return true;
    }

    bool add(const QJsonValue& found)
    {
        if (m_levels.isEmpty()) {
            value = found;
        } else if (Level& level = m_levels.last(); level.type == QJsonValue::Object) {
            level.members.insert(level.key, found);
        } else {
            level.items.append(found);
        }
        return true;
    }

    bool fail(const QString& text)
    {
        problem = text;
        return false;
    }

    bool failTooLarge()
    {
        QStringList path;
        for (const Level& level : std::as_const(m_levels)) {
            path.append(level.type == QJsonValue::Object ? level.key : QString::number(level.items.size()));
        }
        return fail(QStringLiteral("The value of \"%1\" is too large a number.").arg(path.join(u'.')));
    }

    QList<Level> m_levels;
};

Library toLibrary(const QJsonValue& value)
{
    switch (value.type()) {
    case QJsonValue::Bool:
        return value.toBool();
    case QJsonValue::Double:
        return isWhole(value) ? Library(value.toInteger()) : Library(value.toDouble());
    case QJsonValue::String:
        return value.toString().toStdString();
    case QJsonValue::Array: {
        Library list = Library::array();
        for (const auto& item : value.toArray()) {
            list.push_back(toLibrary(item));
        }
        return list;
    }
    case QJsonValue::Object: {
        Library object = Library::object();
        const QJsonObject members = value.toObject();
        for (auto member = members.begin(); member != members.end(); ++member) {
            object[member.key().toStdString()] = toLibrary(member.value());
        }
        return object;
    }
    case QJsonValue::Null:
    case QJsonValue::Undefined:
        break;
    }
    return nullptr;
}

} // namespace

bool isWhole(const QJsonValue& value)
{
    // Qt keeps these apart, however they were written.
    return value.toVariant().typeId() == QMetaType::LongLong;
}

QByteArray encodeJson(const QJsonValue& value)
{
    constexpr int indent = 2;
    const std::string text = toLibrary(value).dump(indent, ' ', false, Library::error_handler_t::replace);
    // Nothing but strings has slashes.
    return QByteArray::fromStdString(text).replace('/', "\\/") + '\n';
}

tl::expected<QJsonValue, QString> parseJson(const QByteArray& bytes)
{
    if (bytes.trimmed().isEmpty()) {
        return tl::unexpected(QStringLiteral("The data is empty."));
    }
    // The library would take it for the end.
    if (const qsizetype nul = bytes.indexOf('\0'); nul >= 0) {
        return tl::unexpected(senselessAt(nul + 1));
    }
    ValueBuilder builder;
    Library::sax_parse(bytes.begin(), bytes.end(), &builder);
    return builder.problem.isEmpty() ? tl::expected<QJsonValue, QString>(builder.value)
                                     : tl::unexpected(builder.problem);
}

tl::expected<QJsonObject, QString> parseJsonObject(const QByteArray& bytes)
{
    return parseJson(bytes).and_then([](const QJsonValue& value) -> tl::expected<QJsonObject, QString> {
        if (!value.isObject()) {
            return tl::unexpected(QStringLiteral("The data is JSON, but not an object."));
        }
        return value.toObject();
    });
}

} // namespace flitmark

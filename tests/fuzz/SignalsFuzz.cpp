// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Directories.h>
#include <platform/Json.h>
#include <signals/CoachConfig.h>
#include <signals/SignalRecords.h>

#include <QJsonArray>
#include <QJsonDocument>

#include "Property.h"

namespace flitmark {

namespace {

/// Whatever `decode` makes of `object` is read back as it was written.
template<typename Decode>
void checkRecord(const QJsonObject& object, Decode decode)
{
    if (const auto record = decode(object)) {
        require(parseJsonObject(encodeJson(record->toJson())).and_then(decode) == *record, "a record is read back");
    }
}

} // namespace

void checkInput(const QByteArray& bytes)
{
    const auto json = parseJson(bytes);
    const auto acknowledged = acknowledgedAlert(bytes);
    require(json.has_value() == acknowledged.has_value(), "what is JSON can be acknowledged");
    if (!json) {
        require(json.error().startsWith(u"The "), "an error has words");
        return;
    }
    require(parseJson(encodeJson(*json)) == json, "what is written is read back");
    // Qt accepts all that is JSON, too, but forgets a U+FEFF that begins a string unless the string holds an escape,
    // and may keep several members of one key.
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    require(error.error == QJsonParseError::NoError || !(json->isObject() || json->isArray()), "Qt sees JSON, too");
    if (document.isArray() && !bytes.contains('{') && !bytes.contains("\xEF\xBB\xBF")) {
        require(document.array() == *json, "Qt sees the same");
    }

    const auto status = parseJsonObject(*acknowledged).value().value(u"status");
    require(status == "acknowledged", "the acknowledged form says so");
    const auto object = parseJsonObject(bytes);
    if (!object) {
        return;
    }
    checkRecord(*object, &DailyFocusSignal::fromJson);
    checkRecord(*object, &CoachAlert::fromJson);
    checkRecord(*object, &UserResponse::fromJson);
    const Directories directories{.home = "/nowhere", .applicationSupport = {}, .cache = {}};
    checkRecord(*object, [&](const QJsonObject& fields) { return CoachConfig::fromJson(fields, directories); });
}

} // namespace flitmark

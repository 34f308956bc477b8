// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Directories.h>
#include <platform/Json.h>
#include <platform/RawJson.h>
#include <signals/CoachConfig.h>
#include <signals/SignalRecords.h>

#include <QJsonArray>
#include <QJsonDocument>

#include "Property.h"

#include <algorithm>

namespace flitmark {

namespace {

/// Whether several members of an object in `value` have one key: Qt may keep more than one of those.
bool hasRepeatedKeys(const QJsonValue& value)
{
    const QJsonArray items = value.toArray();
    const QJsonObject members = value.toObject();
    return members.keys().removeDuplicates() > 0 || std::any_of(items.begin(), items.end(), hasRepeatedKeys) ||
           std::any_of(members.begin(), members.end(), hasRepeatedKeys);
}

/// Whatever `decode` makes of `object` is read back as it was written.
template<typename Decode>
void checkRecord(const QJsonObject& object, Decode decode)
{
    if (const auto record = decode(object)) {
        require(parseSignal(encodeJson(record->toJson())).and_then(decode) == *record, "a record is read back");
    }
}

} // namespace

void checkInput(const QByteArray& bytes)
{
    const auto json = RawJson::parse(bytes);
    const auto acknowledged = acknowledgedAlert(bytes);
    require(json.has_value() == acknowledged.has_value(), "what is JSON can be acknowledged");
    if (!json) {
        return;
    }
    const QByteArray written = json->encode();
    require(RawJson::parse(written)->encode() == written, "writing again changes nothing");
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    // Nor does it see a U+FEFF that begins a string, unless the string holds an escape.
    if (error.error == QJsonParseError::NoError && !hasRepeatedKeys(document.object()) &&
        !hasRepeatedKeys(document.array()) && !bytes.contains("\xEF\xBB\xBF")) {
        require(document == QJsonDocument::fromJson(written), "the written form says the same");
    }

    const auto status = RawJson::parse(*acknowledged)->toValue().toObject().value(u"status");
    require(status == "acknowledged", "the acknowledged form says so");
    const auto object = parseSignal(bytes);
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

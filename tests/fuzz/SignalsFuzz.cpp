// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Directories.h>
#include <platform/Json.h>
#include <platform/RawJson.h>
#include <signals/CoachConfig.h>
#include <signals/SignalRecords.h>

#include <QJsonDocument>

#include "Property.h"

namespace flitmark {

namespace {

template<typename Record>
void checkRecord(const QJsonObject& object)
{
    if (const auto record = Record::fromJson(object)) {
        const auto again = parseSignal(encodeJson(record->toJson())).and_then(&Record::fromJson);
        require(again == *record, "a record is read back as it was written");
    }
}

void checkConfig(const QJsonObject& object)
{
    const Directories directories{.home = QStringLiteral("/nowhere"), .applicationSupport = {}, .cache = {}};
    const auto decode = [&](const QJsonObject& json) { return CoachConfig::fromJson(json, directories); };
    if (const auto config = decode(object)) {
        require(parseSignal(encodeJson(config->toJson())).and_then(decode) == *config,
                "the configuration is read back");
    }
}

void checkSignal(const QByteArray& bytes)
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
    if (error.error == QJsonParseError::NoError) {
        require(document == QJsonDocument::fromJson(written), "the written form says the same");
    }

    const auto status = RawJson::parse(*acknowledged)->toValue().toObject().value(u"status");
    require(status == QStringLiteral("acknowledged"), "the acknowledged form says so");
    const auto object = parseSignal(bytes);
    if (!object) {
        return;
    }
    RawJson expected = *json;
    expected.setString(QStringLiteral("status"), QStringLiteral("acknowledged"));
    require(expected.members.size() - json->members.size() <= 1, "acknowledging adds the status at most");
    checkRecord<DailyFocusSignal>(*object);
    checkRecord<CoachAlert>(*object);
    checkRecord<UserResponse>(*object);
    checkConfig(*object);
}

} // namespace

} // namespace flitmark

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    flitmark::checkSignal(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    return 0;
}

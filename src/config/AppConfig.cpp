// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <config/AppConfig.h>
#include <config/VaultGuess.h>
#include <platform/Directories.h>
#include <platform/Json.h>

namespace flitmark {

namespace {

namespace key {
const QString vaultPath = QStringLiteral("vault_path");
const QString saveSubfolder = QStringLiteral("save_subfolder");
const QString defaultTags = QStringLiteral("default_tags");
const QString playSoundOnSave = QStringLiteral("play_sound_on_save");
const QString windowMode = QStringLiteral("window_mode");
const QString windowOpacity = QStringLiteral("window_opacity");
const QString noteTypes = QStringLiteral("note_types");
const QString quickTags = QStringLiteral("quick_tags");
const QString hasCompletedSetup = QStringLiteral("has_completed_setup");
const QString panelWidth = QStringLiteral("panel_width");
const QString panelHeight = QStringLiteral("panel_height");
const QString colorPalette = QStringLiteral("color_palette");
const QString pomodoroEnabled = QStringLiteral("pomodoro_enabled");
const QString coachEnabled = QStringLiteral("coach_enabled");
const QString pomodoroIntervalMinutes = QStringLiteral("pomodoro_interval_minutes");
const QString checkinStartTime = QStringLiteral("checkin_start_time");
const QString checkinEndTime = QStringLiteral("checkin_end_time");
const QString detectionMode = QStringLiteral("detection_mode");
const QString dailyReviewEnabled = QStringLiteral("daily_review_enabled");
const QString dailyReviewTimes = QStringLiteral("daily_review_times");
const QString subfolder = QStringLiteral("subfolder");
const QString tags = QStringLiteral("tags");
const QString prefix = QStringLiteral("prefix");
const QString id = QStringLiteral("id");
const QString icon = QStringLiteral("icon");
const QString appendText = QStringLiteral("appendText");
const QString isDefault = QStringLiteral("isDefault");
} // namespace key

// The panel's size in files that are older than its two keys.
constexpr double oldPanelWidth = 380;
constexpr double oldPanelHeight = 480;

QMap<QString, NoteTypeConfig> defaultNoteTypes()
{
    const QString inbox = QStringLiteral("Inbox");
    return {
        {fleetingNoteType(), {inbox, {QStringLiteral("fleeting")}, QString()}},
        {QStringLiteral("Task"), {inbox, {QStringLiteral("task")}, QStringLiteral("TODO ")}},
        {QStringLiteral("Idea"), {inbox, {QStringLiteral("idea")}, QStringLiteral(u"\U0001F4A1 ")}},
    };
}

QJsonObject noteTypesToJson(const QMap<QString, NoteTypeConfig>& noteTypes)
{
    QJsonObject object;
    for (auto it = noteTypes.begin(); it != noteTypes.end(); ++it) {
        object[it.key()] = QJsonObject{
            {key::subfolder, it->subfolder},
            {key::tags, QJsonArray::fromStringList(it->tags)},
            {key::prefix, it->prefix},
        };
    }
    return object;
}

QJsonArray quickTagsToJson(const QList<QuickTag>& quickTags)
{
    QJsonArray array;
    for (const QuickTag& tag : quickTags) {
        array.append(QJsonObject{
            {key::id, tag.id.toString(QUuid::WithoutBraces).toUpper()},
            {key::icon, tag.icon},
            {key::appendText, tag.appendText},
            {key::isDefault, tag.isDefault},
        });
    }
    return array;
}

QMap<QString, NoteTypeConfig> readNoteTypes(const QJsonObject& object, const QString& path, QString& error)
{
    QMap<QString, NoteTypeConfig> noteTypes;
    JsonFields fields(object, path, error);
    for (const QString& name : object.keys()) {
        JsonFields noteType(fields.required<QJsonObject>(name), fields.pathOf(name), error);
        noteTypes[name] = {
            .subfolder = noteType.required<QString>(key::subfolder),
            .tags = noteType.required<QStringList>(key::tags),
            .prefix = noteType.required<QString>(key::prefix),
        };
    }
    return noteTypes;
}

/// The UUID written as `text`, in either case but with nothing around it.
std::optional<QUuid> parseUuid(const QString& text)
{
    const QUuid id = QUuid::fromString(text);
    const bool isWhole = id.toString(QUuid::WithoutBraces).compare(text, Qt::CaseInsensitive) == 0;
    return isWhole ? std::optional(id) : std::nullopt;
}

QList<QuickTag> readQuickTags(const QJsonArray& array, const QString& path, QString& error)
{
    QList<QuickTag> quickTags;
    for (const auto& item : array) {
        const QString itemPath = path + u'.' + QString::number(quickTags.size());
        if (!item.isObject() && error.isEmpty()) {
            error = QStringLiteral("The value of \"%1\" is not an object.").arg(itemPath);
        }
        JsonFields tag(item.toObject(), itemPath, error);
        const std::optional<QUuid> id = parseUuid(tag.required<QString>(key::id));
        if (!id) {
            tag.fail(key::id, QStringLiteral("is not a UUID"));
        }
        quickTags.append({
            .id = id.value_or(QUuid()),
            .icon = tag.required<QString>(key::icon),
            .appendText = tag.required<QString>(key::appendText),
            .isDefault = tag.optional<bool>(key::isDefault).value_or(false),
        });
    }
    return quickTags;
}

ColorPalette readColorPalette(JsonFields& fields, ColorPalette ifMissing)
{
    const std::optional<QString> name = fields.optional<QString>(key::colorPalette);
    if (!name) {
        return ifMissing;
    }
    const std::optional<ColorPalette> palette = colorPaletteFromRawValue(*name);
    if (!palette) {
        fields.fail(key::colorPalette, QStringLiteral("is not a known color palette"));
    }
    return palette.value_or(ifMissing);
}

} // namespace

QList<QuickTag> defaultQuickTags()
{
    const auto make = [](const QString& icon, const QString& text) {
        return QuickTag{QUuid::createUuid(), icon, text};
    };
    return {
        make(QStringLiteral(u"\U0001F525"), QStringLiteral("#priority/high")),
        make(QStringLiteral(u"\U0001F4CC"), QStringLiteral("#status/pinned")),
        make(QStringLiteral(u"\U0001F4A1"), QStringLiteral("#type/idea")),
        make(QStringLiteral(u"\u2705"), QStringLiteral("#type/task")),
    };
}

AppConfig AppConfig::makeDefault(const Directories& directories)
{
    AppConfig config;
    config.vaultPath = inferDefaultVaultPath(directories.home);
    config.saveSubfolder = QStringLiteral("Inbox");
    config.windowMode = QStringLiteral("desktop");
    config.noteTypes = defaultNoteTypes();
    config.quickTags = defaultQuickTags();
    config.checkinStartTime = QStringLiteral("07:30");
    config.checkinEndTime = QStringLiteral("18:00");
    config.detectionMode = QStringLiteral("pieces");
    config.dailyReviewTimes = {QStringLiteral("19:00"), QStringLiteral("21:00"), QStringLiteral("23:00")};
    return config;
}

QJsonObject AppConfig::toJson() const
{
    return {
        {key::vaultPath, vaultPath},
        {key::saveSubfolder, saveSubfolder},
        {key::defaultTags, QJsonArray::fromStringList(defaultTags)},
        {key::playSoundOnSave, playSoundOnSave},
        {key::windowMode, windowMode},
        {key::windowOpacity, windowOpacity},
        {key::noteTypes, noteTypesToJson(noteTypes)},
        {key::quickTags, quickTagsToJson(quickTags)},
        {key::hasCompletedSetup, hasCompletedSetup},
        {key::panelWidth, panelWidth},
        {key::panelHeight, panelHeight},
        {key::colorPalette, rawValue(colorPalette)},
        {key::pomodoroEnabled, pomodoroEnabled},
        {key::coachEnabled, coachEnabled},
        {key::pomodoroIntervalMinutes, pomodoroIntervalMinutes},
        {key::checkinStartTime, checkinStartTime},
        {key::checkinEndTime, checkinEndTime},
        {key::detectionMode, detectionMode},
        {key::dailyReviewEnabled, dailyReviewEnabled},
        {key::dailyReviewTimes, QJsonArray::fromStringList(dailyReviewTimes)},
    };
}

tl::expected<AppConfig, QString> AppConfig::fromJson(const QJsonObject& object, const Directories& directories)
{
    QString error;
    JsonFields fields(object, QString(), error);
    AppConfig config = makeDefault(directories);
    config.panelWidth = oldPanelWidth;
    config.panelHeight = oldPanelHeight;

    const auto read = [&fields]<typename T>(const QString& name, T& value) {
        if (std::optional<T> found = fields.optional<T>(name)) {
            value = *std::move(found);
        }
    };
    read(key::vaultPath, config.vaultPath);
    read(key::saveSubfolder, config.saveSubfolder);
    read(key::defaultTags, config.defaultTags);
    read(key::playSoundOnSave, config.playSoundOnSave);
    read(key::windowMode, config.windowMode);
    read(key::windowOpacity, config.windowOpacity);
    if (const auto noteTypes = fields.optional<QJsonObject>(key::noteTypes)) {
        config.noteTypes = readNoteTypes(*noteTypes, key::noteTypes, error);
    }
    if (const auto quickTags = fields.optional<QJsonArray>(key::quickTags)) {
        config.quickTags = readQuickTags(*quickTags, key::quickTags, error);
    }
    read(key::hasCompletedSetup, config.hasCompletedSetup);
    read(key::panelWidth, config.panelWidth);
    read(key::panelHeight, config.panelHeight);
    config.colorPalette = readColorPalette(fields, config.colorPalette);
    read(key::pomodoroEnabled, config.pomodoroEnabled);
    read(key::coachEnabled, config.coachEnabled);
    read(key::pomodoroIntervalMinutes, config.pomodoroIntervalMinutes);
    read(key::checkinStartTime, config.checkinStartTime);
    read(key::checkinEndTime, config.checkinEndTime);
    read(key::detectionMode, config.detectionMode);
    read(key::dailyReviewEnabled, config.dailyReviewEnabled);
    read(key::dailyReviewTimes, config.dailyReviewTimes);

    if (!error.isEmpty()) {
        return tl::unexpected(error);
    }
    return config;
}

} // namespace flitmark

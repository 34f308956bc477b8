// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Text.h>
#include <daily/DailyNoteSettings.h>
#include <platform/Descriptor.h>
#include <platform/Json.h>

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>

namespace flitmark {

namespace {

constexpr qint64 largestSettings = 1 << 20;

template<typename T>
using Result = tl::expected<T, DailyNoteProblem>;

/// The content of the settings file at `path`; an undefined value when there is no file.
tl::expected<QJsonValue, QString> readValue(const QString& path)
{
    // Without waiting: a pipe or a device in the file's place must not stop the program.
    const Descriptor fd(::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!fd.isOpen() && (errno == ENOENT || errno == ENOTDIR)) {
        return QJsonValue(QJsonValue::Undefined);
    }
    struct stat info = {};
    if (!fd.isOpen() || ::fstat(fd.get(), &info) != 0) {
        return tl::unexpected(FileError::ofSystem(errno).message);
    }
    if (!S_ISREG(info.st_mode)) {
        return tl::unexpected(QStringLiteral("not an ordinary file"));
    }
    if (info.st_size > largestSettings) {
        return tl::unexpected(QStringLiteral("larger than 1 MB"));
    }
    const auto bytes = readAll(fd);
    return bytes ? parseJson(*bytes) : tl::unexpected(bytes.error().message);
}

/// One settings file of Obsidian's, and the members of an object in it.
class SettingsFile
{
public:
    SettingsFile(const QString& vault, const QString& name)
        : m_path(vault + QStringLiteral("/.obsidian/") + name)
        , m_value(readValue(m_path))
    {
    }

    bool isMissing() const { return m_value && m_value->isUndefined(); }

    tl::unexpected<DailyNoteProblem> problem(const QString& message) const
    {
        return tl::unexpected(DailyNoteProblem{m_path, message});
    }

    Result<QJsonObject> object() const
    {
        if (!m_value) {
            return problem(m_value.error());
        }
        return isMissing() || m_value->isObject() ? Result<QJsonObject>(m_value->toObject())
                                                  : problem(QStringLiteral("not an object"));
    }

    /// Whether a list of names holds `name`.
    Result<bool> lists(const QString& name) const
    {
        if (!m_value) {
            return problem(m_value.error());
        }
        const QJsonArray names = m_value->toArray();
        const bool isList = m_value->isArray() &&
                            std::all_of(names.begin(), names.end(), [](const QJsonValue& v) { return v.isString(); });
        return isList || isMissing() ? Result<bool>(names.contains(name))
                                     : problem(QStringLiteral("not a list of names"));
    }

    bool isList() const { return m_value && m_value->isArray(); }

    /// The member `key`, which is a bool, or `otherwise` where it is missing.
    Result<bool> flag(const QJsonObject& object, const QString& key, bool otherwise) const
    {
        const QJsonValue value = object.value(key);
        return value.isBool() || isAbsent(value) ? Result<bool>(value.toBool(otherwise)) : wrongType(key);
    }

    /// The folder and format in `object`.
    Result<DailyNoteSettings> place(const QJsonObject& object, DailyNoteRule rule) const
    {
        DailyNoteSettings settings{rule, m_path, QString(), QStringLiteral("YYYY-MM-DD")};
        for (const auto& [key, text] :
             {std::pair(QStringLiteral("folder"), &settings.folder), {QStringLiteral("format"), &settings.format}}) {
            const QJsonValue value = object.value(key);
            if (!value.isString() && !isAbsent(value)) {
                return wrongType(key);
            }
            if (!trimSpacesAndNewlines(value.toString()).isEmpty()) {
                *text = value.toString();
            }
        }
        return settings;
    }

private:
    static bool isAbsent(const QJsonValue& value) { return value.isUndefined() || value.isNull(); }

    tl::unexpected<DailyNoteProblem> wrongType(const QString& key) const
    {
        return problem(QStringLiteral("\"%1\" has the wrong type").arg(key));
    }

    QString m_path;
    tl::expected<QJsonValue, QString> m_value;
};

/// What the plugin "periodic notes" says; the fixed place where it is off.
Result<DailyNoteSettings> readPeriodicNotes(const QString& vault)
{
    const auto isListed =
        SettingsFile(vault, QStringLiteral("community-plugins.json")).lists(QStringLiteral("periodic-notes"));
    if (!isListed || !*isListed) {
        return isListed.map([](bool) { return DailyNoteSettings(); });
    }
    const SettingsFile file(vault, QStringLiteral("plugins/periodic-notes/data.json"));
    const auto object = file.object();
    if (!object) {
        return tl::unexpected(object.error());
    }
    const QJsonValue daily = object->value(u"daily");
    if (!daily.isObject() && !daily.isUndefined() && !daily.isNull()) {
        return file.problem(QStringLiteral("\"daily\" has the wrong type"));
    }
    const auto isEnabled = file.flag(daily.toObject(), QStringLiteral("enabled"), false);
    if (!isEnabled || !*isEnabled) {
        return isEnabled.map([](bool) { return DailyNoteSettings(); });
    }
    return file.place(daily.toObject(), DailyNoteRule::PeriodicNotes);
}

/// What the core plugin says; the fixed place where it is off.
Result<DailyNoteSettings> readDailyNotes(const QString& vault)
{
    const auto name = QStringLiteral("daily-notes");
    const SettingsFile plugins(vault, QStringLiteral("core-plugins.json"));
    const Result<bool> isOn =
        plugins.isList() ? plugins.lists(name)
                         : plugins.object().and_then([&](const QJsonObject& o) { return plugins.flag(o, name, true); });
    if (!isOn || !*isOn) {
        return isOn.map([](bool) { return DailyNoteSettings(); });
    }
    const SettingsFile file(vault, QStringLiteral("daily-notes.json"));
    return file.object().and_then(
        [&](const QJsonObject& object) { return file.place(object, DailyNoteRule::DailyNotes); });
}

} // namespace

tl::expected<DailyNoteSettings, DailyNoteProblem> readDailyNoteSettings(const QString& vault)
{
    auto settings = readPeriodicNotes(vault);
    return settings && settings->rule == DailyNoteRule::FixedPlace ? readDailyNotes(vault) : settings;
}

} // namespace flitmark

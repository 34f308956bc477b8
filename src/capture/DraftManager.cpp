// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/DraftManager.h>
#include <core/Text.h>
#include <platform/Directories.h>
#include <platform/Files.h>
#include <platform/Json.h>
#include <platform/Print.h>
#include <platform/RunLoop.h>

#include <QFile>
#include <QFileInfo>

namespace flitmark {

namespace {

const QString contentKey = QStringLiteral("content");
const QString titleKey = QStringLiteral("title");
const QString noteTypeKey = QStringLiteral("noteType");
const QString timestampKey = QStringLiteral("timestamp");

tl::expected<Draft, QString> draftFromJson(const QJsonObject& object)
{
    QString error;
    JsonFields fields(object, QString(), error);
    Draft draft{
        .content = fields.required<QString>(contentKey),
        .title = fields.required<QString>(titleKey),
        .noteType = fields.required<QString>(noteTypeKey),
        .timestamp = QDateTime::fromString(fields.required<QString>(timestampKey), Qt::ISODate),
    };
    // A time of day without a zone would mean another moment on another day's clock.
    if (!draft.timestamp.isValid() || draft.timestamp.timeSpec() == Qt::LocalTime) {
        fields.fail(timestampKey, QStringLiteral("is not an ISO 8601 date with a time zone"));
    }
    if (!error.isEmpty()) {
        return tl::unexpected(error);
    }
    return draft;
}

QByteArray encode(const Draft& draft)
{
    return encodeJson(QJsonObject{
        {contentKey, draft.content},
        {titleKey, draft.title},
        {noteTypeKey, draft.noteType},
        {timestampKey, draft.timestamp.toUTC().toString(Qt::ISODate)},
    });
}

bool isBlank(const QString& text)
{
    return trimSpacesAndNewlines(text).isEmpty();
}

} // namespace

DraftManager::DraftManager(const Directories& directories, RunLoop& runLoop)
    : m_runLoop(runLoop)
    , m_draftURL(directories.ownFolder() + QStringLiteral("/.draft.json"))
{
    // Where the folder can't be made, the first save says so.
    std::ignore = createFolder(directories.ownFolder());
    load();
}

void DraftManager::load()
{
    const QFileInfo file(m_draftURL);
    if (!file.exists() && !file.isSymLink()) {
        return;
    }
    const tl::expected<Draft, QString> draft = readFile(m_draftURL)
                                                   .map_error([](const FileError& error) { return error.message; })
                                                   .and_then(parseJsonObject)
                                                   .and_then(draftFromJson);
    if (!draft) {
        printLine(QStringLiteral("Failed to load draft: ") + draft.error());
        m_isFileUnreadable = true;
        return;
    }
    m_isFileUnreadable = false;
    setCurrentDraft(*draft);
}

void DraftManager::save(const QString& content, const QString& title, const QString& noteType)
{
    if (isBlank(content) && isBlank(title)) {
        clear();
        return;
    }
    keepUnreadableFile();
    const Draft draft{content, title, noteType, m_runLoop.now()};
    // A crash of the program loses nothing that was written. Waiting for the disk at every key would be felt.
    if (const auto written = replaceFile(m_draftURL, encode(draft), Flush::Later); !written) {
        printLine(QStringLiteral("Failed to save draft: ") + written.error().message);
    }
    setCurrentDraft(draft);
}

void DraftManager::clear()
{
    keepUnreadableFile();
    QFile::remove(m_draftURL);
    setCurrentDraft(std::nullopt);
}

void DraftManager::keepUnreadableFile()
{
    if (std::exchange(m_isFileUnreadable, false)) {
        keepUnreadable(m_draftURL);
    }
}

void DraftManager::setCurrentDraft(std::optional<Draft> draft)
{
    if (m_currentDraft != draft) {
        m_currentDraft = std::move(draft);
        Q_EMIT currentDraftChanged();
    }
}

} // namespace flitmark

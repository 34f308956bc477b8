// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDateTime>
#include <QObject>
#include <QString>

#include <optional>

namespace flitmark {

class RunLoop;
struct Directories;

/// A note that has not been saved yet.
struct Draft
{
    QString content;
    QString title;
    QString noteType;
    /// When the draft was last written.
    QDateTime timestamp;

    bool operator==(const Draft&) const = default;
};

/// Keeps the one unsaved note, in memory and in the file `.draft.json` beside the configuration, so that it outlives
/// the panel and the process.
///
/// Main thread only.
class DraftManager final : public QObject
{
    Q_OBJECT

public:
    /// Creates the program's own folder and loads the draft from it.
    DraftManager(const Directories& directories, RunLoop& runLoop);
    Q_DISABLE_COPY_MOVE(DraftManager)

    /// The absolute path of the draft's file.
    QString draftURL() const { return m_draftURL; }
    const std::optional<Draft>& currentDraft() const { return m_currentDraft; }

    /// Reads the draft from its file, if there is one. A file that can't be read or makes no sense prints a line and
    /// stays as it is; there is no draft then.
    void load();
    /// Makes the three texts the draft and writes it; it is in the file when the call returns. With a blank content and
    /// a blank title there is nothing to keep, and the draft is cleared. A failed write prints a line; the draft in
    /// memory is the new one even so.
    void save(const QString& content, const QString& title, const QString& noteType);
    /// Drops the draft and deletes its file.
    void clear();

Q_SIGNALS:
    void currentDraftChanged();

private:
    void keepUnreadableFile();
    void setCurrentDraft(std::optional<Draft> draft);

    RunLoop& m_runLoop;
    QString m_draftURL;
    std::optional<Draft> m_currentDraft;
    /// Whether the file holds something that could not be loaded, to be kept beside it before it is written.
    bool m_isFileUnreadable = false;
};

} // namespace flitmark

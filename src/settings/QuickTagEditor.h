// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <config/AppConfig.h>

#include <QObject>

#include <functional>
#include <optional>

namespace flitmark {

class ConfigManager;

/// A text that lives elsewhere: read and written through these.
struct TextBinding
{
    std::function<QString()> text;
    std::function<void(const QString&)> setText;
};

/// Changes the configured quick tags. Every change is saved at once. Main thread only.
class QuickTagEditor final : public QObject
{
    Q_OBJECT

public:
    /// The configuration manager must outlive it.
    explicit QuickTagEditor(ConfigManager& configManager);
    Q_DISABLE_COPY_MOVE(QuickTagEditor)

    const QList<QuickTag>& quickTags() const;

    /// The tag whose icon and text are fields now.
    const std::optional<QUuid>& editingTagId() const { return m_editingTagId; }
    void setEditingTagId(std::optional<QUuid> id);
    /// The icon of the tag `id`: each text set is saved. Without such a tag the text is empty and stays so.
    TextBinding editingIconBinding(QUuid id);
    /// Likewise the text that the tag appends.
    TextBinding editingTextBinding(QUuid id);

    void toggleDefault(QUuid id);
    void deleteTag(QUuid id);

    /// Whether the row for a new tag is open.
    bool showAddTag() const { return m_showAddTag; }
    void setShowAddTag(bool isShown);
    const QString& newTagIcon() const { return m_newTagIcon; }
    void setNewTagIcon(const QString& icon);
    const QString& newTagText() const { return m_newTagText; }
    void setNewTagText(const QString& text);
    /// Appends a tag made of both fields if neither is empty. Empties the fields and closes the row in any case.
    void addNewTag();
    void cancelAddTag();

Q_SIGNALS:
    /// The tags, or anything above, changed.
    void changed();

private:
    TextBinding binding(QUuid id, QString QuickTag::*field);
    template<typename Change>
    void changeTags(Change change);
    template<typename T>
    void set(T& field, const T& value);

    ConfigManager& m_configManager;
    /// As of the last announcement.
    QList<QuickTag> m_knownTags;
    std::optional<QUuid> m_editingTagId;
    bool m_showAddTag = false;
    QString m_newTagIcon;
    QString m_newTagText;
};

} // namespace flitmark

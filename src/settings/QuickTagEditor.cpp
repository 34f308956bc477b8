// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <config/ConfigManager.h>
#include <settings/QuickTagEditor.h>

#include <algorithm>
#include <utility>

namespace flitmark {

namespace {

/// The tag of this id in `tags`; null when there is none.
template<typename Tags>
auto* findTag(Tags& tags, QUuid id)
{
    const auto found = std::find_if(tags.begin(), tags.end(), [id](const QuickTag& tag) { return tag.id == id; });
    return found != tags.end() ? &*found : nullptr;
}

} // namespace

QuickTagEditor::QuickTagEditor(ConfigManager& configManager)
    : m_configManager(configManager)
    , m_knownTags(configManager.config().quickTags)
{
    connect(&configManager, &ConfigManager::configChanged, this, [this] {
        if (std::exchange(m_knownTags, quickTags()) != m_knownTags) {
            Q_EMIT changed();
        }
    });
}

const QList<QuickTag>& QuickTagEditor::quickTags() const
{
    return m_configManager.config().quickTags;
}

template<typename T>
void QuickTagEditor::set(T& field, const T& value)
{
    if (field != value) {
        field = value;
        Q_EMIT changed();
    }
}

template<typename Change>
void QuickTagEditor::changeTags(Change change)
{
    m_configManager.update([&change](AppConfig& config) { change(config.quickTags); });
    m_configManager.save();
}

void QuickTagEditor::setEditingTagId(std::optional<QUuid> id)
{
    set(m_editingTagId, id);
}

TextBinding QuickTagEditor::binding(QUuid id, QString QuickTag::*field)
{
    const auto text = [this, id, field] {
        const QuickTag* tag = findTag(quickTags(), id);
        return tag != nullptr ? tag->*field : QString();
    };
    const auto setText = [this, id, field](const QString& newText) {
        if (findTag(quickTags(), id) != nullptr) {
            changeTags([&](QList<QuickTag>& tags) { findTag(tags, id)->*field = newText; });
        }
    };
    return {text, setText};
}

TextBinding QuickTagEditor::editingIconBinding(QUuid id)
{
    return binding(id, &QuickTag::icon);
}

TextBinding QuickTagEditor::editingTextBinding(QUuid id)
{
    return binding(id, &QuickTag::appendText);
}

void QuickTagEditor::toggleDefault(QUuid id)
{
    changeTags([id](QList<QuickTag>& tags) {
        if (QuickTag* tag = findTag(tags, id)) {
            tag->isDefault = !tag->isDefault;
        }
    });
}

void QuickTagEditor::deleteTag(QUuid id)
{
    if (m_editingTagId == id) {
        m_editingTagId.reset();
    }
    changeTags([id](QList<QuickTag>& tags) { tags.removeIf([id](const QuickTag& tag) { return tag.id == id; }); });
}

void QuickTagEditor::setShowAddTag(bool isShown)
{
    set(m_showAddTag, isShown);
}

void QuickTagEditor::setNewTagIcon(const QString& icon)
{
    set(m_newTagIcon, icon);
}

void QuickTagEditor::setNewTagText(const QString& text)
{
    set(m_newTagText, text);
}

void QuickTagEditor::addNewTag()
{
    const QuickTag tag{QUuid::createUuid(), m_newTagIcon, m_newTagText, false};
    cancelAddTag();
    if (!tag.icon.isEmpty() && !tag.appendText.isEmpty()) {
        changeTags([&tag](QList<QuickTag>& tags) { tags.append(tag); });
    }
}

void QuickTagEditor::cancelAddTag()
{
    m_newTagIcon.clear();
    m_newTagText.clear();
    m_showAddTag = false;
    Q_EMIT changed();
}

} // namespace flitmark

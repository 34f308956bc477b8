// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <settings/SettingsSection.h>

namespace flitmark {

class Button;
class Card;
class NewTagRow;
class QuickTagRow;

/// The quick tags, one below the other, and the row for a new one. What is changed here is stored at once.
class QuickTagsSection final : public SettingsSection
{
    Q_OBJECT

public:
    explicit QuickTagsSection(SettingsModel& model);
    Q_DISABLE_COPY_MOVE(QuickTagsSection)

private:
    void showTags();
    void showRows();
    void removeMissingRows();

    QuickTagEditor& m_editor;
    Card* m_list;
    QList<QuickTagRow*> m_rows;
    Button* m_addButton;
    NewTagRow* m_newTag;
};

} // namespace flitmark

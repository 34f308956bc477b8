// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <settings/NewTagRow.h>
#include <settings/QuickTagRow.h>
#include <settings/QuickTagsSection.h>
#include <ui/Button.h>
#include <ui/Label.h>
#include <ui/Surfaces.h>

#include <algorithm>

namespace flitmark {

QuickTagsSection::QuickTagsSection(SettingsModel& model)
    : SettingsSection(model)
    , m_editor(model.quickTagEditor())
    , m_list(new Card)
    , m_addButton(new Button(tr("Add Quick Tag")))
    , m_newTag(new NewTagRow(m_editor))
{
    addHeading(tr("Quick Tags"));
    addText(tr("Click icons to add tags when saving notes"), TextRole::Body, 4, &Theme::text2);
    auto* column = new QVBoxLayout(m_list);
    column->setContentsMargins(0, 4, 0, 4);
    column->setSpacing(0);
    add(m_list, 12);

    m_addButton->setSymbol(QStringLiteral("plus.circle.fill"));
    connect(m_addButton, &Button::clicked, this, [this] { m_editor.setShowAddTag(true); });
    auto* row = new QHBoxLayout;
    row->addWidget(m_addButton);
    row->addStretch();
    add(row, 12);
    add(m_newTag, 12);
    finish();

    m_newTag->hide();
    showTags();
    connect(&m_editor, &QuickTagEditor::changed, this, &QuickTagsSection::showTags);
}

void QuickTagsSection::showTags()
{
    removeMissingRows();
    showRows();
    m_list->setVisible(!m_rows.isEmpty());

    const bool isOpening = m_editor.showAddTag() && m_newTag->isHidden();
    const bool isClosing = !m_editor.showAddTag() && m_newTag->isAncestorOf(window()->focusWidget());
    m_newTag->setVisible(m_editor.showAddTag());
    if (isOpening) {
        m_newTag->takeKeyboard();
    } else if (isClosing) {
        m_addButton->setFocus(Qt::TabFocusReason);
    }
}

void QuickTagsSection::showRows()
{
    const QList<QuickTag>& tags = m_editor.quickTags();
    for (qsizetype index = 0; index < tags.size(); ++index) {
        if (index >= m_rows.size()) {
            m_rows.append(new QuickTagRow(m_editor, tags[index]));
            m_list->layout()->addWidget(m_rows.last());
            m_rows.last()->show();
        }
        m_rows[index]->showTag(tags[index]);
        m_rows[index]->setEditing(m_editor.editingTagId() == tags[index].id);
    }
}

void QuickTagsSection::removeMissingRows()
{
    const QList<QuickTag>& tags = m_editor.quickTags();
    for (qsizetype index = 0; index < m_rows.size();) {
        QuickTagRow* row = m_rows[index];
        if (std::any_of(tags.begin(), tags.end(), [row](const QuickTag& tag) { return tag.id == row->id(); })) {
            ++index;
            continue;
        }
        const bool heldFocus = row->isAncestorOf(window()->focusWidget());
        m_rows.removeAt(index);
        // The row's own button may be the caller: it goes when that has returned.
        row->hide();
        row->deleteLater();
        if (heldFocus && !m_rows.isEmpty()) {
            m_rows[std::min(index, m_rows.size() - 1)]->focusDelete();
        } else if (heldFocus) {
            m_addButton->setFocus(Qt::TabFocusReason);
        }
    }
}

} // namespace flitmark

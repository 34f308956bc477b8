// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <settings/NewTagRow.h>
#include <settings/QuickTagEditor.h>
#include <ui/IconButton.h>
#include <ui/Label.h>
#include <ui/ReadingMargins.h>
#include <ui/Surfaces.h>
#include <ui/TextField.h>

#include <QHBoxLayout>
#include <QKeyEvent>

namespace flitmark {

NewTagRow::NewTagRow(QuickTagEditor& editor)
    : m_editor(editor)
    , m_icon(new TextField(tr("New tag icon")))
    , m_text(new TextField(tr("New tag text")))
{
    auto* card = new Card;
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins({});
    outer->addWidget(card);
    auto* column = new QVBoxLayout(card);
    column->setContentsMargins(readingMargins(16, 12, 8, 12));
    column->setSpacing(8);
    auto* caption = new Label(tr("Enter an emoji/icon and the text to append when selected"), TextRole::Caption);
    caption->setWordWrap(true);
    column->addWidget(caption);

    m_icon->setForIcon();
    m_icon->setPlaceholderText(QStringLiteral("🎯"));
    m_text->setPlaceholderText(QStringLiteral("#tag/example"));
    auto* confirm = new IconButton(tr("Confirm"), IconButtonSize::Small);
    confirm->setSymbol(QStringLiteral("checkmark.circle.fill"));
    confirm->setColor(&Theme::mark);
    auto* cancel = new IconButton(tr("Cancel"), IconButtonSize::Small);
    cancel->setSymbol(QStringLiteral("xmark.circle.fill"));
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    row->addWidget(m_icon);
    row->addWidget(m_text, 1);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(0);
    buttons->addWidget(confirm);
    buttons->addWidget(cancel);
    row->addLayout(buttons);
    column->addLayout(row);

    connect(m_icon, &TextField::textChanged, &editor, &QuickTagEditor::setNewTagIcon);
    connect(m_text, &TextField::textChanged, &editor, &QuickTagEditor::setNewTagText);
    connect(confirm, &IconButton::clicked, &editor, &QuickTagEditor::addNewTag);
    connect(cancel, &IconButton::clicked, &editor, &QuickTagEditor::cancelAddTag);
    connect(&editor, &QuickTagEditor::changed, this, &NewTagRow::showFields);
}

void NewTagRow::takeKeyboard()
{
    m_icon->setFocus();
}

void NewTagRow::showFields()
{
    for (const auto& [field, text] : {std::pair{m_icon, m_editor.newTagIcon()}, {m_text, m_editor.newTagText()}}) {
        if (field->text() != text) {
            field->setText(text);
        }
    }
}

void NewTagRow::keyPressEvent(QKeyEvent* event)
{
    if (event->modifiers() == Qt::NoModifier && event->key() == Qt::Key_Return) {
        m_editor.addNewTag();
    } else if (event->key() == Qt::Key_Escape) {
        m_editor.cancelAddTag();
    } else {
        QWidget::keyPressEvent(event);
    }
}

} // namespace flitmark

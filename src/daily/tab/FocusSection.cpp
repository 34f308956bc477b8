// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/tab/DailyTabModel.h>
#include <daily/tab/FocusSection.h>
#include <daily/tab/SectionCaption.h>
#include <ui/Button.h>
#include <ui/IconButton.h>
#include <ui/Label.h>
#include <ui/Painting.h>
#include <ui/Surfaces.h>
#include <ui/TextField.h>

#include <QVBoxLayout>

namespace flitmark {

FocusSection::FocusSection(DailyTabModel& model)
    : m_model(model)
{
    m_display = makeDisplay();
    m_editor = makeEditor();
    auto* card = new Card;
    auto* inside = new QVBoxLayout(card);
    inside->setContentsMargins({});
    inside->setSpacing(0);
    inside->addWidget(m_display);
    inside->addWidget(m_editor);
    m_editor->hide();

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(0);
    column->addWidget(makeSectionCaption(tr("FOCUS")));
    column->addWidget(card);

    connect(&model, &DailyTabModel::noteChanged, this, &FocusSection::showFocus);
    connect(&model, &DailyTabModel::focusEditorChanged, this, &FocusSection::showEditor);
    connect(&model, &DailyTabModel::editedFocusChanged, this, &FocusSection::showEditedFocus);
    showFocus();
    showEditedFocus();
    showEditor();
}

QWidget* FocusSection::makeDisplay()
{
    m_done = new IconButton(tr("Mark focus done"), IconButtonSize::Small);
    m_done->setSymbol(QStringLiteral("circle"));
    connect(m_done, &IconButton::clicked, &m_model, &DailyTabModel::markFocusDone);
    m_focus = new Label(QString(), TextRole::Strong);
    m_focus->setWordWrap(true);
    m_focus->setContentsMargins(0, 4, 0, 4);
    m_edit = new IconButton(tr("Edit focus"), IconButtonSize::Small);
    m_edit->setSymbol(QStringLiteral("pencil"), 18);
    connect(m_edit, &IconButton::clicked, &m_model, &DailyTabModel::editFocus);

    auto* display = new QWidget;
    auto* row = new QHBoxLayout(display);
    row->setContentsMargins(8, 8, 8, 8);
    row->setSpacing(8);
    row->addWidget(m_done, 0, Qt::AlignTop);
    row->addWidget(m_focus, 1);
    row->addWidget(m_edit, 0, Qt::AlignTop);
    return display;
}

QWidget* FocusSection::makeEditor()
{
    m_question = new Label(tr("✓ Done! What's next?"), TextRole::Strong);
    m_question->setColor(&Theme::mark);
    // Return does nothing in it: only the buttons act.
    m_field = new TextField(tr("Focus"));
    m_field->setPlaceholderText(tr("Enter focus..."));
    connect(m_field, &TextField::textChanged, &m_model, &DailyTabModel::setEditedFocus);
    auto* cancel = new Button(tr("Cancel"), ButtonKind::Ghost);
    connect(cancel, &Button::clicked, &m_model, &DailyTabModel::cancelFocus);
    m_save = new Button(QString(), ButtonKind::Filled);
    connect(m_save, &Button::clicked, &m_model, &DailyTabModel::saveFocus);

    auto* editor = new QWidget;
    auto* column = new QVBoxLayout(editor);
    column->setContentsMargins(12, 12, 12, 12);
    column->setSpacing(12);
    column->addWidget(m_question);
    column->addWidget(m_field);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addStretch();
    buttons->addWidget(cancel);
    buttons->addWidget(m_save);
    column->addLayout(buttons);
    return editor;
}

void FocusSection::showFocus()
{
    m_focus->setText(m_model.focusText());
    m_focus->setColor(m_model.hasFocus() ? &Theme::text : &Theme::text2);
    m_done->setEnabled(m_model.hasFocus());
}

void FocusSection::showEditor()
{
    const bool isOpen = m_model.isEditingFocus() || m_model.isSettingNewFocus();
    const bool hadKeyboard = isAncestorOf(window()->focusWidget());
    m_question->setVisible(m_model.isSettingNewFocus());
    setPlainText(*m_save, m_model.saveFocusTitle());
    m_save->setAccessibleName(m_model.saveFocusTitle());
    m_save->updateGeometry();
    // The shown one first, so that the keyboard is never without a place.
    (isOpen ? m_editor : m_display)->show();
    // One that opens out of sight leaves the keyboard to what is shown.
    if (isOpen && isVisible()) {
        m_field->setFocus();
        m_field->end(false);
    } else if (hadKeyboard) {
        m_edit->setFocus();
    }
    (isOpen ? m_display : m_editor)->hide();
}

void FocusSection::showEditedFocus()
{
    // The same text again would move the cursor.
    if (m_field->text() != m_model.editedFocus()) {
        m_field->setText(m_model.editedFocus());
    }
}

} // namespace flitmark

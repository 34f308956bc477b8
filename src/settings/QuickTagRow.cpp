// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <settings/QuickTagEditor.h>
#include <settings/QuickTagRow.h>
#include <ui/AccessibleRole.h>
#include <ui/IconButton.h>
#include <ui/Label.h>
#include <ui/Painting.h>
#include <ui/ReadingMargins.h>
#include <ui/Surfaces.h>
#include <ui/TextField.h>
#include <ui/ThemeScope.h>

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QSignalBlocker>

namespace flitmark {

namespace {

constexpr int iconPoints = 18;

int iconWidth()
{
    return scaled(iconPoints) + 18;
}

} // namespace

QuickTagRow::QuickTagRow(QuickTagEditor& editor, const QuickTag& tag)
    : m_editor(editor)
    , m_tag(tag)
    , m_layout(new QHBoxLayout(this))
{
    m_display = makeDisplay();
    setAccessibleRole(*this, QAccessible::Grouping);
    m_layout->setContentsMargins({});
    m_layout->addWidget(m_display);
    setFixedHeight(controlHeight() + 12);
    describe();
}

QWidget* QuickTagRow::makeDisplay()
{
    auto* display = new QWidget;
    m_text = new Label;
    m_text->setElideMode(Qt::ElideRight);
    m_badge = new Badge(tr("Default"), Badge::Kind::Accent);
    m_star = makeButton({}, QStringLiteral("star"));
    m_edit = makeButton(tr("Edit"), QStringLiteral("pencil"), 18);
    m_delete = makeButton(tr("Delete"), QStringLiteral("trash"));
    auto* row = new QHBoxLayout(display);
    row->setContentsMargins(readingMargins(16 + iconWidth(), 0, 8, 0));
    row->setSpacing(0);
    row->addWidget(m_text, 1);
    row->addWidget(m_badge);
    row->addSpacing(8);
    for (IconButton* button : {m_star, m_edit, m_delete}) {
        row->addWidget(button);
    }
    connect(m_star, &IconButton::clicked, this, [this] { m_editor.toggleDefault(id()); });
    connect(m_edit, &IconButton::clicked, this, [this] { m_editor.setEditingTagId(id()); });
    connect(m_delete, &IconButton::clicked, this, [this] { m_editor.deleteTag(id()); });
    return display;
}

QWidget* QuickTagRow::makeFields()
{
    auto* fields = new QWidget;
    m_iconField = new TextField(tr("Icon"));
    m_iconField->setForIcon();
    m_textField = new TextField(tr("Text"));
    IconButton* confirm = makeButton(tr("Confirm"), QStringLiteral("checkmark.circle.fill"));
    confirm->setColor(&Theme::mark);
    auto* row = new QHBoxLayout(fields);
    row->setContentsMargins(8, 0, 8, 0);
    row->setSpacing(8);
    row->addWidget(m_iconField);
    row->addWidget(m_textField, 1);
    row->addWidget(confirm);
    connect(m_iconField, &TextField::textChanged, this,
            [this](const QString& text) { m_editor.editingIconBinding(id()).setText(text); });
    connect(m_textField, &TextField::textChanged, this,
            [this](const QString& text) { m_editor.editingTextBinding(id()).setText(text); });
    connect(confirm, &IconButton::clicked, this, [this] { m_editor.setEditingTagId(std::nullopt); });
    return fields;
}

IconButton* QuickTagRow::makeButton(const QString& name, const QString& symbol, int points)
{
    auto* button = new IconButton(name, IconButtonSize::Small);
    button->setSymbol(symbol, points);
    return button;
}

void QuickTagRow::showTag(const QuickTag& tag)
{
    if (m_tag != tag) {
        m_tag = tag;
        describe();
    }
}

void QuickTagRow::describe()
{
    setAccessibleName(m_tag.appendText);
    setAccessibleDescription(m_tag.icon);
    m_text->setText(m_tag.appendText);
    m_badge->setVisible(m_tag.isDefault);
    m_star->setName(m_tag.isDefault ? tr("Remove as default") : tr("Set as default"));
    m_star->setSymbol(m_tag.isDefault ? QStringLiteral("star.fill") : QStringLiteral("star"));
    m_star->setColor(m_tag.isDefault ? &Theme::mark : &Theme::text2);
    for (IconButton* button : {m_star, m_edit, m_delete}) {
        button->setAccessibleDescription(m_tag.appendText);
    }
    update();
}

bool QuickTagRow::isEditing() const
{
    return m_fields != nullptr && !m_fields->isHidden();
}

void QuickTagRow::setEditing(bool isEdited)
{
    if (isEditing() == isEdited) {
        return;
    }
    if (m_fields == nullptr) {
        m_fields = makeFields();
        m_layout->addWidget(m_fields);
    }
    const bool heldFocus = isAncestorOf(window()->focusWidget());
    m_display->setVisible(!isEdited);
    m_fields->setVisible(isEdited);
    if (isEdited) {
        const QSignalBlocker iconBlocker(m_iconField);
        const QSignalBlocker textBlocker(m_textField);
        m_iconField->setText(m_tag.icon);
        m_textField->setText(m_tag.appendText);
        m_textField->setFocus();
    } else if (heldFocus) {
        m_edit->setFocus(Qt::TabFocusReason);
    }
    update();
}

void QuickTagRow::focusDelete()
{
    m_delete->setFocus(Qt::TabFocusReason);
}

void QuickTagRow::keyPressEvent(QKeyEvent* event)
{
    const bool ends =
        event->modifiers() == Qt::NoModifier && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Escape);
    if (ends && isEditing()) {
        m_editor.setEditingTagId(std::nullopt);
        return;
    }
    QWidget::keyPressEvent(event);
}

void QuickTagRow::paintEvent(QPaintEvent* /*event*/)
{
    if (isEditing()) {
        return;
    }
    QPainter painter(this);
    const QRectF place(12, 0, iconWidth() - 4, height());
    painter.setClipRect(painting::inReadingDirection(painter, place));
    painting::drawIconText(painter, place, m_tag.icon, iconPoints, ThemeScope::of(*this).text);
}

} // namespace flitmark

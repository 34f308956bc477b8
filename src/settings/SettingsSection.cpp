// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <settings/SettingsSection.h>
#include <settings/SwitchRow.h>
#include <ui/AccessibleRole.h>
#include <ui/Label.h>
#include <ui/SegmentedTabs.h>
#include <ui/Surfaces.h>
#include <ui/Switch.h>
#include <ui/TextField.h>

#include <QSignalBlocker>

#include <algorithm>
#include <limits>

namespace flitmark {

namespace {

constexpr int topMargin = 20;

} // namespace

SettingsSection::SettingsSection(SettingsModel& model)
    : m_model(model)
    , m_column(new QVBoxLayout(this))
{
    m_column->setContentsMargins(sideMargin, topMargin, sideMargin, topMargin);
    m_column->setSpacing(0);
}

void SettingsSection::add(QWidget* widget, int space)
{
    m_column->addSpacing(space);
    m_column->addWidget(widget);
}

void SettingsSection::add(QLayout* row, int space)
{
    m_column->addSpacing(space);
    m_column->addLayout(row);
}

Label* SettingsSection::addText(const QString& text, TextRole role, int space, ColorToken color)
{
    auto* label = new Label(text, role);
    label->setColor(color);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setContentsMargins(0, space, 0, 0);
    m_column->addWidget(label);
    return label;
}

Label* SettingsSection::addHeading(const QString& text, int space)
{
    return addText(text, TextRole::Heading, space);
}

Label* SettingsSection::addLabel(const QString& text, int space)
{
    Label* label = addText(text, TextRole::Strong, space);
    m_column->addSpacing(4);
    return label;
}

Label* SettingsSection::addCaption(const QString& text, int space)
{
    return addText(text, TextRole::Caption, space, &Theme::text2);
}

Label* SettingsSection::addWarning(int space)
{
    auto* row = new QWidget;
    auto* parts = new QHBoxLayout(row);
    parts->setContentsMargins(0, space, 0, 0);
    parts->setSpacing(4);
    auto* label = new Label({}, TextRole::Caption);
    setAccessibleRole(*label, QAccessible::Notification);
    label->setColor(&Theme::text);
    label->setWordWrap(true);
    parts->addWidget(new SymbolView(QStringLiteral("exclamationmark.triangle.fill"), 16, &Theme::orange), 0,
                     Qt::AlignTop);
    parts->addWidget(label, 1);
    m_column->addWidget(row);
    row->hide();
    return label;
}

void SettingsSection::showWarning(Label& label, const QString& text)
{
    label.setText(text);
    label.parentWidget()->setVisible(!text.isEmpty());
}

void SettingsSection::addCard(const QList<QWidget*>& rows, int space)
{
    auto* card = new Card;
    auto* column = new QVBoxLayout(card);
    column->setContentsMargins({});
    column->setSpacing(0);
    for (QWidget* row : rows) {
        if (column->count() > 0) {
            column->addWidget(new Divider(16));
        }
        column->addWidget(row);
    }
    add(card, space);
}

SegmentedTabs* SettingsSection::addChoices(const QList<Choice>& choices, QString SettingsState::*field)
{
    auto* row = new SegmentedTabs(SegmentKind::Choices);
    for (const Choice& choice : choices) {
        row->add(choice.text);
    }
    add(row, 0);
    follow([this, row, choices, field] {
        const QSignalBlocker blocker(row);
        const auto isChosen = [this, field](const Choice& choice) { return choice.value == m_model.state().*field; };
        const auto chosen = std::find_if(choices.begin(), choices.end(), isChosen);
        if (chosen == choices.end()) {
            row->clearCurrent();
        } else {
            row->setCurrentIndex(static_cast<int>(chosen - choices.begin()));
        }
    });
    connect(row, &SegmentedTabs::currentChanged, this,
            [this, choices, field](int index) { m_model.set(field, choices[index].value); });
    return row;
}

void SettingsSection::finish()
{
    m_column->addStretch();
}

TextField* SettingsSection::makeField(const QString& name, const QString& placeholder)
{
    auto* field = new TextField(name);
    field->setPlaceholderText(placeholder);
    // What was stored must come back whole.
    field->setMaxLength(std::numeric_limits<int>::max());
    return field;
}

void SettingsSection::setFieldText(TextField& field, const QString& text)
{
    if (field.text() != text) {
        const QSignalBlocker blocker(field);
        field.setText(text);
        // Long texts show their beginning.
        field.setCursorPosition(0);
    }
}

void SettingsSection::bind(TextField* field, QString SettingsState::*text)
{
    follow([this, field, text] { setFieldText(*field, m_model.state().*text); });
    connect(field, &TextField::textChanged, this, [this, text](const QString& typed) { m_model.set(text, typed); });
}

void SettingsSection::bind(SwitchRow* row, bool SettingsState::*value)
{
    follow([this, row, value] { row->toggle()->setChecked(m_model.state().*value); });
    connect(row->toggle(), &Switch::toggled, this, [this, value](bool isOn) { m_model.set(value, isOn); });
}

} // namespace flitmark

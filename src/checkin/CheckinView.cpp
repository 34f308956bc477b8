// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <checkin/CheckinModel.h>
#include <checkin/CheckinView.h>
#include <ui/Button.h>
#include <ui/Label.h>
#include <ui/ListRow.h>
#include <ui/Painting.h>
#include <ui/TextField.h>

#include <QVBoxLayout>

namespace flitmark {

namespace {

/// A longer focus is cut, so that the answers stay on the screen.
constexpr int maximumFocusRows = 6;
constexpr int edge = 16;

ActionRow* makeAnswer(const QString& symbol, const QString& title, const QString& second = {})
{
    RowContent content;
    content.symbol = symbol;
    content.title = title;
    content.second = second;
    content.height = second.isEmpty() ? 40 : 48;
    return new ActionRow(content);
}

} // namespace

CheckinView::CheckinView(CheckinModel& model, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(0);
    column->addWidget(makeFocus());
    m_answers = makeAnswers();
    column->addWidget(m_answers);
    m_entry = makeEntry();
    column->addWidget(m_entry);

    connect(&model, &CheckinModel::noteChanged, this, &CheckinView::showNote);
    connect(&model, &CheckinModel::modeChanged, this, &CheckinView::showMode);
    showNote();
    showMode();
}

QWidget* CheckinView::makeFocus()
{
    auto* block = new QWidget(this);
    auto* column = new QVBoxLayout(block);
    column->setContentsMargins(edge, 0, edge, 12);
    column->setSpacing(4);
    column->addWidget(new Label(tr("CURRENT FOCUS"), TextRole::Overline));
    m_focus = new Label(QString(), TextRole::HeadingMedium);
    m_focus->setWordWrap(true);
    m_focus->setMaximumRows(maximumFocusRows);
    column->addWidget(m_focus);
    return block;
}

QWidget* CheckinView::makeAnswers()
{
    auto* answers = new QWidget(this);
    auto* column = new QVBoxLayout(answers);
    column->setContentsMargins(8, 0, 8, 0);
    column->setSpacing(0);
    auto* onTrack = makeAnswer(QStringLiteral("checkmark.circle"), tr("On track"), tr("+1 pomodoro"));
    connect(onTrack, &QPushButton::clicked, &m_model, &CheckinModel::completePomodoro);
    auto* done =
        makeAnswer(QStringLiteral("arrow.right.circle"), tr("Done → New task"), tr("Complete & set new focus"));
    connect(done, &QPushButton::clicked, this, [this, done] {
        m_opener = done;
        m_model.startCompletingTask();
    });
    auto* change = makeAnswer(QStringLiteral("pencil.circle"), tr("Change focus"), tr("Switch to something else"));
    connect(change, &QPushButton::clicked, this, [this, change] {
        m_opener = change;
        m_model.startFocusUpdate();
    });
    auto* snooze = makeAnswer(QStringLiteral("clock"), m_model.snoozeTitle());
    connect(snooze, &QPushButton::clicked, &m_model, &CheckinModel::snooze);
    connect(&m_model, &CheckinModel::snoozeTitleChanged, snooze,
            [this, snooze] { snooze->setTitle(m_model.snoozeTitle()); });
    for (ActionRow* row : {onTrack, done, change, snooze}) {
        column->addWidget(row);
    }
    return answers;
}

QWidget* CheckinView::makeEntry()
{
    auto* entry = new QWidget(this);
    auto* column = new QVBoxLayout(entry);
    column->setContentsMargins(edge, 0, edge, 8);
    column->setSpacing(8);
    m_entryLabel = new Label(QString(), TextRole::Strong);
    column->addWidget(m_entryLabel);
    m_field = new TextField(tr("Focus"));
    m_field->setPlaceholderText(tr("Enter focus..."));
    column->addWidget(m_field);
    connect(m_field, &QLineEdit::textChanged, &m_model, &CheckinModel::setNewFocus);
    connect(m_field, &QLineEdit::returnPressed, &m_model, &CheckinModel::submit);

    auto* buttons = new QHBoxLayout;
    buttons->setContentsMargins(0, 4, 0, 0);
    buttons->setSpacing(8);
    buttons->addStretch();
    auto* cancel = new Button(tr("Cancel"), ButtonKind::Ghost);
    connect(cancel, &QPushButton::clicked, &m_model, &CheckinModel::cancel);
    buttons->addWidget(cancel);
    m_submit = new Button(QString(), ButtonKind::Filled);
    connect(m_submit, &QPushButton::clicked, &m_model, &CheckinModel::submit);
    buttons->addWidget(m_submit);
    column->addLayout(buttons);
    return entry;
}

void CheckinView::showNote()
{
    m_focus->setText(m_model.focusText());
}

void CheckinView::showMode()
{
    const bool isAsking = m_model.isUpdatingFocus() || m_model.isCompletingTask();
    if (isAsking) {
        m_entryLabel->setText(m_model.entryLabel());
        setPlainText(*m_submit, m_model.submitTitle());
        m_field->setText(m_model.newFocus());
    }
    // The focus is moved between showing and hiding, or it would pass through other controls on its way.
    QWidget* shown = isAsking ? m_entry : m_answers;
    shown->show();
    if (isAsking) {
        m_field->setFocus(Qt::OtherFocusReason);
        m_field->selectAll();
    } else if (m_opener != nullptr) {
        m_opener->setFocus(Qt::TabFocusReason);
    }
    (isAsking ? m_answers : m_entry)->hide();
}

} // namespace flitmark

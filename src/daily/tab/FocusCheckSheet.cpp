// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/tab/DailyTabModel.h>
#include <daily/tab/FocusCheckSheet.h>
#include <ui/Button.h>
#include <ui/Label.h>

#include <QVBoxLayout>

namespace flitmark {

namespace {

constexpr int focusCheckWidth = 280;
/// Longer texts are cut, so that the answers stay in the panel.
constexpr int maximumTextRows = 6;

} // namespace

FocusCheckSheet::FocusCheckSheet(DailyTabModel& model, QWidget& host)
    : Sheet(tr("Focus Check"), host, focusCheckWidth)
    , m_model(model)
{
    content().addWidget(makeHead(tr("Focus Check"), QStringLiteral("exclamationmark.triangle.fill")));
    content().addWidget(makeTexts());
    content().addWidget(makeAnswers());
    connect(&model, &DailyTabModel::alertChanged, this, &FocusCheckSheet::showAlert);
    connect(this, &Sheet::closeAsked, &model, &DailyTabModel::closeCoachAlert);
    showAlert();
}

QWidget* FocusCheckSheet::makeTexts()
{
    auto* texts = new QWidget;
    auto* column = new QVBoxLayout(texts);
    column->setContentsMargins(16, 0, 16, 16);
    column->setSpacing(0);
    const auto add = [column](const QString& caption) {
        column->addWidget(new Label(caption, TextRole::Caption));
        auto* text = new Label(QString(), TextRole::Strong);
        text->setWordWrap(true);
        text->setMaximumRows(maximumTextRows);
        column->addWidget(text);
        return text;
    };
    m_planned = add(tr("Planned:"));
    column->addSpacing(12);
    m_actual = add(tr("Actual:"));
    return texts;
}

QWidget* FocusCheckSheet::makeAnswers()
{
    auto* answers = new QWidget;
    auto* column = new QVBoxLayout(answers);
    column->setContentsMargins(16, 0, 16, 16);
    column->setSpacing(8);
    const auto add = [this, column](const QString& text, DailyTabModel::AlertResponse response) {
        auto* button = new Button(text);
        connect(button, &Button::clicked, &m_model, [this, response] { m_model.respondToAlert(response); });
        column->addWidget(button);
    };
    add(tr("Intentional change"), DailyTabModel::AlertResponse::IntentionalChange);
    add(tr("Refocusing now"), DailyTabModel::AlertResponse::Refocusing);
    add(tr("Snooze"), DailyTabModel::AlertResponse::Snooze);
    return answers;
}

void FocusCheckSheet::showAlert()
{
    m_planned->setText(m_model.alertPlanned());
    m_actual->setText(m_model.alertActual());
}

} // namespace flitmark

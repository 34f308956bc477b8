// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/Button.h>
#include <ui/Label.h>
#include <ui/OrdinaryWindow.h>
#include <ui/QuestionWindow.h>
#include <ui/ThemeScope.h>

#include <QPainter>
#include <QVBoxLayout>

namespace flitmark {

namespace {

constexpr int margin = 24;
constexpr int textWidth = 384;

} // namespace

QuestionWindow::QuestionWindow(const Dialogs::Question& question, const Theme& theme)
    // On top, because nothing else answers while it is there.
    : QDialog(nullptr, closableWindow | Qt::Dialog | Qt::WindowStaysOnTopHint)
    , m_lastButton(question.buttons.size() - 1)
{
    setWindowTitle(question.message);
    setAccessibleDescription(question.details);
    setWindowModality(Qt::ApplicationModal);
    setFocusPolicy(Qt::ClickFocus);
    setFocus();
    ThemeScope::set(*this, theme);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(0);
    column->setSizeConstraint(QLayout::SetFixedSize);
    auto* message = new Label(question.message, TextRole::Title);
    auto* details = new Label(question.details);
    details->setColor(&Theme::text2);
    for (Label* label : {message, details}) {
        label->setWordWrap(true);
        label->setFixedWidth(scaled(textWidth));
    }
    column->addWidget(message);
    column->addSpacing(8);
    column->addWidget(details);
    column->addSpacing(margin);
    column->addLayout(makeButtons(question.buttons));
}

QLayout* QuestionWindow::makeButtons(const QStringList& buttons)
{
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    // The first one stands at the end of the row, and the first Tab leads to it.
    for (qsizetype i = 0; i < buttons.size(); ++i) {
        auto* button = new Button(buttons.at(i), i == 0 ? ButtonKind::Filled : ButtonKind::Soft, this);
        button->setDefault(i == 0);
        row->insertWidget(0, button);
        connect(button, &Button::clicked, this, [this, i] { answer(i); });
    }
    row->insertStretch(0);
    return row;
}

void QuestionWindow::showCentered()
{
    centreOnScreen(*this);
    makeKeyAndOrderFront(*this);
}

void QuestionWindow::reject()
{
    answer(m_lastButton);
}

void QuestionWindow::answer(qsizetype button)
{
    if (!m_isAnswered) {
        m_isAnswered = true;
        hide();
        Q_EMIT answered(button);
    }
}

void QuestionWindow::paintEvent(QPaintEvent* event)
{
    QPainter(this).fillRect(event->rect(), ThemeScope::of(*this).background);
}

} // namespace flitmark

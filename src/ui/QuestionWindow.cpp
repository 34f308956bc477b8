// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/OnThisComputer.h>
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

QuestionWindow::QuestionWindow(const Dialogs::Question& question, ColorPalette palette, RunLoop& runLoop,
                               QWidget* parent)
    // On top, because nothing else answers while it is there.
    : QDialog(parent, closableWindow | Qt::Dialog | Qt::WindowStaysOnTopHint)
    , m_scheme(*this, palette)
    , m_keyPause(*this, runLoop)
    , m_lastButton(question.buttons.size() - 1)
{
    setWindowTitle(question.message);
    setAccessibleDescription(question.details);
    setWindowModality(parent != nullptr ? Qt::WindowModal : Qt::ApplicationModal);
    setFocusPolicy(Qt::ClickFocus);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(0);
    column->setSizeConstraint(QLayout::SetFixedSize);
    auto* message = new Label(question.message, TextRole::Title);
    auto* details = new Label(question.details);
    for (Label* label : {message, details}) {
        label->setWordWrap(true);
        label->setFixedWidth(scaled(textWidth));
    }
    details->setColor(&Theme::text2);
    column->addWidget(message);
    column->addSpacing(8);
    column->addWidget(details);
    if (question.hotkey != nullptr) {
        column->addWidget(makeHotkeyLine(*question.hotkey));
    }
    column->addSpacing(margin);
    column->addLayout(makeButtons(question.buttons));
}

QWidget* QuestionWindow::makeHotkeyLine(const KeyMonitor& hotkey)
{
    auto* line = new Label({}, TextRole::Caption);
    line->setColor(&Theme::text2);
    line->setWordWrap(true);
    line->setFixedWidth(scaled(textWidth));
    line->setContentsMargins(0, 8, 0, 0);
    const auto showState = [this, line, &hotkey, details = accessibleDescription()] {
        line->setText(onThisComputer::hotkeyToPress(hotkey.state()));
        setAccessibleDescription(details + u' ' + line->text());
    };
    showState();
    connect(&hotkey, &KeyMonitor::stateChanged, line, showState);
    return line;
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
    m_keyPause.begin();
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

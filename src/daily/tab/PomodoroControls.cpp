// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/NoteLines.h>
#include <daily/tab/DailyTabModel.h>
#include <daily/tab/PomodoroControls.h>
#include <ui/IconButton.h>
#include <ui/Painting.h>
#include <ui/ReadingMargins.h>
#include <ui/ThemeScope.h>

#include <QHBoxLayout>

namespace flitmark {

namespace {

constexpr int edge = 8;
constexpr int tomatoPoints = 14;
constexpr int gap = 4;
constexpr int dotSize = 8;

/// The width kept for the tomato.
int tomatoWidth()
{
    return scaled(tomatoPoints) + gap;
}

} // namespace

PomodoroControls::PomodoroControls(DailyTabModel& model)
    : m_model(model)
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(readingMargins(edge + tomatoWidth() + gap + dotSize + 2 * gap, 0, 2, 0));
    row->setSpacing(gap);
    setFixedHeight(controlHeight());
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);

    m_pause = addButton(tr("Pause"), QStringLiteral("pause.fill"));
    connect(m_pause, &IconButton::clicked, &model, &DailyTabModel::pauseOrResume);
    connect(addButton(tr("Reset timer"), QStringLiteral("arrow.counterclockwise")), &IconButton::clicked, &model,
            &DailyTabModel::resetTimer);
    IconButton* stop = addButton(tr("Stop & remove from task"), QStringLiteral("stop.fill"));
    stop->setColor(&Theme::red, 0.8);
    connect(stop, &IconButton::clicked, &model, &DailyTabModel::stopPomodoro);

    connect(&model, &DailyTabModel::timerStateChanged, this, &PomodoroControls::showState);
    showState();
}

IconButton* PomodoroControls::addButton(const QString& name, const QString& symbol)
{
    auto* button = new IconButton(name, IconButtonSize::Small);
    button->setSymbol(symbol);
    layout()->addWidget(button);
    return button;
}

void PomodoroControls::takeKeyboard()
{
    m_pause->setFocus();
}

void PomodoroControls::showState()
{
    const bool isPaused = m_model.isTimerPaused();
    m_pause->setName(isPaused ? tr("Resume") : tr("Pause"));
    m_pause->setSymbol(isPaused ? QStringLiteral("play.fill") : QStringLiteral("pause.fill"));
    update();
}

void PomodoroControls::paintEvent(QPaintEvent* /*event*/)
{
    const Theme& theme = ThemeScope::of(*this);
    QPainter painter(this);
    painting::fillRounded(painter, rect(), painting::controlRadius, theme.soft);
    const QRectF tomatoBox(edge, 0, tomatoWidth(), height());
    painting::drawIconText(painter, tomatoBox, tomato.toString(), tomatoPoints, theme.text);
    const QRectF dot(tomatoBox.right() + gap, (height() - dotSize) / 2.0, dotSize, dotSize);
    painting::fillRounded(painter, dot, dotSize / 2.0, m_model.isTimerPaused() ? theme.orange : theme.green);
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/Motion.h>
#include <ui/Spinner.h>
#include <ui/ThemeScope.h>

#include <QPainter>

namespace flitmark {

namespace {

constexpr int side = 20;
constexpr double stroke = 2;
constexpr double arcDegrees = 270;
constexpr int turnMilliseconds = 1000;

/// The units of QPainter's angles, which run against the clock.
constexpr double unitsPerDegree = 16;

} // namespace

Spinner::Spinner(QWidget* parent)
    : QWidget(parent)
{
    setFixedSize(side, side);
    m_turn.setStartValue(0.0);
    m_turn.setEndValue(360.0);
    m_turn.setDuration(turnMilliseconds);
    m_turn.setLoopCount(-1);
    connect(&m_turn, &QVariantAnimation::valueChanged, this, qOverload<>(&QWidget::update));
}

void Spinner::showEvent(QShowEvent* /*event*/)
{
    if (motion::isWanted()) {
        m_turn.start();
    }
}

void Spinner::hideEvent(QHideEvent* /*event*/)
{
    m_turn.stop();
}

void Spinner::paintEvent(QPaintEvent* /*event*/)
{
    const double angle = 90 - m_turn.currentValue().toDouble();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ThemeScope::of(*this).mark, stroke, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(QRectF(rect()).adjusted(stroke, stroke, -stroke, -stroke), qRound(angle * unitsPerDegree),
                    qRound(-arcDegrees * unitsPerDegree));
}

} // namespace flitmark

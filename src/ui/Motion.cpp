// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/Motion.h>

#include <QApplication>
#include <QStyle>

#include <utility>

namespace flitmark {

namespace {

motion::Setting& currentSetting()
{
    static auto setting = motion::Setting::AsDesktop;
    return setting;
}

} // namespace

bool motion::isWanted()
{
    return currentSetting() == Setting::AsDesktop &&
           QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration) > 0;
}

void motion::set(Setting setting)
{
    currentSetting() = setting;
}

int motion::duration(int milliseconds)
{
    return isWanted() ? milliseconds : 0;
}

Glide::Glide(std::function<void()> onChange)
    : m_onChange(std::move(onChange))
{
}

void Glide::moveTo(double target, int milliseconds)
{
    if (qFuzzyCompare(1 + target, 1 + m_target)) {
        return;
    }
    const int duration = motion::duration(milliseconds);
    if (duration == 0) {
        jumpTo(target);
        return;
    }
    m_target = target;
    if (!m_animation) {
        m_animation = std::make_unique<QVariantAnimation>();
        m_animation->setEasingCurve(QEasingCurve::OutCubic);
        QObject::connect(m_animation.get(), &QVariantAnimation::valueChanged, m_animation.get(),
                         [this](const QVariant& value) { change(value.toDouble()); });
    }
    m_animation->stop();
    m_animation->setDuration(duration);
    m_animation->setStartValue(m_value);
    m_animation->setEndValue(target);
    m_animation->start();
}

void Glide::jumpTo(double target)
{
    if (m_animation) {
        m_animation->stop();
    }
    m_target = target;
    change(target);
}

void Glide::change(double value)
{
    if (!qFuzzyCompare(1 + value, 1 + m_value)) {
        m_value = value;
        m_onChange();
    }
}

} // namespace flitmark

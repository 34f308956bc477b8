// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/Motion.h>
#include <ui/RiseIn.h>
#include <ui/ThemeScope.h>

#include <QPainter>
#include <QPointer>
#include <QVariantAnimation>
#include <QWidget>

namespace flitmark {

namespace {

constexpr double rise = 8;

/// Lies over the page with a picture of it, which moves in place of the page, and ends itself.
class Curtain final : public QWidget
{
public:
    explicit Curtain(QWidget& page)
        : QWidget(&page)
        , m_picture(page.grab())
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setGeometry(page.rect());
        m_animation.setDuration(motion::duration(motion::stepMilliseconds));
        m_animation.setStartValue(0.0);
        m_animation.setEndValue(1.0);
        m_animation.setEasingCurve(QEasingCurve::OutCubic);
        connect(&m_animation, &QVariantAnimation::valueChanged, this, [this] { update(); });
        connect(&m_animation, &QVariantAnimation::finished, this, &QObject::deleteLater);
        m_animation.start();
        show();
        raise();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        const double shown = m_animation.currentValue().toDouble();
        QPainter painter(this);
        painter.fillRect(rect(), ThemeScope::of(*this).background);
        painter.setOpacity(shown);
        painter.drawPixmap(QPointF(0, rise * (1 - shown)), m_picture);
    }

private:
    QPixmap m_picture;
    QVariantAnimation m_animation;
};

} // namespace

void riseIn(QWidget& page)
{
    if (page.isVisible() && motion::isWanted()) {
        new Curtain(page);
    }
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/ScrollArea.h>
#include <ui/ThinScrollBar.h>

#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace flitmark {

namespace {

/// What stays visible above and below the focused widget.
constexpr int focusMargin = 8;

} // namespace

ScrollArea::ScrollArea(QWidget* parent)
    : QScrollArea(parent)
    , m_bar(new ThinScrollBar(*verticalScrollBar(), this))
{
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    verticalScrollBar()->setSingleStep(20);
    viewport()->setAutoFillBackground(false);
    setAutoFillBackground(false);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { revealFocus(now); });
}

void ScrollArea::setWidget(QWidget* content)
{
    QScrollArea::setWidget(content);
    content->setAutoFillBackground(false);
}

QSize ScrollArea::sizeHint() const
{
    return widget() != nullptr ? widget()->sizeHint() : QScrollArea::sizeHint();
}

bool ScrollArea::scrollBy(int key)
{
    QScrollBar* bar = verticalScrollBar();
    switch (key) {
    case Qt::Key_Up:
        bar->triggerAction(QAbstractSlider::SliderSingleStepSub);
        return true;
    case Qt::Key_Down:
        bar->triggerAction(QAbstractSlider::SliderSingleStepAdd);
        return true;
    case Qt::Key_PageUp:
        bar->triggerAction(QAbstractSlider::SliderPageStepSub);
        return true;
    case Qt::Key_PageDown:
        bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
        return true;
    case Qt::Key_Home:
        bar->triggerAction(QAbstractSlider::SliderToMinimum);
        return true;
    case Qt::Key_End:
        bar->triggerAction(QAbstractSlider::SliderToMaximum);
        return true;
    default:
        return false;
    }
}

void ScrollArea::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    m_bar->placeIn(rect());
}

void ScrollArea::revealFocus(const QWidget* focused)
{
    // A click has the widget under the pointer already: nothing may move away below it.
    const bool isClick = QApplication::mouseButtons() != Qt::NoButton;
    if (focused == nullptr || isClick || widget() == nullptr || !widget()->isAncestorOf(focused)) {
        return;
    }
    const int top = focused->mapTo(widget(), QPoint()).y();
    ensureVisible(0, top + focused->height() / 2, 0, focused->height() / 2 + focusMargin);
}

} // namespace flitmark

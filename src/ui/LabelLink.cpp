// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/AccessibleRole.h>
#include <ui/ControlState.h>
#include <ui/Label.h>
#include <ui/LabelLink.h>
#include <ui/Painting.h>
#include <ui/ThemeScope.h>

#include <QEvent>
#include <QKeyEvent>

namespace flitmark {

namespace {

constexpr double linkRadius = 4;

} // namespace

LabelLink::LabelLink(Label& label, qsizetype start, qsizetype length)
    : QAbstractButton(&label)
    , m_label(label)
    , m_state(*new ControlState(*this))
    , m_start(start)
    , m_length(length)
{
    setAccessibleRole(*this, QAccessible::Link);
    setAccessibleName(label.text().sliced(start, length));
    setCursor(Qt::PointingHandCursor);
    label.installEventFilter(this);
    follow();
    show();
}

void LabelLink::follow()
{
    setGeometry(m_label.rectOf(m_start, m_length));
}

bool LabelLink::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::FontChange || event->type() == QEvent::Show) {
        follow();
    }
    return QAbstractButton::eventFilter(watched, event);
}

void LabelLink::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

void LabelLink::paintEvent(QPaintEvent* /*event*/)
{
    const Theme& theme = ThemeScope::of(*this);
    QPainter painter(this);
    painting::fillRounded(painter, rect(), linkRadius, painting::stateLayer(theme, m_state.level()));
    if (m_state.showsFocus()) {
        painting::strokeRounded(painter, rect(), linkRadius, painting::focusWidth, theme.mark);
    }
}

} // namespace flitmark

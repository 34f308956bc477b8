// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/RepeatFilter.h>

#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTextEdit>

namespace flitmark {

namespace {

/// In milliseconds. Clicks that follow each other more slowly may both be meant.
constexpr quint64 longestDoubleClick = 250;

/// Whether the key does something in `receiver` that a held key must not do again.
bool isAct(const QKeyEvent& key, const QWidget& receiver)
{
    const bool isEditor = qobject_cast<const QTextEdit*>(&receiver) != nullptr;
    switch (key.key()) {
    case Qt::Key_Escape:
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return !isEditor || key.modifiers().testFlag(Qt::ControlModifier);
    case Qt::Key_Space:
        return !isEditor && qobject_cast<const QLineEdit*>(&receiver) == nullptr;
    default:
        return false;
    }
}

/// Whether a click presses `widget` without changing its state, which a second one would change back.
bool isPressed(const QWidget& widget)
{
    const auto* button = qobject_cast<const QPushButton*>(&widget);
    return button != nullptr && !button->isCheckable();
}

} // namespace

bool RepeatFilter::eventFilter(QObject* watched, QEvent* event)
{
    auto* widget = qobject_cast<QWidget*>(watched);
    switch (event->type()) {
    case QEvent::KeyRelease: {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        m_releasedKey = key.nativeScanCode();
        m_releaseTime = key.timestamp();
        return false;
    }
    case QEvent::ShortcutOverride:
        if (isHeld(static_cast<const QKeyEvent&>(*event))) {
            // No shortcut: it comes back as a key.
            event->accept();
            return true;
        }
        return false;
    case QEvent::KeyPress: {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        return widget != nullptr && isAct(key, *widget) && isHeld(key);
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return widget != nullptr && isSecondClick(*widget, static_cast<const QMouseEvent&>(*event));
    default:
        return false;
    }
}

/// X11 repeats a held key as a release and a press of the same moment. Qt takes them for a new press where the second
/// one is not there yet when it looks at the first.
bool RepeatFilter::isHeld(const QKeyEvent& key) const
{
    const bool isSameMoment = key.timestamp() != 0 && key.timestamp() == m_releaseTime;
    return key.isAutoRepeat() || (isSameMoment && key.nativeScanCode() == m_releasedKey);
}

/// The second click of a double click belongs to what the first one was on. What took its place meanwhile was not
/// meant.
bool RepeatFilter::isSecondClick(QWidget& watched, const QMouseEvent& click)
{
    if (click.timestamp() == m_clickTime) {
        // On its way up from what was clicked.
        return false;
    }
    const bool isSecond =
        click.type() == QEvent::MouseButtonDblClick && click.timestamp() - m_clickTime <= longestDoubleClick;
    const bool isElsewhere = m_clicked != &watched;
    m_clicked = &watched;
    m_clickTime = click.timestamp();
    return isSecond && (isElsewhere || isPressed(watched));
}

} // namespace flitmark

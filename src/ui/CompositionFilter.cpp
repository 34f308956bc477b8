// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/CompositionFilter.h>

#include <QCoreApplication>
#include <QGuiApplication>
#include <QInputMethod>
#include <QKeyEvent>
#include <QWidget>

namespace flitmark {

bool CompositionFilter::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::InputMethod) {
        m_composed = static_cast<const QInputMethodEvent*>(event)->preeditString();
        m_field = m_composed.isEmpty() ? nullptr : watched;
        return false;
    }
    if (m_field.isNull()) {
        return false;
    }
    switch (event->type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
        return filterKey(static_cast<const QKeyEvent&>(*event), *event);
    case QEvent::FocusAboutToChange:
    // Under X11 a hidden window hears only later that the keyboard is gone.
    case QEvent::Hide: {
        const auto* field = qobject_cast<const QWidget*>(m_field.data());
        const auto* widget = qobject_cast<const QWidget*>(watched);
        if (widget != nullptr && field != nullptr && (widget == field || widget->isAncestorOf(field))) {
            takeOver();
        }
        return false;
    }
    default:
        return false;
    }
}

bool CompositionFilter::filterKey(const QKeyEvent& key, QEvent& event)
{
    const bool isPlain = (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const bool isEscape = isPlain && key.key() == Qt::Key_Escape;
    const bool isReturn = isPlain && (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter);
    if (isEscape || isReturn) {
        if (event.type() == QEvent::ShortcutOverride) {
            // No shortcut: it comes back as a key.
            event.accept();
        } else if (isEscape) {
            giveUp();
        } else {
            takeOver();
        }
        return true;
    }
    if (key.modifiers().testFlag(Qt::ControlModifier)) {
        takeOver();
    }
    return false;
}

void CompositionFilter::takeOver()
{
    const QString composed = m_composed;
    // The input method's own text may differ from what is shown of it.
    QGuiApplication::inputMethod()->commit();
    if (!m_field.isNull()) {
        replaceBy(composed);
    }
}

void CompositionFilter::giveUp()
{
    QGuiApplication::inputMethod()->reset();
    if (!m_field.isNull()) {
        replaceBy({});
    }
}

void CompositionFilter::replaceBy(const QString& text)
{
    QInputMethodEvent end;
    end.setCommitString(text);
    QCoreApplication::sendEvent(m_field, &end);
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/CompositionFilter.h>

#include <QCoreApplication>
#include <QGuiApplication>
#include <QInputMethod>
#include <QKeyEvent>
#include <QWidget>

namespace flitmark {

namespace {

bool isPlain(const QKeyEvent& key)
{
    return (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

bool isEscape(const QKeyEvent& key)
{
    return isPlain(key) && key.key() == Qt::Key_Escape;
}

} // namespace

bool CompositionFilter::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::InputMethod) {
        const auto& input = static_cast<const QInputMethodEvent&>(*event);
        if (isRepeated(input)) {
            return true;
        }
        m_field = input.preeditString().isEmpty() ? nullptr : watched;
        // Some take the composition away before they commit it.
        if (m_field != nullptr || !input.commitString().isEmpty()) {
            m_composed = input.preeditString();
        }
        return false;
    }
    if (event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyRelease) {
        // Nothing came since the composition ended: this key has ended it.
        m_isEscapeSpent = !m_ended.isEmpty() && isEscape(static_cast<const QKeyEvent&>(*event));
        m_ended.clear();
    }
    if (m_isEscapeSpent && (event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress)) {
        event->accept();
        return true;
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

/// What Qt has taken over it also tells IBus to forget, which many of its engines answer by handing in the same text
/// once more, before any other key arrives.
bool CompositionFilter::isRepeated(const QInputMethodEvent& input)
{
    if (!input.preeditString().isEmpty()) {
        m_ended.clear();
        return false;
    }
    if (input.commitString().isEmpty()) {
        return false;
    }
    const bool isRepeated = input.commitString() == m_ended;
    m_ended = !isRepeated && input.commitString() == m_composed ? m_composed : QString();
    return isRepeated;
}

bool CompositionFilter::filterKey(const QKeyEvent& key, QEvent& event)
{
    const bool isReturn = isPlain(key) && (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter);
    if (isEscape(key) || isReturn) {
        if (event.type() == QEvent::ShortcutOverride) {
            // No shortcut: it comes back as a key.
            event.accept();
        } else if (isEscape(key)) {
            giveUp();
        } else {
            takeOver();
        }
        return true;
    }
    // Ctrl alone may be the beginning of a key of the input method's own.
    if (key.modifiers().testFlag(Qt::ControlModifier) && key.key() != Qt::Key_Control) {
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
    const QString composed = m_composed;
    QGuiApplication::inputMethod()->reset();
    if (!m_field.isNull()) {
        replaceBy({});
    }
    m_ended = composed;
}

void CompositionFilter::replaceBy(const QString& text)
{
    QInputMethodEvent end;
    end.setCommitString(text);
    QCoreApplication::sendEvent(m_field, &end);
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/KeyPause.h>

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

namespace flitmark {

namespace {

using namespace std::chrono_literals;

constexpr RunLoop::Duration pauseLength = 500ms;

} // namespace

KeyPause::KeyPause(QWidget& window, RunLoop& runLoop)
    : m_window(window)
    , m_runLoop(runLoop)
{
}

void KeyPause::begin()
{
    m_window.setFocus(Qt::OtherFocusReason);
    // On the application: every key to any control of the window has to come by.
    QCoreApplication::instance()->installEventFilter(this);
    m_timer = m_runLoop.every(pauseLength, [this] {
        QCoreApplication::instance()->removeEventFilter(this);
        m_timer.reset();
    });
}

bool KeyPause::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::InputMethod:
        break;
    default:
        return false;
    }
    const auto* widget = qobject_cast<const QWidget*>(watched);
    if (widget == nullptr || widget->window() != &m_window) {
        return false;
    }
    event->accept();
    return true;
}

} // namespace flitmark

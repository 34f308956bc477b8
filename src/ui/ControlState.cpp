// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/ControlState.h>

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPushButton>

namespace flitmark {

namespace {

/// What Return is to a control.
enum class ReturnKey { Another, Clicks, IsForTheView };

ReturnKey returnKeyOf(QWidget& control, const QKeyEvent& event)
{
    auto* button = qobject_cast<QAbstractButton*>(&control);
    if (button == nullptr || (event.key() != Qt::Key_Return && event.key() != Qt::Key_Enter)) {
        return ReturnKey::Another;
    }
    const bool isAlone = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const bool isToCheck = button->isCheckable() && button->group() == nullptr;
    return qobject_cast<QPushButton*>(button) != nullptr && isAlone && !isToCheck ? ReturnKey::Clicks
                                                                                  : ReturnKey::IsForTheView;
}

} // namespace

ControlState::ControlState(QWidget& control)
    : QObject(&control)
    , m_control(control)
    , m_level([this] { m_control.update(); })
{
    control.installEventFilter(this);
    if (auto* button = qobject_cast<QAbstractButton*>(&control)) {
        const auto follow = [this, button] {
            m_isPressed = button->isDown();
            refresh();
        };
        connect(button, &QAbstractButton::pressed, this, follow);
        connect(button, &QAbstractButton::released, this, follow);
    }
}

bool ControlState::showsFocus() const
{
    return m_appearance == Appearance::Live ? m_isFocusedByKey && m_control.hasFocus()
                                            : m_appearance == Appearance::Focused;
}

bool ControlState::hasFocus() const
{
    return m_appearance == Appearance::Live ? m_control.hasFocus() : m_appearance == Appearance::Focused;
}

void ControlState::setAppearance(Appearance appearance)
{
    m_appearance = appearance;
    m_level.jumpTo(wantedLevel());
    m_control.update();
}

bool ControlState::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Enter:
        m_isHovered = true;
        refresh();
        break;
    case QEvent::Leave:
    case QEvent::Hide:
        m_isHovered = false;
        refresh();
        break;
    case QEvent::EnabledChange:
        refresh();
        break;
    case QEvent::FocusIn:
        handleFocusIn(static_cast<QFocusEvent*>(event)->reason());
        break;
    case QEvent::FocusOut:
        // The focus returns with its window or menu: it is still the keyboard's then.
        m_control.update();
        break;
    case QEvent::KeyPress:
        if (!m_isFocusedByKey && m_control.hasFocus()) {
            m_isFocusedByKey = true;
            m_control.update();
        }
        return handleReturn(*static_cast<QKeyEvent*>(event));
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void ControlState::handleFocusIn(Qt::FocusReason reason)
{
    switch (reason) {
    case Qt::TabFocusReason:
    case Qt::BacktabFocusReason:
    case Qt::ShortcutFocusReason:
        m_isFocusedByKey = true;
        break;
    case Qt::ActiveWindowFocusReason:
    case Qt::PopupFocusReason:
    case Qt::MenuBarFocusReason:
        break;
    default:
        m_isFocusedByKey = false;
        break;
    }
    m_control.update();
}

bool ControlState::handleReturn(QKeyEvent& event)
{
    switch (returnKeyOf(m_control, event)) {
    case ReturnKey::Another:
        return false;
    case ReturnKey::Clicks:
        static_cast<QAbstractButton&>(m_control).click();
        return true;
    case ReturnKey::IsForTheView:
        // Some desktops have Qt press every kind of button by it, which would keep it from the view.
        event.ignore();
        return true;
    }
    return false;
}

void ControlState::refresh()
{
    m_level.moveTo(wantedLevel());
}

double ControlState::wantedLevel() const
{
    if (!m_control.isEnabled()) {
        return 0;
    }
    switch (m_appearance) {
    case Appearance::Live:
        return m_isPressed ? 2 : m_isHovered ? 1 : 0;
    case Appearance::Hovered:
        return 1;
    case Appearance::Pressed:
        return 2;
    case Appearance::Rest:
    case Appearance::Focused:
        break;
    }
    return 0;
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/TriggerButtonView.h>
#include <app/TriggerButtonWindow.h>
#include <platform/WindowManager.h>
#include <ui/AccessibleRole.h>

#include <QWindow>

namespace flitmark {

TriggerButtonWindow::TriggerButtonWindow(WindowManager& windowManager, RunLoop& runLoop)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus |
                           Qt::NoDropShadowWindowHint)
    , m_windowManager(windowManager)
    , m_view(new TriggerButtonView(runLoop, this))
{
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowTitle(tr("Flitmark Button"));
    setAccessibleRole(*this, QAccessible::Window);
    setFixedSize(m_view->size());
    connect(m_view, &TriggerButtonView::isTimerActiveChanged, this, &TriggerButtonWindow::followCompositor);
}

void TriggerButtonWindow::followCompositor()
{
    if (m_windowManager.isCompositing()) {
        clearMask();
        m_view->setGround(TriggerButtonView::Ground::Transparent);
    } else {
        setMask(m_view->opaqueShape());
        m_view->setGround(TriggerButtonView::Ground::Opaque);
    }
}

void TriggerButtonWindow::orderFront()
{
    followCompositor();
    winId();
    m_windowManager.makeCompanion(*windowHandle());
    show();
    raise();
}

void TriggerButtonWindow::moveEvent(QMoveEvent*)
{
    Q_EMIT moved();
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/AccessibleRole.h>
#include <ui/FloatingWindow.h>
#include <ui/Shadow.h>
#include <ui/ThemeScope.h>

#include <QApplication>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyleHints>
#include <QWindow>

namespace flitmark {

/// A strip along an edge, or a square in a corner, that resizes the window. It lies above the content and shows nothing
/// but its cursor.
class FloatingWindow::Grip final : public QWidget
{
public:
    Grip(FloatingWindow* window, Qt::Edges edges)
        : QWidget(window)
        , m_edges(edges)
    {
        const bool isVertical = edges.testAnyFlags(Qt::TopEdge | Qt::BottomEdge);
        const bool isHorizontal = edges.testAnyFlags(Qt::LeftEdge | Qt::RightEdge);
        if (isVertical && isHorizontal) {
            const bool falls = edges == (Qt::TopEdge | Qt::LeftEdge) || edges == (Qt::BottomEdge | Qt::RightEdge);
            setCursor(falls ? Qt::SizeFDiagCursor : Qt::SizeBDiagCursor);
        } else {
            setCursor(isVertical ? Qt::SizeVerCursor : Qt::SizeHorCursor);
        }
    }

    void place(const QRect& frame)
    {
        constexpr int thickness = 4;
        constexpr int corner = 12;
        const bool isCorner =
            m_edges.testAnyFlags(Qt::TopEdge | Qt::BottomEdge) && m_edges.testAnyFlags(Qt::LeftEdge | Qt::RightEdge);
        QRect area = frame;
        const int reach = isCorner ? corner : thickness;
        if (m_edges.testFlag(Qt::LeftEdge)) {
            area.setWidth(reach);
        }
        if (m_edges.testFlag(Qt::RightEdge)) {
            area.setLeft(area.right() - reach + 1);
        }
        if (m_edges.testFlag(Qt::TopEdge)) {
            area.setHeight(reach);
        }
        if (m_edges.testFlag(Qt::BottomEdge)) {
            area.setTop(area.bottom() - reach + 1);
        }
        setGeometry(area);
    }

protected:
    void mousePressEvent(QMouseEvent* event) override
    {
        if (event->button() == Qt::LeftButton) {
            window()->windowHandle()->startSystemResize(m_edges);
        }
    }

private:
    Qt::Edges m_edges;
};

FloatingWindow::FloatingWindow(WindowManager& windowManager, Resizing resizing)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::NoDropShadowWindowHint)
    , m_windowManager(windowManager)
    , m_content(new QWidget(this))
{
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_QuitOnClose, false);
    setAccessibleRole(*this, QAccessible::Window);
    if (resizing == Resizing::ByEdges) {
        // Edges first, so that the corners lie above them.
        for (const Qt::Edges edges : std::initializer_list<Qt::Edges>{
                 Qt::LeftEdge, Qt::RightEdge, Qt::TopEdge, Qt::BottomEdge, Qt::TopEdge | Qt::LeftEdge,
                 Qt::TopEdge | Qt::RightEdge, Qt::BottomEdge | Qt::LeftEdge, Qt::BottomEdge | Qt::RightEdge}) {
            m_grips.append(new Grip(this, edges));
        }
    }
    followCompositor();
}

FloatingWindow::~FloatingWindow() = default;

QRect FloatingWindow::frameRect() const
{
    return geometry().marginsRemoved(margins());
}

void FloatingWindow::setFrameRect(const QRect& frame)
{
    setGeometry(frame.marginsAdded(margins()));
}

void FloatingWindow::setLevel(Level level)
{
    Qt::WindowFlags flags = windowFlags();
    flags.setFlag(Qt::WindowStaysOnTopHint, level == Level::Floating);
    // Not by QWidget's own setter, which would hide the window.
    overrideWindowFlags(flags);
    if (windowHandle() != nullptr) {
        windowHandle()->setFlags(flags);
    }
}

void FloatingWindow::setFrameLimits(const QSize& minimum, const QSize& maximum)
{
    m_minimum = minimum;
    m_maximum = maximum;
    setMinimumSize(minimum.grownBy(margins()));
    setMaximumSize(maximum.grownBy(margins()));
}

void FloatingWindow::showCompanion()
{
    followCompositor();
    winId();
    m_windowManager.makeCompanion(*windowHandle());
    show();
    raise();
}

void FloatingWindow::makeKey()
{
    const WindowManager::WindowId active = m_windowManager.activeWindow();
    if (!isVisible() || active != winId()) {
        m_previousWindow = active == winId() ? 0 : active;
    }
    showCompanion();
    activateWindow();
    regainActivity();
}

void FloatingWindow::regainActivity()
{
    // For a moment after a window was hidden Qt waits for another one to get the keyboard, and then takes the hidden
    // one for the window that has it still. Shown again in that moment it would get the keys, but no caret and no
    // focus.
    if (QGuiApplication::focusWindow() == windowHandle() && !isActiveWindow()) {
        QT_WARNING_PUSH
        QT_WARNING_DISABLE_DEPRECATED
        QApplication::setActiveWindow(this);
        QT_WARNING_POP
    }
}

void FloatingWindow::orderOut()
{
    // Only a window that has the keyboard has it to give back: the user may have moved on to another one.
    if (isVisible() && m_previousWindow != 0 && m_windowManager.activeWindow() == winId()) {
        m_windowManager.activate(m_previousWindow);
    }
    m_previousWindow = 0;
    hide();
}

void FloatingWindow::followCompositor()
{
    const int margin = m_windowManager.isCompositing() ? shadowReach : 0;
    if (margin != m_margin) {
        const QRect frame = frameRect();
        m_margin = margin;
        if (m_maximum.isValid()) {
            setFrameLimits(m_minimum, m_maximum);
        }
        setFrameRect(frame);
    }
    layOut();
}

void FloatingWindow::layOut()
{
    const QRect frame = rect().marginsRemoved(margins());
    m_content->setGeometry(frame);
    for (Grip* grip : std::as_const(m_grips)) {
        grip->place(frame);
        grip->raise();
    }
    if (m_margin == 0) {
        QPainterPath path;
        path.addRoundedRect(rect(), frameRadius, frameRadius);
        setMask(QRegion(path.toFillPolygon().toPolygon()));
    } else {
        clearMask();
        if (windowHandle() != nullptr) {
            m_windowManager.setInputArea(*windowHandle(), frame);
        }
    }
}

void FloatingWindow::paintEvent(QPaintEvent*)
{
    const Theme& theme = ThemeScope::of(*this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF frame = QRectF(rect().marginsRemoved(margins()));
    if (m_margin > 0) {
        drawShadow(painter, frame, frameRadius);
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme.background);
    painter.drawRoundedRect(frame, m_margin > 0 ? frameRadius : 0, m_margin > 0 ? frameRadius : 0);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(m_margin > 0 ? theme.hair : theme.edge, 1));
    painter.drawRoundedRect(frame.adjusted(0.5, 0.5, -0.5, -0.5), frameRadius - 0.5, frameRadius - 0.5);
}

void FloatingWindow::resizeEvent(QResizeEvent*)
{
    layOut();
    Q_EMIT frameChanged();
}

void FloatingWindow::moveEvent(QMoveEvent*)
{
    Q_EMIT frameChanged();
}

void FloatingWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    Q_EMIT closeAsked();
}

void FloatingWindow::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        m_pressed = event->position().toPoint();
    }
}

void FloatingWindow::mouseMoveEvent(QMouseEvent* event)
{
    // The desktop takes the move over at the first real movement; taken at the press it would swallow clicks.
    if (m_pressed && (event->position().toPoint() - *m_pressed).manhattanLength() >=
                         QGuiApplication::styleHints()->startDragDistance()) {
        m_pressed.reset();
        windowHandle()->startSystemMove();
    }
}

void FloatingWindow::mouseReleaseEvent(QMouseEvent*)
{
    m_pressed.reset();
}

} // namespace flitmark

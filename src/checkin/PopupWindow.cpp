// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <checkin/PopupWindow.h>
#include <platform/WindowManager.h>
#include <ui/AccessibleRole.h>
#include <ui/IconButton.h>
#include <ui/Label.h>
#include <ui/ReadingMargins.h>
#include <ui/Surfaces.h>

#include <QKeyEvent>
#include <QVBoxLayout>

namespace flitmark {

using namespace std::chrono_literals;

PopupWindow::PopupWindow(WindowManager& windowManager, RunLoop& runLoop, const Texts& texts, QWidget* body)
    : FloatingWindow(windowManager, Resizing::Fixed)
    , m_windowManager(windowManager)
    , m_runLoop(runLoop)
    , m_body(body)
    , m_keyPause(*this, runLoop)
{
    setWindowTitle(texts.windowTitle);
    setAccessibleRole(*this, QAccessible::Dialog);
    // The body comes first, so that the first Tab leads to its first control and the close button is the last one.
    body->setParent(content());
    auto* column = new QVBoxLayout(content());
    column->setContentsMargins({});
    column->setSpacing(0);
    QWidget* head = makeHead(texts.heading);
    column->addWidget(head);
    column->addWidget(body);
    column->addSpacing(8);
    column->addWidget(new Divider);
    column->addWidget(makeFoot());
    // Read in the order in which it is seen.
    head->lower();
    content()->installEventFilter(this);
    connect(this, &FloatingWindow::closeAsked, this, &PopupWindow::dismissed);
}

QWidget* PopupWindow::makeHead(const QString& heading)
{
    auto* head = new QWidget(content());
    auto* row = new QHBoxLayout(head);
    row->setContentsMargins(readingMargins(16, 12, 8, 8));
    row->setSpacing(8);
    auto* title = new Label(heading, TextRole::Heading);
    title->setWordWrap(true);
    row->addWidget(title, 1);
    m_badge = new Badge(QString(), Badge::Kind::Plain, head);
    m_badge->hide();
    row->addWidget(m_badge);
    auto* close = new IconButton(tr("Close"), IconButtonSize::Small);
    close->setSymbol(QStringLiteral("xmark"), 18);
    connect(close, &QPushButton::clicked, this, &PopupWindow::dismissed);
    row->addWidget(close);
    return head;
}

QWidget* PopupWindow::makeFoot()
{
    auto* foot = new QWidget(content());
    auto* row = new QHBoxLayout(foot);
    row->setContentsMargins(16, 8, 16, 12);
    m_time = new Label(QString(), TextRole::Caption);
    row->addWidget(m_time, 1);
    row->addWidget(new Label(tr("esc to close"), TextRole::Caption));
    showTime();
    return foot;
}

void PopupWindow::setBadge(const QString& text)
{
    m_badge->setText(text);
    m_badge->setVisible(!text.isEmpty());
}

QSize PopupWindow::fittingSize() const
{
    const QLayout& layout = *content()->layout();
    return {frameWidth, layout.hasHeightForWidth() ? layout.heightForWidth(frameWidth) : layout.sizeHint().height()};
}

void PopupWindow::fit()
{
    const QSize size = fittingSize();
    if (frameRect().size() != size) {
        const QPoint topLeft = frameRect().topLeft();
        setFrameLimits(size, size);
        setFrameRect(QRect(topLeft, size));
    }
}

void PopupWindow::makeKeyAndOrderFront()
{
    if (!isVisible() || !isActiveWindow()) {
        m_keyPause.begin();
    }
    fit();
    setAccessibleDescription(question());
    makeKey();
    // No act of the user asks for this window, and desktops refuse the keyboard to such a window unless told so.
    m_windowManager.activate(winId());
}

/// What the body says above its answers.
QString PopupWindow::question() const
{
    QStringList texts;
    for (const Label* label : m_body->findChildren<Label*>()) {
        if (label->isVisibleTo(this)) {
            texts.append(label->text());
        }
    }
    return texts.join(u' ');
}

void PopupWindow::showTime()
{
    m_time->setText(m_runLoop.now().toString(u"HH:mm"));
    if (isVisible()) {
        m_clock = m_runLoop.every(m_runLoop.untilNextMinute(), [this] { showTime(); });
    }
}

void PopupWindow::showEvent(QShowEvent* event)
{
    FloatingWindow::showEvent(event);
    showTime();
}

void PopupWindow::hideEvent(QHideEvent* event)
{
    m_clock.reset();
    FloatingWindow::hideEvent(event);
}

bool PopupWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == content() && event->type() == QEvent::LayoutRequest) {
        fit();
    }
    return FloatingWindow::eventFilter(watched, event);
}

void PopupWindow::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        Q_EMIT dismissed();
        break;
    case Qt::Key_Down:
        focusNextChild();
        break;
    case Qt::Key_Up:
        focusPreviousChild();
        break;
    default:
        FloatingWindow::keyPressEvent(event);
    }
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/AccessibleRole.h>
#include <ui/FloatingWindow.h>
#include <ui/IconButton.h>
#include <ui/Label.h>
#include <ui/Painting.h>
#include <ui/ReadingMargins.h>
#include <ui/RiseIn.h>
#include <ui/Sheet.h>
#include <ui/Surfaces.h>
#include <ui/ThemeScope.h>

#include <QApplication>
#include <QKeyEvent>
#include <QVBoxLayout>

namespace flitmark {

namespace {

constexpr double sheetRadius = 16;
constexpr float scrimOpacity = 0.45F;

/// The one shortcut that means the program.
bool isQuit(const QKeyEvent& key)
{
    return key.keyCombination() == QKeyCombination(Qt::ControlModifier, Qt::Key_Q);
}

} // namespace

class Sheet::Frame final : public QWidget
{
public:
    explicit Frame(QWidget* parent)
        : QWidget(parent)
    {
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        const Theme& theme = ThemeScope::of(*this);
        QPainter painter(this);
        painting::fillRounded(painter, rect(), sheetRadius, theme.background);
        painting::strokeRounded(painter, rect(), sheetRadius, 1, theme.hair);
    }
};

Sheet::Sheet(const QString& name, QWidget& host, int width, int height)
    : QWidget(&host)
    , m_host(host)
    , m_frame(new Frame(this))
    , m_content(new QVBoxLayout(m_frame))
{
    hide();
    setAccessibleName(name);
    setAccessibleRole(*this, QAccessible::Dialog);
    m_content->setContentsMargins({});
    m_content->setSpacing(0);
    m_frame->setFixedWidth(width);
    if (height > 0) {
        m_frame->setFixedHeight(height);
    }
    auto* centring = new QVBoxLayout(this);
    centring->setContentsMargins({});
    centring->addWidget(m_frame, 0, Qt::AlignCenter);
    host.installEventFilter(this);
}

QWidget* Sheet::makeHead(const QString& title, const QString& symbol) const
{
    auto* head = new QWidget;
    auto* row = new QHBoxLayout(head);
    row->setContentsMargins(readingMargins(16, 12, 8, 8));
    row->setSpacing(8);
    if (!symbol.isEmpty()) {
        row->addWidget(new SymbolView(symbol, 20, &Theme::orange));
    }
    row->addWidget(new Label(title, TextRole::Heading), 1);
    auto* cross = new IconButton(tr("Close"), IconButtonSize::Small);
    cross->setSymbol(QStringLiteral("xmark"), 18);
    connect(cross, &IconButton::clicked, this, &Sheet::closeAsked);
    row->addWidget(cross);
    return head;
}

void Sheet::open()
{
    if (isOpen()) {
        return;
    }
    m_previousFocus = m_host.window()->focusWidget();
    setGeometry(m_host.rect());
    raise();
    show();
    layout()->activate();
    riseIn(*m_frame);
    setFocus();
}

void Sheet::dismiss()
{
    if (!isOpen()) {
        return;
    }
    const QWidget* focused = window()->focusWidget();
    const bool hasKeyboard = focused == this || isAncestorOf(focused);
    if (hasKeyboard) {
        const bool canReturn =
            m_previousFocus != nullptr && m_previousFocus->isEnabled() && !m_previousFocus->isHidden();
        (canReturn ? m_previousFocus.data() : &m_host)->setFocus();
    }
    m_previousFocus.clear();
    hide();
}

bool Sheet::event(QEvent* event)
{
    // No shortcut works on what the sheet covers; they come back as keys.
    if (event->type() == QEvent::ShortcutOverride && !isQuit(static_cast<const QKeyEvent&>(*event))) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

bool Sheet::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &m_host && event->type() == QEvent::Resize) {
        setGeometry(m_host.rect());
    }
    return QWidget::eventFilter(watched, event);
}

void Sheet::keyPressEvent(QKeyEvent* event)
{
    // No key goes past the sheet.
    if (event->key() == Qt::Key_Escape) {
        Q_EMIT closeAsked();
    }
}

void Sheet::paintEvent(QPaintEvent* /*event*/)
{
    QColor scrim(Qt::black);
    scrim.setAlphaF(scrimOpacity);
    QPainter painter(this);
    // An ordinary window has its corners cut by the desktop, or not at all.
    const bool isRounded = qobject_cast<FloatingWindow*>(window()) != nullptr;
    painting::fillRounded(painter, rect(), isRounded ? sheetRadius : 0, scrim);
}

/// Tab walks round inside the sheet.
bool Sheet::focusNextPrevChild(bool next)
{
    QWidget* const start = window()->focusWidget() != nullptr ? window()->focusWidget() : this;
    const auto step = [next](QWidget* widget) {
        return next ? widget->nextInFocusChain() : widget->previousInFocusChain();
    };
    for (QWidget* widget = step(start); widget != start; widget = step(widget)) {
        if ((widget->focusPolicy() & Qt::TabFocus) != 0 && isAncestorOf(widget) && widget->isVisible() &&
            widget->isEnabled()) {
            widget->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return true;
        }
    }
    return true;
}

} // namespace flitmark

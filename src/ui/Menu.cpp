// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/WindowManager.h>
#include <ui/Menu.h>
#include <ui/Painting.h>
#include <ui/Shadow.h>
#include <ui/ThemeScope.h>

#include <QAccessible>
#include <QMouseEvent>
#include <QPainterPath>
#include <QProxyStyle>
#include <QStyleOption>

namespace flitmark {

namespace {

constexpr double menuRadius = 12;
constexpr int framePadding = 4;
constexpr double itemPadding = 12;
constexpr int itemHeight = 32;
constexpr int separatorHeight = 9;
constexpr double separatorInset = 8;

} // namespace

/// Settles the sizes from which QMenu lays out its items.
class Menu::Style final : public QProxyStyle
{
public:
    explicit Style(int margin)
        : m_margin(margin)
    {
    }

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override
    {
        switch (metric) {
        case PM_MenuHMargin:
        case PM_MenuVMargin:
            return m_margin + framePadding;
        case PM_MenuPanelWidth:
        case PM_MenuDesktopFrameWidth:
            return 0;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
        }
    }
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override
    {
        if (type == CT_Menu) {
            return size;
        }
        const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        if (type != CT_MenuItem || item == nullptr) {
            return QProxyStyle::sizeFromContents(type, option, size, widget);
        }
        const bool isSeparator = item->menuItemType == QStyleOptionMenuItem::Separator;
        const int grown = rowHeight(TextRole::Body) - 20;
        return {frameWidth - 2 * framePadding, isSeparator ? separatorHeight : itemHeight + grown};
    }

private:
    int m_margin;
};

Menu::Menu(WindowManager& windowManager, QWidget* parent)
    : QMenu(parent)
    , m_margin(windowManager.isCompositing() ? shadowReach : 0)
{
    setWindowFlags(windowFlags() | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    setAttribute(Qt::WA_TranslucentBackground);
    auto* style = new Style(m_margin);
    style->setParent(this);
    setStyle(style);
}

QAction* Menu::addItem(const QString& text, const QKeySequence& keys)
{
    QAction* action = addAction(text);
    action->setShortcut(keys);
    // Painted here: QMenu would widen the menu for it.
    action->setShortcutVisibleInContextMenu(false);
    return action;
}

void Menu::openAt(const QPoint& position, OpenedBy openedBy)
{
    connect(this, &QMenu::aboutToHide, this, &QObject::deleteLater);
    popup(position - QPoint(m_margin, m_margin));
    QAccessibleEvent opened(this, QAccessible::ObjectCreated);
    QAccessible::updateAccessibility(&opened);
    if (openedBy == OpenedBy::Keyboard) {
        setActiveAction(actions().value(0));
    }
}

void Menu::resizeEvent(QResizeEvent* event)
{
    QMenu::resizeEvent(event);
    if (m_margin == 0) {
        QPainterPath path;
        path.addRoundedRect(rect(), menuRadius, menuRadius);
        setMask(QRegion(path.toFillPolygon().toPolygon()));
    }
}

void Menu::mousePressEvent(QMouseEvent* event)
{
    // The shadow belongs to what lies behind the menu.
    if (!frame().contains(event->position().toPoint())) {
        close();
        return;
    }
    QMenu::mousePressEvent(event);
}

void Menu::mouseDoubleClickEvent(QMouseEvent* event)
{
    // The press that opened the menu, told again because another one came shortly before: it must not close it.
    event->accept();
}

void Menu::paintEvent(QPaintEvent*)
{
    const Theme& theme = ThemeScope::of(*this);
    QPainter painter(this);
    if (m_margin > 0) {
        drawShadow(painter, frame(), menuRadius);
    }
    painting::fillRounded(painter, frame(), m_margin > 0 ? menuRadius : 0, theme.background);
    painting::strokeRounded(painter, frame(), menuRadius, 1, m_margin > 0 ? theme.hair : theme.edge);
    for (const QAction* action : actions()) {
        paintItem(painter, *action, actionGeometry(const_cast<QAction*>(action)));
    }
}

void Menu::paintItem(QPainter& painter, const QAction& action, const QRectF& rect) const
{
    const Theme& theme = ThemeScope::of(*this);
    if (action.isSeparator()) {
        painter.fillRect(
            QRectF(rect.left() + separatorInset, rect.top() + framePadding, rect.width() - 2 * separatorInset, 1),
            theme.hair);
        return;
    }
    if (activeAction() == &action) {
        painting::fillRounded(painter, rect, painting::controlRadius, theme.hover);
    }
    const QRectF texts = rect.adjusted(itemPadding, 0, -itemPadding, 0);
    const QFont font = fontOf(TextRole::Body);
    painting::drawLine(painter, texts, action.text(), font, action.isEnabled() ? theme.text : theme.off);
    painting::drawLine(painter, texts, action.shortcut().toString(QKeySequence::NativeText), font, theme.text2,
                       Qt::AlignRight);
}

} // namespace flitmark

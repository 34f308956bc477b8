// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/AccessibleRole.h>

#include <QAccessibleWidget>
#include <QMenu>
#include <QVariant>
#include <QWidget>

namespace flitmark {

namespace {

constexpr const char* roleProperty = "flitmarkAccessibleRole";

class RoleInterface final : public QAccessibleWidget
{
public:
    RoleInterface(QWidget* widget, QAccessible::Role role)
        : QAccessibleWidget(widget, role)
    {
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.modal = role() == QAccessible::Dialog && !widget()->isWindow();
        return state;
    }
    int childCount() const override { return QAccessibleWidget::childCount() + static_cast<int>(openMenus().size()); }
    QAccessibleInterface* child(int index) const override
    {
        const int menu = index - QAccessibleWidget::childCount();
        return menu < 0 ? QAccessibleWidget::child(index)
                        : QAccessible::queryAccessibleInterface(openMenus().value(menu));
    }
    int indexOfChild(const QAccessibleInterface* child) const override
    {
        const auto menu = openMenus().indexOf(qobject_cast<QMenu*>(child->object()));
        return menu < 0 ? QAccessibleWidget::indexOfChild(child)
                        : QAccessibleWidget::childCount() + static_cast<int>(menu);
    }

private:
    /// Qt leaves them out, so nobody who walks the tree would find them. Those that text fields open hang deep below.
    QList<QMenu*> openMenus() const
    {
        QList<QMenu*> menus = widget()->isWindow() ? widget()->findChildren<QMenu*>() : QList<QMenu*>();
        menus.removeIf([](const QMenu* menu) {
            return !menu->isVisible() || qobject_cast<const QMenu*>(menu->parent()) != nullptr;
        });
        return menus;
    }
};

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object)
{
    auto* widget = qobject_cast<QWidget*>(object);
    const QVariant role = widget != nullptr ? widget->property(roleProperty) : QVariant();
    return role.isValid() ? new RoleInterface(widget, static_cast<QAccessible::Role>(role.toInt())) : nullptr;
}

} // namespace

void setAccessibleRole(QWidget& widget, QAccessible::Role role)
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(isInstalled)
    widget.setProperty(roleProperty, static_cast<int>(role));
}

} // namespace flitmark

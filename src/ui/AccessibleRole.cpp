// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/AccessibleRole.h>
#include <ui/Painting.h>

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QLabel>
#include <QMenu>
#include <QVariant>
#include <QWidget>

namespace flitmark {

namespace {

constexpr const char* roleProperty = "flitmarkAccessibleRole";

class RoleInterface : public QAccessibleWidget
{
public:
    RoleInterface(QWidget* widget, QAccessible::Role role)
        : QAccessibleWidget(widget, role)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        const QString given = QAccessibleWidget::text(kind);
        const auto* label = qobject_cast<const QLabel*>(widget());
        return kind == QAccessible::Name && given.isEmpty() && label != nullptr ? label->text() : given;
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

/// A button is clicked in any role, as by the pointer: Qt's own would check it without a word to its view. And it takes
/// up all of its place, not only the box of what is checked.
class ButtonInterface final : public RoleInterface
{
public:
    ButtonInterface(QAbstractButton& button, QAccessible::Role role)
        : RoleInterface(&button, role)
        , m_button(button)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        const QString given = RoleInterface::text(kind);
        return kind == QAccessible::Name && given.isEmpty() ? plainText(m_button) : given;
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = RoleInterface::state();
        state.checkable = m_button.isCheckable();
        state.checked = m_button.isChecked();
        state.selectable = role() == QAccessible::PageTab;
        state.selected = state.selectable && m_button.isChecked();
        return state;
    }
    QStringList actionNames() const override
    {
        return QStringList{role() == QAccessible::CheckBox ? toggleAction() : pressAction()} +
               RoleInterface::actionNames();
    }
    void doAction(const QString& name) override
    {
        if (name == actionNames().first()) {
            // The page that a tab puts away would send the keyboard anywhere.
            if (role() == QAccessible::PageTab) {
                m_button.setFocus();
            }
            m_button.click();
        } else {
            RoleInterface::doAction(name);
        }
    }

private:
    QAbstractButton& m_button;
};

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object)
{
    auto* widget = qobject_cast<QWidget*>(object);
    const QVariant property = widget != nullptr ? widget->property(roleProperty) : QVariant();
    if (!property.isValid()) {
        return nullptr;
    }
    const auto role = static_cast<QAccessible::Role>(property.toInt());
    if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
        return new ButtonInterface(*button, role);
    }
    return new RoleInterface(widget, role);
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
    // One that was made before, as for a label by its text, knows nothing of the role. Later versions of Qt make them
    // for every change of a name, even while nobody asks.
    QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(QAccessible::queryAccessibleInterface(&widget)));
}

} // namespace flitmark

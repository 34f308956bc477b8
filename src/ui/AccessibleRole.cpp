// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/AccessibleRole.h>

#include <QAccessibleWidget>
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
        state.modal = role() == QAccessible::Dialog;
        return state;
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

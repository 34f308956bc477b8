// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAccessible>
#include <QLabel>
#include <QWidget>

namespace flitmark {

/// What a screen reader says of `widget`, in the given respect.
inline QString spoken(QObject* object, QAccessible::Text text = QAccessible::Name)
{
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(object);
    return accessible != nullptr ? accessible->text(text) : QString();
}

/// The widgets of a type below `root` that are visible and have the accessible name `name`, in the order of their
/// making.
template<typename Widget>
QList<Widget*> allNamed(const QWidget& root, const QString& name)
{
    QList<Widget*> found;
    for (Widget* widget : root.findChildren<Widget*>()) {
        if (widget->isVisible() && spoken(widget) == name) {
            found.append(widget);
        }
    }
    return found;
}

/// The first of them; null when there is none.
template<typename Widget>
Widget* named(const QWidget& root, const QString& name)
{
    return allNamed<Widget>(root, name).value(0);
}

/// The texts of all labels below `root` that can be seen.
inline QStringList visibleTexts(const QWidget& root)
{
    QStringList texts;
    for (const QLabel* label : root.findChildren<QLabel*>()) {
        if (label->isVisible() && !label->text().isEmpty()) {
            texts.append(label->text());
        }
    }
    return texts;
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QLayout>
#include <QScrollArea>
#include <QtTest/QTest>

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
QList<Widget*> allNamed(const QWidget& root, QAnyStringView name)
{
    QList<Widget*> found = root.findChildren<Widget*>();
    found.removeIf([name](Widget* widget) { return !widget->isVisible() || spoken(widget) != name; });
    return found;
}

/// The first of them; null when there is none.
template<typename Widget>
Widget* named(const QWidget& root, QAnyStringView name)
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
inline bool shows(const QWidget& root, QAnyStringView text)
{
    return visibleTexts(root).contains(text.toString());
}

/// Shows `window` and waits until it has the keyboard.
inline void showActive(QWidget& window)
{
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
}
/// Lets go what was replaced: that happens with the next turn.
inline void settle()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}
/// Clicks the button of that name; fails the test where there is none, or a disabled one.
inline void click(const QWidget& root, QAnyStringView name)
{
    auto* button = named<QAbstractButton>(root, name);
    QVERIFY2(button != nullptr && button->isEnabled(), qPrintable(name.toString()));
    QTest::mouseClick(button, Qt::LeftButton);
    settle();
}
/// Presses a key where the keyboard is.
inline void press(Qt::Key key)
{
    QVERIFY(QApplication::focusWidget() != nullptr);
    QTest::keyClick(QApplication::focusWidget(), key);
}
/// Replaces what `field` holds by typing.
inline void type(QWidget* field, QAnyStringView text)
{
    QVERIFY(field != nullptr);
    field->setFocus();
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(field, Qt::Key_Delete);
    QTest::keyClicks(field, text.toString());
}

/// What is cut off of the labels, buttons and scrolled contents below `root`.
inline QStringList cutOff(const QWidget& root)
{
    QStringList cut;
    const auto check = [&](const QWidget* widget, bool fits, const QString& name) {
        cut += widget->isVisible() && !fits ? QStringList(name.left(80)) : QStringList();
    };
    for (const QLabel* label : root.findChildren<QLabel*>()) {
        const int needed =
            label->hasHeightForWidth() ? label->heightForWidth(label->width()) : label->minimumSizeHint().height();
        check(label, label->height() >= needed, label->text());
    }
    for (QAbstractButton* button : root.findChildren<QAbstractButton*>()) {
        const bool isWhole = button->size().expandedTo(button->sizeHint()) == button->size();
        check(button, isWhole && button->mapTo(&root, button->rect().bottomRight()).x() < root.width(), spoken(button));
    }
    for (const QScrollArea* area : root.findChildren<QScrollArea*>()) {
        const QWidget* content = area->widget();
        check(area, content->height() >= content->layout()->heightForWidth(content->width()), spoken(area->widget()));
    }
    return cut;
}

} // namespace flitmark

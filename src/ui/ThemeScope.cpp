// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/ThemeScope.h>

#include <QCoreApplication>
#include <QHash>
#include <QWidget>

namespace flitmark {

namespace {

using Themes = QHash<const QObject*, Theme>;

Themes& themes()
{
    static Themes instance;
    return instance;
}

} // namespace

void ThemeScope::set(QWidget& root, const Theme& theme)
{
    const auto found = themes().constFind(&root);
    if (found != themes().constEnd() && *found == theme) {
        return;
    }
    if (found == themes().constEnd()) {
        QObject::connect(&root, &QObject::destroyed, [](QObject* gone) { themes().remove(gone); });
    }
    themes().insert(&root, theme);

    QList<QWidget*> widgets = root.findChildren<QWidget*>();
    widgets.prepend(&root);
    for (QWidget* widget : std::as_const(widgets)) {
        QEvent event(changeEvent());
        QCoreApplication::sendEvent(widget, &event);
        widget->update();
    }
}

const Theme& ThemeScope::of(const QWidget& widget)
{
    for (const QWidget* candidate = &widget; candidate != nullptr; candidate = candidate->parentWidget()) {
        const auto found = themes().constFind(candidate);
        if (found != themes().constEnd()) {
            return *found;
        }
    }
    static const Theme fallback = themeOfPalette(ColorPalette::obsidianNative);
    return fallback;
}

QEvent::Type ThemeScope::changeEvent()
{
    static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
    return type;
}

} // namespace flitmark

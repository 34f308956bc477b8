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

void announce(QWidget& root)
{
    QList<QWidget*> widgets = root.findChildren<QWidget*>();
    widgets.prepend(&root);
    for (QWidget* widget : std::as_const(widgets)) {
        QEvent event(ThemeScope::changeEvent());
        QCoreApplication::sendEvent(widget, &event);
        widget->update();
    }
}

/// Lives beside a theme, as a child of its widget: forgets the theme with the widget, and announces the desktop's other
/// font, which reaches only widgets that have no font of their own.
class Keeper final : public QObject
{
public:
    explicit Keeper(QWidget& root)
        : QObject(&root)
        , m_root(root)
    {
        root.installEventFilter(this);
    }
    ~Keeper() override { themes().remove(&m_root); }
    Q_DISABLE_COPY_MOVE(Keeper)

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::FontChange) {
            announce(m_root);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QWidget& m_root;
};

} // namespace

void ThemeScope::set(QWidget& root, const Theme& theme)
{
    const auto found = themes().constFind(&root);
    if (found != themes().constEnd() && *found == theme) {
        return;
    }
    if (found == themes().constEnd()) {
        new Keeper(root);
    }
    themes().insert(&root, theme);
    announce(root);
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

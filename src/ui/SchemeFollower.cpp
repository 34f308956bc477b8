// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/SchemeFollower.h>
#include <ui/ThemeScope.h>

#include <QWidget>

namespace flitmark {

SchemeFollower::SchemeFollower(QWidget& root, ColorPalette palette)
    : m_root(root)
{
    setPalette(palette);
    root.installEventFilter(this);
}

void SchemeFollower::setPalette(ColorPalette palette)
{
    m_palette = palette;
    ThemeScope::set(m_root, themeOfWindow(palette, desktopScheme()));
}

bool SchemeFollower::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::PaletteChange) {
        setPalette(m_palette);
    }
    return QObject::eventFilter(watched, event);
}

} // namespace flitmark

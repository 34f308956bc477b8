// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui/Theme.h>

#include <QEvent>

class QWidget;

namespace flitmark {

/// Gives a widget and everything inside it a theme: the panel and its sheets wear a palette while the settings in the
/// same program wear the desktop's scheme. Main thread only.
class ThemeScope
{
public:
    ThemeScope() = delete;

    /// Makes `theme` the theme of `root` and of every widget below it that has none of its own. Each of them is sent
    /// an event of the type `changeEvent()` and painted again.
    static void set(QWidget& root, const Theme& theme);

    /// The theme of `widget`: its own, else that of the nearest widget above it, also across windows, else the first
    /// palette's. The reference holds until the next `set`.
    static const Theme& of(const QWidget& widget);

    /// Tells a widget that its theme or the text scale may have changed. One that keeps colours or fonts (a QPalette,
    /// say) renews them then; one that asks for them when it paints need not listen.
    static QEvent::Type changeEvent();
};

} // namespace flitmark

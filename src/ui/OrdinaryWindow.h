// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QSize>
#include <Qt>

class QWidget;

namespace flitmark {

// What the windows share that have a title bar of the desktop's.

/// Such a window with nothing in its title bar but the button that closes it.
inline constexpr Qt::WindowFlags closableWindow =
    Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;

/// Puts `window` into the middle of the main screen, with `size` or as much of it as the screen has. Without a size it
/// is as large as what is in it.
void centreOnScreen(QWidget& window, QSize size = {});

/// Shows the window, or brings it to the front, and gives it the keyboard. From the first time on it has the program's
/// icon.
void makeKeyAndOrderFront(QWidget& window);

} // namespace flitmark

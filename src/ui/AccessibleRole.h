// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAccessible>

class QWidget;

namespace flitmark {

/// Makes `widget` something else to screen readers than its class tells: a window, a group of controls, a dialog inside
/// a window. Among the children of a window are the menus that are open in it. A button is as large as it looks, and a
/// label that becomes a notification is read out whenever it comes on screen.
void setAccessibleRole(QWidget& widget, QAccessible::Role role);

} // namespace flitmark

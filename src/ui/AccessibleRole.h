// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAccessible>

class QWidget;

namespace flitmark {

/// Makes `widget` something else to screen readers than its class tells: a window, a group of controls, a dialog inside
/// a window. Among the children of a window are the menus that are open in it.
/// To be called before anybody asks for its accessible interface, so best in the constructor.
void setAccessibleRole(QWidget& widget, QAccessible::Role role);

} // namespace flitmark

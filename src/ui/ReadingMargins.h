// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QGuiApplication>
#include <QMargins>

namespace flitmark {

/// Margins of which `leading` is where the reading begins: at the right in a language that is read from there. A layout
/// changes the places of what is in it, but not its margins.
inline QMargins readingMargins(int leading, int top, int trailing, int bottom)
{
    return QGuiApplication::isRightToLeft() ? QMargins(trailing, top, leading, bottom)
                                            : QMargins(leading, top, trailing, bottom);
}

} // namespace flitmark

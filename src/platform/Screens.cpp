// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Screens.h>

namespace flitmark {

QRectF Screens::flipped(const QRectF& rect) const
{
    return {rect.x(), bottomOfMainScreen() - rect.y() - rect.height(), rect.width(), rect.height()};
}

} // namespace flitmark

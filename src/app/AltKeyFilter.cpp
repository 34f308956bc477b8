// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/AltKeyFilter.h>

#include <QKeyEvent>

namespace flitmark {

bool AltKeyFilter::eventFilter(QObject*, QEvent* event)
{
    if (event->type() != QEvent::KeyPress) {
        return false;
    }
    const auto* key = static_cast<const QKeyEvent*>(event);
    return key->modifiers().testFlag(Qt::AltModifier) && !key->text().isEmpty() && key->text().at(0).isPrint();
}

} // namespace flitmark

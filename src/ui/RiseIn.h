// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

class QWidget;

namespace flitmark {

/// Lets what `page` shows now fade in while it rises by 8 points: for a new step and for sheets. The page is live at
/// once; where no animations are wanted it simply stands there. `page` must be laid out and have a theme.
void riseIn(QWidget& page);

} // namespace flitmark

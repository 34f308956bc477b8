// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

class QDir;

namespace flitmark {

/// Draws the panel's Browse and Daily tabs in their states and in every palette into `folder`. False when a picture
/// could not be written.
bool savePanelPictures(const QDir& folder);

} // namespace flitmark

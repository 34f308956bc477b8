// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <config/ColorPalette.h>

#include <QDir>

class QWidget;

/// Draws `widget` at `scale` into the file `path`. False when it can't be written.
bool save(QWidget& widget, const QString& path, double scale);

/// Draws the popups, the trigger button and its menu in `palette` into `folder`.
bool savePopups(const QDir& folder, flitmark::ColorPalette palette);

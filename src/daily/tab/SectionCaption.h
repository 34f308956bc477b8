// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

class QString;
class QWidget;

namespace flitmark {

/// The caption over a section of the Daily tab, with `button` at its right end where there is one.
QWidget* makeSectionCaption(const QString& caption, QWidget* button = nullptr);

} // namespace flitmark

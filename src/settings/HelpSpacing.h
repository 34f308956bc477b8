// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <settings/HelpContent.h>

/// How the blocks of the help stand together.
namespace flitmark::help {

/// Whether neighbours of this kind stand as rows on one card.
bool sharesCard(HelpBlock::Kind kind);
/// Whether a block of this kind is a row: a lead, texts, a badge.
bool isRow(HelpBlock::Kind kind);
/// What a row of this kind leaves free above and below its texts; 0 for other blocks.
int padding(HelpBlock::Kind kind);
/// The space between two blocks below each other, besides their own padding.
int spaceBetween(HelpBlock::Kind upper, HelpBlock::Kind lower);

} // namespace flitmark::help

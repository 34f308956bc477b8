// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QFont>
#include <QTextLayout>

namespace flitmark {

/// What a text is, which settles its size, weight and row height.
enum class TextRole {
    Display,       ///< 20 on rows of 28, semibold
    Title,         ///< 16 on 24, semibold
    Heading,       ///< 14 on 20, semibold
    HeadingMedium, ///< 14 on 20, medium
    Note,          ///< 15 on 24
    Body,          ///< 13 on 20
    Strong,        ///< 13 on 20, medium: labels, buttons, row titles
    Bold,          ///< 13 on 20, semibold
    Caption,       ///< 12 on 16
    CaptionStrong, ///< 12 on 16, medium
    Overline,      ///< 11 on 16, semibold, spaced: section captions
    Small,         ///< 11 on 16, semibold: badges
    Code,          ///< 12 on 20, fixed width
};

/// How much larger than designed the desktop wants its texts, 0.75 to 3.
///
/// That is the screen's logical resolution over 96 dpi, times what the application's font says: 9 to 11 points is what
/// desktops come with and counts as 1, a larger or smaller font counts as its ratio to the nearer of these two.
double textScale();

/// `points`, a length that grows with its text (a font size, a row height), in whole logical pixels.
int scaled(int points);

/// The font for texts of `role`, sized by pixels, text scale included.
QFont fontOf(TextRole role);

/// The height of one line of `role`.
int rowHeight(TextRole role);

/// The height of buttons, fields and other one-line controls.
int controlHeight();

/// How characters that exist both as a text sign and as an emoji are meant.
enum class EmojiStyle {
    AsWritten, ///< a text sign, unless followed by the emoji variation selector
    Preferred, ///< an emoji where there is one: for icons that users type
};

/// Formats that draw the emoji of `text` with the emoji font, so that all of them come in colour. `font` is the font of
/// the rest. Empty for a text without emoji.
QList<QTextLayout::FormatRange> emojiFormats(const QString& text, const QFont& font,
                                             EmojiStyle style = EmojiStyle::AsWritten);

} // namespace flitmark

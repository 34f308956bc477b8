// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <config/ColorPalette.h>

#include <QColor>

namespace flitmark {

/// The two schemes a desktop asks its windows for.
enum class Scheme { Light, Dark };

/// Every colour of the interface, derived from three: a background, a primary and an accent colour. Text and marks
/// keep a contrast of at least 4.5:1 on the background and on cards; lines, outlines and dots keep 3:1.
///
/// Colours with an alpha below one (`soft`, `hover`, `press`, `chip`, `chipOn`) are laid over what is there.
struct Theme
{
    QColor background;
    QColor primary;
    QColor accent;
    bool isDark = false;

    QColor text;
    QColor text2;   ///< second lines, placeholders, icons at rest
    QColor off;     ///< disabled text and icons
    QColor card;    ///< cards, editors, rows that stand on a window
    QColor hair;    ///< dividers, the edge of frames
    QColor track;   ///< a slider's track
    QColor edge;    ///< borders of fields and keys
    QColor thumb;   ///< scroll bar, a dot not reached yet
    QColor outline; ///< check box, switch off, a field under the pointer, the icon of an empty view
    QColor soft;    ///< ground of soft and boxed buttons, of tabs and plain badges
    QColor hover;   ///< state layer under the pointer
    QColor press;   ///< state layer while pressed
    QColor line;    ///< selected borders, check box and switch on, slider
    QColor lineHover;
    QColor linePress;
    QColor sel;      ///< ground of what is selected
    QColor selMark;  ///< icon on `sel`
    QColor selText2; ///< second line on `sel`
    QColor mark;     ///< what can be acted on: accent icons and texts, focus ring
    QColor badge;    ///< ground of accent badges
    QColor badgeText;
    QColor fill; ///< filled button, under a white label
    QColor fillHover;
    QColor fillPress;
    QColor offFill;    ///< disabled filled button, under a white label
    QColor chip;       ///< quick tag
    QColor chipOn;     ///< quick tag, selected
    QColor knob;       ///< ring of a slider's knob
    QColor swatchEdge; ///< edge around a colour sample
    QColor info;
    QColor success;
    QColor red;
    QColor green;
    QColor orange;
    QColor white{Qt::white}; ///< label and icon on filled ground

    bool operator==(const Theme&) const = default;
};

/// Names one colour of a theme, so that a widget can look it up again when its theme changes.
using ColorToken = QColor Theme::*;

/// The theme that follows from three opaque colours.
Theme deriveTheme(const Rgb& background, const Rgb& primary, const Rgb& accent);

/// The theme of the panel, sheets, popups, the menu and the trigger button.
Theme themeOfPalette(ColorPalette palette);

/// The theme of ordinary windows: the desktop's scheme, coloured by the palette's primary.
Theme themeOfWindow(ColorPalette palette, Scheme scheme);

/// The scheme the desktop asks for now.
Scheme desktopScheme();

/// The contrast of two opaque colours, 1 to 21.
double contrast(const QColor& first, const QColor& second);

/// `from` mixed with `ratio` (0 to 1) of `to`, alpha included.
QColor mix(const QColor& from, const QColor& to, double ratio);

/// `top` laid over the opaque `ground`.
QColor over(const QColor& ground, const QColor& top);

} // namespace flitmark

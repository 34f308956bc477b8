// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QString>

#include <optional>

namespace flitmark {

/// An opaque sRGB colour; each component from 0 to 1.
struct Rgb
{
    double red = 0;
    double green = 0;
    double blue = 0;

    bool operator==(const Rgb&) const = default;
};

/// The colour themes.
enum class ColorPalette {
    obsidianNative,
    calmProductivity,
    forestFocus,
    midnightClarity,
    warmMinimal,
};

/// Every palette, in the order in which they are offered.
QList<ColorPalette> allColorPalettes();

/// The name under which a palette is stored.
QString rawValue(ColorPalette palette);
/// The palette stored under `rawValue`, or nothing when there is none of that name.
std::optional<ColorPalette> colorPaletteFromRawValue(const QString& rawValue);

/// The palette's name for the user, translated.
QString label(ColorPalette palette);
/// One line for the user on what the palette is like, translated.
QString description(ColorPalette palette);

Rgb primary(ColorPalette palette);
Rgb accent(ColorPalette palette);
Rgb background(ColorPalette palette);

} // namespace flitmark

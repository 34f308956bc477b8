// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <config/ColorPalette.h>

#include <QCoreApplication>

#include <array>

namespace flitmark {

namespace {

constexpr const char* translationContext = "ColorPalette";

struct Entry
{
    ColorPalette palette;
    QLatin1StringView rawValue;
    const char* label;
    const char* description;
    Rgb primary;
    Rgb accent;
    Rgb background;
};

constexpr std::array<Entry, 5> entries{{
    {
        .palette = ColorPalette::obsidianNative,
        .rawValue = QLatin1StringView("obsidian_native"),
        .label = QT_TRANSLATE_NOOP("ColorPalette", "Obsidian Native"),
        .description = QT_TRANSLATE_NOOP("ColorPalette", "Matches Obsidian, familiar purple tones"),
        .primary = {0.486, 0.227, 0.929},
        .accent = {0.655, 0.545, 0.98},
        .background = {0.176, 0.176, 0.176},
    },
    {
        .palette = ColorPalette::calmProductivity,
        .rawValue = QLatin1StringView("calm_productivity"),
        .label = QT_TRANSLATE_NOOP("ColorPalette", "Calm Productivity"),
        .description = QT_TRANSLATE_NOOP("ColorPalette", "Clean, minimal, reduces cognitive load"),
        .primary = {0.216, 0.208, 0.184},
        .accent = {0.608, 0.604, 0.592},
        .background = {1, 1, 1},
    },
    {
        .palette = ColorPalette::forestFocus,
        .rawValue = QLatin1StringView("forest_focus"),
        .label = QT_TRANSLATE_NOOP("ColorPalette", "Forest Focus"),
        .description = QT_TRANSLATE_NOOP("ColorPalette", "Calming, nature-inspired, easy on eyes"),
        .primary = {0.176, 0.353, 0.239},
        .accent = {0.561, 0.737, 0.561},
        .background = {0.102, 0.122, 0.11},
    },
    {
        .palette = ColorPalette::midnightClarity,
        .rawValue = QLatin1StringView("midnight_clarity"),
        .label = QT_TRANSLATE_NOOP("ColorPalette", "Midnight Clarity"),
        .description = QT_TRANSLATE_NOOP("ColorPalette", "Modern, high contrast, professional"),
        .primary = {0.388, 0.4, 0.945},
        .accent = {0.506, 0.549, 0.973},
        .background = {0.059, 0.09, 0.165},
    },
    {
        .palette = ColorPalette::warmMinimal,
        .rawValue = QLatin1StringView("warm_minimal"),
        .label = QT_TRANSLATE_NOOP("ColorPalette", "Warm Minimal"),
        .description = QT_TRANSLATE_NOOP("ColorPalette", "Warm, inviting, reduces eye strain"),
        .primary = {0.471, 0.443, 0.424},
        .accent = {0.851, 0.467, 0.024},
        .background = {0.11, 0.098, 0.09},
    },
}};

const Entry& entryOf(ColorPalette palette)
{
    for (const Entry& entry : entries) {
        if (entry.palette == palette) {
            return entry;
        }
    }
    return entries.front();
}

} // namespace

QList<ColorPalette> allColorPalettes()
{
    QList<ColorPalette> palettes;
    for (const Entry& entry : entries) {
        palettes.append(entry.palette);
    }
    return palettes;
}

QString rawValue(ColorPalette palette)
{
    return entryOf(palette).rawValue;
}

std::optional<ColorPalette> colorPaletteFromRawValue(const QString& rawValue)
{
    for (const Entry& entry : entries) {
        if (entry.rawValue == rawValue) {
            return entry.palette;
        }
    }
    return std::nullopt;
}

QString label(ColorPalette palette)
{
    return QCoreApplication::translate(translationContext, entryOf(palette).label);
}

QString description(ColorPalette palette)
{
    return QCoreApplication::translate(translationContext, entryOf(palette).description);
}

Rgb primary(ColorPalette palette)
{
    return entryOf(palette).primary;
}

Rgb accent(ColorPalette palette)
{
    return entryOf(palette).accent;
}

Rgb background(ColorPalette palette)
{
    return entryOf(palette).background;
}

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/Theme.h>

#include <QGuiApplication>
#include <QPalette>

#include <algorithm>
#include <array>
#include <cmath>

namespace flitmark {

namespace {

/// Red, green and blue, 0 to 1. The rules are computed on unrounded channels; contrast is judged on what a screen with
/// eight bits per channel shows.
using Channels = std::array<double, 3>;

constexpr Channels white{1, 1, 1};
constexpr Channels black{0, 0, 0};
constexpr double darkBelow = 0.18;
constexpr double readable = 4.5;
constexpr double visible = 3;

Channels channelsOf(const Rgb& color)
{
    return {color.red, color.green, color.blue};
}

Channels channelsOf(const QColor& color)
{
    return {color.redF(), color.greenF(), color.blueF()};
}

QColor colorOf(const Channels& channels, double alpha = 1)
{
    const auto byte = [](double value) { return static_cast<int>(std::lround(std::clamp(value, 0.0, 1.0) * 255)); };
    return {byte(channels[0]), byte(channels[1]), byte(channels[2]), byte(alpha)};
}

Channels rounded(const Channels& color)
{
    Channels result{};
    std::transform(color.begin(), color.end(), result.begin(),
                   [](double value) { return std::round(value * 255) / 255; });
    return result;
}

Channels mixed(const Channels& from, const Channels& to, double ratio)
{
    Channels result{};
    std::transform(from.begin(), from.end(), to.begin(), result.begin(),
                   [ratio](double a, double b) { return a + (b - a) * ratio; });
    return result;
}

double luminance(const Channels& color)
{
    const auto linear = [](double value) {
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color[0]) + 0.7152 * linear(color[1]) + 0.0722 * linear(color[2]);
}

double contrastOf(const Channels& first, const Channels& second)
{
    const auto [low, high] = std::minmax({luminance(first), luminance(second)});
    return (high + 0.05) / (low + 0.05);
}

/// Hue in sixths of the circle, saturation and lightness 0 to 1.
struct Hsl
{
    double hue = 0;
    double saturation = 0;
    double lightness = 0;
};

Hsl hslOf(const Channels& color)
{
    const auto [low, high] = std::minmax({color[0], color[1], color[2]});
    const double range = high - low;
    Hsl result{0, 0, (high + low) / 2};
    if (range > 0) {
        result.saturation = range / (1 - std::abs(2 * result.lightness - 1));
        if (high <= color[0]) {
            result.hue = std::fmod((color[1] - color[2]) / range + 6, 6);
        } else if (high <= color[1]) {
            result.hue = (color[2] - color[0]) / range + 2;
        } else {
            result.hue = (color[0] - color[1]) / range + 4;
        }
    }
    return result;
}

Channels channelsOf(const Hsl& color)
{
    const double reach = color.saturation * std::min(color.lightness, 1 - color.lightness);
    const auto channel = [&](double offset) {
        const double step = std::fmod(offset + color.hue * 2, 12);
        return color.lightness - reach * std::clamp(std::min(step - 3, 9 - step), -1.0, 1.0);
    };
    return {channel(0), channel(8), channel(4)};
}

enum class Direction { Lighter, Darker };

/// `color` with its lightness changed in steps of 0.01, hue and saturation kept, until `isGood` or at an end.
template<typename Predicate>
Channels moved(const Channels& color, Direction direction, Predicate isGood)
{
    // Hue and saturation come from the colour as it was: near the ends of the scale they could not be told any more.
    Hsl hsl = hslOf(color);
    const double end = direction == Direction::Lighter ? 1 : 0;
    Channels result = color;
    while (!isGood(rounded(result)) && std::abs(hsl.lightness - end) > 0) {
        hsl.lightness = std::clamp(hsl.lightness + (direction == Direction::Lighter ? 0.01 : -0.01), 0.0, 1.0);
        result = channelsOf(hsl);
    }
    return result;
}

/// `color` moved away from `ground` until it has the contrast `ratio` with it; unchanged where it has already.
Channels reached(const Channels& color, const Channels& ground, double ratio)
{
    const Direction direction = luminance(ground) < darkBelow ? Direction::Lighter : Direction::Darker;
    return moved(color, direction,
                 [&](const Channels& candidate) { return contrastOf(candidate, rounded(ground)) >= ratio; });
}

Channels darkenedForWhite(const Channels& color)
{
    return moved(color, Direction::Darker,
                 [](const Channels& candidate) { return contrastOf(candidate, white) >= readable; });
}

/// What several rules share.
struct Basis
{
    Channels background;
    Channels ink;
    Channels card;
    Channels primary;
    bool isDark = false;

    Channels inked(double ratio) const { return mixed(background, ink, ratio); }
};

void setNeutrals(Theme& theme, const Basis& basis)
{
    theme.text = colorOf(basis.inked(0.92));
    theme.off = colorOf(basis.inked(0.40));
    theme.card = colorOf(basis.card);
    theme.hair = colorOf(basis.inked(0.10));
    theme.track = colorOf(basis.inked(0.18));
    theme.edge = colorOf(basis.inked(0.20));
    theme.thumb = colorOf(basis.inked(0.25));
    theme.outline = colorOf(reached(basis.inked(0.40), basis.card, visible));
    theme.soft = colorOf(basis.ink, basis.isDark ? 0.08 : 0.06);
    theme.hover = colorOf(basis.ink, 0.06);
    theme.press = colorOf(basis.ink, 0.12);
    theme.knob = basis.isDark ? theme.text : colorOf(white);
    theme.swatchEdge = colorOf(basis.ink, 0.16);
}

void setFill(Theme& theme, const Basis& basis)
{
    const Channels fill = darkenedForWhite(reached(basis.primary, basis.background, 2));
    const Channels lifted = mixed(fill, white, 0.12);
    theme.fill = colorOf(fill);
    theme.fillHover = colorOf(contrastOf(lifted, white) >= readable ? lifted : mixed(fill, black, 0.12));
    theme.fillPress = colorOf(mixed(fill, black, 0.22));
    theme.offFill = colorOf(darkenedForWhite(basis.inked(0.5)));
}

} // namespace

Theme deriveTheme(const Rgb& background, const Rgb& primary, const Rgb& accent)
{
    Basis basis{channelsOf(background), {}, {}, channelsOf(primary), luminance(channelsOf(background)) < darkBelow};
    basis.ink = basis.isDark ? white : black;
    basis.card = basis.inked(basis.isDark ? 0.05 : 0.035);
    const Channels accentChannels = channelsOf(accent);

    Theme theme;
    theme.background = colorOf(basis.background);
    theme.primary = colorOf(basis.primary);
    theme.accent = colorOf(accentChannels);
    theme.isDark = basis.isDark;
    setNeutrals(theme, basis);
    setFill(theme, basis);

    const Channels text2 = reached(basis.inked(0.62), mixed(basis.card, basis.ink, 0.08), readable);
    theme.text2 = colorOf(text2);
    theme.chip = colorOf(text2, 0.10);
    theme.chipOn = colorOf(basis.primary, 0.30);

    const Channels line = reached(basis.primary, basis.card, visible);
    theme.line = colorOf(line);
    theme.lineHover = colorOf(mixed(line, black, 0.12));
    theme.linePress = colorOf(mixed(line, black, 0.24));

    // The one of the two given colours that stands out more speaks for what can be acted on.
    const bool primaryIsBest =
        contrastOf(basis.primary, basis.background) >= contrastOf(accentChannels, basis.background);
    const Channels best = primaryIsBest ? basis.primary : accentChannels;
    const Channels mark = reached(best, basis.card, readable);
    const Channels badge = mixed(basis.card, mark, 0.16);
    const Channels sel = mixed(basis.background, line, basis.isDark ? 0.36 : 0.16);
    theme.mark = colorOf(mark);
    theme.badge = colorOf(badge);
    theme.badgeText = colorOf(reached(mark, badge, readable));
    theme.sel = colorOf(sel);
    theme.selMark = colorOf(reached(best, sel, readable));
    theme.selText2 = colorOf(reached(text2, mixed(sel, basis.ink, 0.13), readable));

    theme.info = colorOf(reached(accentChannels, basis.background, readable));
    theme.success = colorOf(reached(basis.primary, basis.background, readable));
    theme.red = colorOf(reached(channelsOf(QColor(0xE5, 0x48, 0x4D)), basis.card, readable));
    theme.green = colorOf(reached(channelsOf(QColor(0x34, 0xC7, 0x59)), basis.card, visible));
    theme.orange = colorOf(reached(channelsOf(QColor(0xFF, 0x9F, 0x0A)), basis.card, visible));
    return theme;
}

Theme themeOfPalette(ColorPalette palette)
{
    return deriveTheme(background(palette), primary(palette), accent(palette));
}

Theme themeOfWindow(ColorPalette palette, Scheme scheme)
{
    const Rgb window = scheme == Scheme::Light ? Rgb{1, 1, 1} : Rgb{0.122, 0.122, 0.13};
    return deriveTheme(window, primary(palette), primary(palette));
}

Scheme desktopScheme()
{
    const QColor window = QGuiApplication::palette().color(QPalette::Active, QPalette::Window);
    return luminance(channelsOf(window)) < darkBelow ? Scheme::Dark : Scheme::Light;
}

double contrast(const QColor& first, const QColor& second)
{
    return contrastOf(channelsOf(first), channelsOf(second));
}

QColor mix(const QColor& from, const QColor& to, double ratio)
{
    const double alpha = from.alphaF() + (to.alphaF() - from.alphaF()) * ratio;
    return colorOf(mixed(channelsOf(from), channelsOf(to), ratio), alpha);
}

QColor over(const QColor& ground, const QColor& top)
{
    return colorOf(mixed(channelsOf(ground), channelsOf(top), top.alphaF()));
}

} // namespace flitmark

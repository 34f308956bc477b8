// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/Fonts.h>

#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <array>
#include <cmath>

namespace flitmark {

namespace {

struct RoleMetrics
{
    int size;
    int row;
    QFont::Weight weight;
};

RoleMetrics metricsOf(TextRole role)
{
    switch (role) {
    case TextRole::Display:
        return {20, 28, QFont::DemiBold};
    case TextRole::Title:
        return {16, 24, QFont::DemiBold};
    case TextRole::Heading:
        return {14, 20, QFont::DemiBold};
    case TextRole::HeadingMedium:
        return {14, 20, QFont::Medium};
    case TextRole::Note:
        return {15, 24, QFont::Normal};
    case TextRole::Body:
        return {13, 20, QFont::Normal};
    case TextRole::Strong:
        return {13, 20, QFont::Medium};
    case TextRole::Bold:
        return {13, 20, QFont::DemiBold};
    case TextRole::Caption:
        return {12, 16, QFont::Normal};
    case TextRole::CaptionStrong:
        return {12, 16, QFont::Medium};
    case TextRole::Overline:
    case TextRole::Small:
        return {11, 16, QFont::DemiBold};
    case TextRole::Code:
        return {12, 20, QFont::Normal};
    }
    return {13, 20, QFont::Normal};
}

QString emojiFamily()
{
    return QStringLiteral("Noto Color Emoji");
}

/// The emoji font's pixel size for an emoji of a text of `textSize` pixels. Qt fits a colour glyph's whole height into
/// the font's size, which leaves it smaller than the letters beside it; this makes it a little higher than capitals.
int emojiSize(int textSize)
{
    return static_cast<int>(std::lround(textSize * 1.17));
}

QStringList textFamilies()
{
    static const QStringList families = [] {
        // The font itself, where the desktop's setting is a name for any such font ("Sans").
        const QString general = QFontInfo(QFontDatabase::systemFont(QFontDatabase::GeneralFont)).family();
        const QString inter = QStringLiteral("Inter");
        // Emoji come before a general font, which may have them without colour, but never first of all: the emoji font
        // has spaces and digits, too.
        return QFontDatabase::hasFamily(inter) ? QStringList{inter, emojiFamily(), general}
                                               : QStringList{general, emojiFamily()};
    }();
    return families;
}

/// Characters that are emoji by themselves. Signs that are text unless told otherwise (arrows, the key signs, check
/// marks) are not among them.
bool isEmojiByItself(char32_t c)
{
    static constexpr auto ranges = std::to_array<std::pair<char32_t, char32_t>>(
        {{0x231A, 0x231B},   {0x23E9, 0x23EC},   {0x23F0, 0x23F0},   {0x23F3, 0x23F3},   {0x25FD, 0x25FE},
         {0x2614, 0x2615},   {0x2648, 0x2653},   {0x267F, 0x267F},   {0x2693, 0x2693},   {0x26A1, 0x26A1},
         {0x26AA, 0x26AB},   {0x26BD, 0x26BE},   {0x26C4, 0x26C5},   {0x26CE, 0x26CE},   {0x26D4, 0x26D4},
         {0x26EA, 0x26EA},   {0x26F2, 0x26F3},   {0x26F5, 0x26F5},   {0x26FA, 0x26FA},   {0x26FD, 0x26FD},
         {0x2705, 0x2705},   {0x270A, 0x270B},   {0x2728, 0x2728},   {0x274C, 0x274C},   {0x274E, 0x274E},
         {0x2753, 0x2755},   {0x2757, 0x2757},   {0x2795, 0x2797},   {0x27B0, 0x27B0},   {0x27BF, 0x27BF},
         {0x2B1B, 0x2B1C},   {0x2B50, 0x2B50},   {0x2B55, 0x2B55},   {0x1F004, 0x1F004}, {0x1F0CF, 0x1F0CF},
         {0x1F18E, 0x1F18E}, {0x1F191, 0x1F19A}, {0x1F1E6, 0x1F1FF}, {0x1F201, 0x1F201}, {0x1F21A, 0x1F21A},
         {0x1F22F, 0x1F22F}, {0x1F232, 0x1F236}, {0x1F238, 0x1F23A}, {0x1F250, 0x1F251}, {0x1F300, 0x1FAFF}});
    return std::any_of(std::begin(ranges), std::end(ranges),
                       [c](const auto& range) { return c >= range.first && c <= range.second; });
}

/// Characters that may be an emoji as well as a text sign.
bool isTextOrEmoji(char32_t c)
{
    return (c >= 0x2190 && c <= 0x2BFF) || c == 0x00A9 || c == 0x00AE || c == 0x203C || c == 0x2049 || c == 0x2122 ||
           c == 0x2139 || (c >= 0x3030 && c <= 0x303D) || (c >= 0x3297 && c <= 0x3299);
}

constexpr char32_t joiner = 0x200D;
constexpr char32_t emojiSelector = 0xFE0F;
constexpr char32_t textSelector = 0xFE0E;
constexpr char32_t keycap = 0x20E3;

/// Where the emoji that begins at `start` ends, or `start` where none does.
qsizetype emojiEnd(const QList<uint>& text, qsizetype start, EmojiStyle style)
{
    const auto at = [&](qsizetype i) { return i < text.size() ? char32_t(text[i]) : U'\0'; };
    const char32_t first = at(start);
    const char32_t second = at(start + 1);
    const bool isKeycap = first < 0x80 && (second == keycap || (second == emojiSelector && at(start + 2) == keycap));
    const bool isEmoji = second != textSelector &&
                         (isEmojiByItself(first) ||
                          (isTextOrEmoji(first) && (second == emojiSelector || style == EmojiStyle::Preferred)));
    if (!isKeycap && !isEmoji) {
        return start;
    }
    qsizetype end = start + 1;
    while (at(end) == emojiSelector || at(end) == keycap || (at(end) >= 0x1F3FB && at(end) <= 0x1F3FF) ||
           (at(end) >= 0xE0020 && at(end) <= 0xE007F) || (at(end) == joiner && at(end + 1) != U'\0')) {
        end += at(end) == joiner ? 2 : 1;
    }
    return end;
}

} // namespace

double textScale()
{
    const QFont font = QGuiApplication::font();
    const QScreen* screen = QGuiApplication::primaryScreen();
    const double dpi = screen != nullptr ? screen->logicalDotsPerInchY() : 96;
    const double points = font.pixelSize() > 0 ? font.pixelSize() * 72 / dpi : font.pointSizeF();
    return std::clamp(dpi / 96 * points / std::clamp(points, 9.0, 11.0), 0.75, 3.0);
}

int scaled(int points)
{
    return static_cast<int>(std::lround(points * textScale()));
}

QFont fontOf(TextRole role)
{
    const RoleMetrics metrics = metricsOf(role);
    QFont font;
    if (role == TextRole::Code) {
        font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    } else {
        font.setFamilies(textFamilies());
    }
    font.setPixelSize(scaled(metrics.size));
    font.setWeight(metrics.weight);
    if (role == TextRole::Overline) {
        font.setLetterSpacing(QFont::AbsoluteSpacing, 0.05 * font.pixelSize());
    }
    return font;
}

int rowHeight(TextRole role)
{
    return scaled(metricsOf(role).row);
}

int controlHeight()
{
    return rowHeight(TextRole::Strong) + 12;
}

QList<QTextLayout::FormatRange> emojiFormats(const QString& text, const QFont& font, EmojiStyle style)
{
    QList<QTextLayout::FormatRange> formats;
    const QList<uint> characters = text.toUcs4();
    qsizetype position = 0;
    for (qsizetype i = 0; i < characters.size();) {
        const qsizetype end = std::max(emojiEnd(characters, i, style), i + 1);
        qsizetype length = 0;
        for (qsizetype j = i; j < end; ++j) {
            length += QChar::requiresSurrogates(characters[j]) ? 2 : 1;
        }
        if (emojiEnd(characters, i, style) > i) {
            QFont emoji = font;
            emoji.setFamilies({emojiFamily()});
            emoji.setWeight(QFont::Normal);
            emoji.setPixelSize(emojiSize(font.pixelSize()));
            QTextCharFormat format;
            format.setFont(emoji);
            formats.append({static_cast<int>(position), static_cast<int>(length), format});
        }
        position += length;
        i = end;
    }
    return formats;
}

} // namespace flitmark

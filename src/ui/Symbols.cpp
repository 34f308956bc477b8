// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/Painting.h>
#include <ui/Symbols.h>

#include <QHash>
#include <QPainter>
#include <QRawFont>
#include <QResource>

#include <algorithm>
#include <array>
#include <iterator>

namespace flitmark {

namespace {

struct Entry
{
    const char* name;
    char16_t codePoint;
};

/// Sorted by name; each with its name in the font.
constexpr auto entries = std::to_array<Entry>({
    {"app.badge", 0xE1BD},                      // widgets
    {"archivebox", 0xE1A1},                     // inventory_2
    {"arrow.clockwise", 0xE5D5},                // refresh
    {"arrow.counterclockwise", 0xE042},         // replay
    {"arrow.left.arrow.right", 0xE8D4},         // swap_horiz
    {"arrow.triangle.2.circlepath", 0xE627},    // sync
    {"arrow.up.circle.fill", 0xF182},           // arrow_circle_up
    {"arrow.up.right.square", 0xE89E},          // open_in_new
    {"bolt", 0xEA0B},                           // bolt
    {"bolt.fill", 0xEA0B},                      // bolt
    {"brain.head.profile", 0xEA4A},             // psychology
    {"calendar", 0xE8DF},                       // today
    {"calendar.badge.exclamationmark", 0xE615}, // event_busy
    {"checklist", 0xE6B1},                      // checklist
    {"checkmark", 0xE5CA},                      // check
    {"checkmark.circle", 0xE92D},               // check_circle_outline
    {"checkmark.circle.fill", 0xE86C},          // check_circle
    {"chevron.down", 0xE5CF},                   // expand_more
    {"chevron.right", 0xE5CC},                  // chevron_right
    {"circle", 0xE836},                         // radio_button_unchecked
    {"clock", 0xE8B5},                          // schedule
    {"doc.on.doc", 0xE173},                     // file_copy
    {"doc.text", 0xE873},                       // description
    {"doc.text.magnifyingglass", 0xE880},       // find_in_page
    {"exclamationmark.triangle.fill", 0xE002},  // warning
    {"folder", 0xE2C7},                         // folder
    {"folder.fill", 0xE2C7},                    // folder
    {"gear", 0xE8B8},                           // settings
    {"gearshape", 0xE8B8},                      // settings
    {"globe", 0xE894},                          // language
    {"house.fill", 0xE88A},                     // home
    {"info.circle", 0xE88F},                    // info_outline
    {"info.circle.fill", 0xE88E},               // info
    {"key.fill", 0xE73C},                       // key
    {"keyboard", 0xE312},                       // keyboard
    {"laptopcomputer", 0xE31E},                 // laptop
    {"lightbulb", 0xE90F},                      // lightbulb_outline
    {"lightbulb.fill", 0xE0F0},                 // lightbulb
    {"minus.circle.fill", 0xE15C},              // remove_circle
    {"note.text", 0xF1FC},                      // sticky_note_2
    {"note.text.badge.plus", 0xE89C},           // note_add
    {"paintpalette", 0xE40A},                   // palette
    {"pause.fill", 0xE034},                     // pause
    {"pencil", 0xE3C9},                         // edit
    {"person", 0xE7FD},                         // person
    {"person.2", 0xE7EF},                       // group
    {"play.circle", 0xE039},                    // play_circle_outline
    {"play.fill", 0xE037},                      // play_arrow
    {"plus", 0xE145},                           // add
    {"plus.circle.fill", 0xE147},               // add_circle
    {"plus.square.on.square", 0xE02E},          // library_add
    {"puzzlepiece.extension", 0xE87B},          // extension
    {"questionmark.circle", 0xE8FD},            // help_outline
    {"questionmark.circle.fill", 0xE887},       // help
    {"quote.bubble", 0xE244},                   // format_quote
    {"sparkles", 0xE65F},                       // auto_awesome
    {"star", 0xE83A},                           // star_border
    {"star.fill", 0xE838},                      // star
    {"stop.fill", 0xE047},                      // stop
    {"tag", 0xF05B},                            // sell
    {"tag.fill", 0xF05B},                       // sell
    {"target", 0xE1B3},                         // gps_fixed
    {"timer", 0xE425},                          // timer
    {"trash", 0xE92E},                          // delete_outline
    {"tray", 0xE156},                           // inbox
    {"waveform.path.ecg", 0xEAA2},              // monitor_heart
    {"wrench.and.screwdriver", 0xF10B},         // handyman
    {"xmark", 0xE5CD},                          // close
    {"xmark.circle.fill", 0xE5C9},              // cancel
});

/// Symbols made of others.
const QString turnedArrow = QStringLiteral("arrow.right.circle");
const QString circledPencil = QStringLiteral("pencil.circle");

/// Those that point to where the reading goes on.
const QStringList onward{turnedArrow, QStringLiteral("arrow.up.right.square"), QStringLiteral("chevron.right")};

/// The symbol font, read in place from the program's own pages, of which only the touched ones take memory.
const QRawFont& symbolFont()
{
    // One pixel per unit of the font's square, so that outlines come as they were drawn.
    static const QRawFont font = [] {
        const QResource resource(QStringLiteral(":/symbols/MaterialIcons-Regular.ttf"));
        const auto bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(resource.data()), resource.size());
        QRawFont loaded(bytes, 512, QFont::PreferNoHinting);
        return loaded;
    }();
    return font;
}

QPainterPath outline(char16_t codePoint)
{
    const QRawFont& font = symbolFont();
    const QChar character(codePoint);
    quint32 glyph = 0;
    int count = 1;
    if (!font.isValid() || !font.glyphIndexesForChars(&character, 1, &glyph, &count) || glyph == 0) {
        return {};
    }
    // The square stands on the baseline and is as high as the font's size.
    const QTransform toUnit = QTransform::fromScale(1 / font.pixelSize(), 1 / font.pixelSize());
    return toUnit.map(font.pathForGlyph(glyph)).translated(0, 1);
}

const Entry* find(const QString& name)
{
    const auto isBefore = [](const Entry& entry, const QString& wanted) {
        return QLatin1StringView(entry.name) < wanted;
    };
    const Entry* found = std::lower_bound(std::begin(entries), std::end(entries), name, isBefore);
    return found != std::end(entries) && QLatin1StringView(found->name) == name ? found : nullptr;
}

QPainterPath makePath(const QString& name)
{
    if (name == turnedArrow) {
        const QTransform quarterTurn = QTransform().translate(0.5, 0.5).rotate(90).translate(-0.5, -0.5);
        return quarterTurn.map(Symbols::path(QStringLiteral("arrow.up.circle.fill")));
    }
    if (name == circledPencil) {
        const QTransform halfSize = QTransform().translate(0.25, 0.25).scale(0.5, 0.5);
        QPainterPath result = Symbols::path(QStringLiteral("circle"));
        result.addPath(halfSize.map(Symbols::path(QStringLiteral("pencil"))));
        return result;
    }
    const Entry* entry = find(name);
    return entry != nullptr ? outline(entry->codePoint) : QPainterPath();
}

} // namespace

bool Symbols::contains(const QString& name)
{
    return name == turnedArrow || name == circledPencil || find(name) != nullptr;
}

QStringList Symbols::names()
{
    QStringList result{turnedArrow, circledPencil};
    for (const Entry& entry : entries) {
        result.append(QLatin1String(entry.name));
    }
    return result;
}

const QPainterPath& Symbols::path(const QString& name)
{
    static QHash<QString, std::shared_ptr<const QPainterPath>> paths;
    std::shared_ptr<const QPainterPath> known = paths.value(name);
    if (!known) {
        known = std::make_shared<const QPainterPath>(makePath(name));
        paths.insert(name, known);
    }
    return *known;
}

void Symbols::draw(QPainter& painter, const QString& name, const QRectF& square, const QColor& color)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF place = painting::inReadingDirection(painter, square);
    painter.translate(place.topLeft());
    painter.scale(place.width(), place.height());
    if (painting::directionOf(painter) == Qt::RightToLeft && onward.contains(name)) {
        painter.translate(1, 0);
        painter.scale(-1, 1);
    }
    painter.fillPath(path(name), color);
    painter.restore();
}

} // namespace flitmark

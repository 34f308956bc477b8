// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <settings/HelpSpacing.h>

#include <algorithm>

namespace flitmark::help {

namespace {

using Kind = HelpBlock::Kind;

bool isText(Kind kind)
{
    return kind == Kind::Text || kind == Kind::QuietText || kind == Kind::BoldText;
}

/// The space that is seen between the two.
int wantedSpace(Kind upper, Kind lower)
{
    if (upper == Kind::Divider || lower == Kind::Divider) {
        return 12;
    }
    if (lower == Kind::Title) {
        return 24;
    }
    if (upper == Kind::Title) {
        return isText(lower) ? 4 : 8;
    }
    if (upper == Kind::GroupHead || upper == Kind::BoldText) {
        return 4;
    }
    if (lower == Kind::GroupHead || lower == Kind::Tip) {
        return 16;
    }
    if (lower == Kind::Feature || lower == Kind::Code) {
        return 8;
    }
    return upper == Kind::QuietText && lower == Kind::QuietText ? 0 : 12;
}

} // namespace

bool sharesCard(Kind kind)
{
    return kind >= Kind::Prerequisite && kind <= Kind::Action;
}

bool isRow(Kind kind)
{
    return sharesCard(kind) || kind == Kind::Feature || kind == Kind::Step || kind == Kind::SetupStep ||
           kind == Kind::Trouble;
}

int padding(Kind kind)
{
    switch (kind) {
    case Kind::Step:
        return 4;
    case Kind::Shortcut:
        return 6;
    case Kind::Feature:
    case Kind::SetupStep:
        return 8;
    default:
        return isRow(kind) ? 12 : 0;
    }
}

int spaceBetween(Kind upper, Kind lower)
{
    // A card shows where its padding begins.
    const int above = sharesCard(upper) ? 0 : padding(upper);
    const int below = sharesCard(lower) ? 0 : padding(lower);
    if (upper == lower && isRow(upper)) {
        return 0;
    }
    return std::max(0, wantedSpace(upper, lower) - above - below);
}

} // namespace flitmark::help

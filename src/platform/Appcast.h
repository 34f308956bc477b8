// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QUrl>
#include <QVersionNumber>

#include <tl/expected.hpp>

#include <optional>
#include <vector>

namespace flitmark {

/// One version in an update feed.
struct AppcastItem
{
    QVersionNumber version;
    /// The version as it is shown.
    QString name;
    /// What is new, as it stands in the feed: plain text or HTML; may be empty.
    QString notes;
    /// Where to get it, by http or https; empty where the feed does not say.
    QUrl page;
};

/// The versions in `xml`, an RSS feed with the usual extensions for updates, in its order. Items for other systems, for
/// testers or without a readable version are left out; an item without a page of its own gets the feed's. The error is
/// a sentence for the user. Any input is safe, entities that grow included.
tl::expected<std::vector<AppcastItem>, QString> parseAppcast(const QByteArray& xml);

/// The newest of `items`, if it is newer than `own`.
std::optional<AppcastItem> newerThan(const QVersionNumber& own, const std::vector<AppcastItem>& items);

/// A version as "1.2", "v1.2.0" or "1.2+build"; null where `text` is something else, a pre-release included.
QVersionNumber versionOf(const QString& text);

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Appcast.h>

#include "Property.h"

namespace flitmark {

void checkInput(const QByteArray& bytes)
{
    const auto items = parseAppcast(bytes);
    if (!items) {
        require(!items.error().isEmpty(), "an error has words");
        return;
    }
    for (const AppcastItem& item : *items) {
        require(!item.version.isNull() && item.version == versionOf(item.name), "a version is one");
        require(item.page.isEmpty() || item.page.scheme().startsWith(QLatin1String("http")), "a page is on the web");
    }
    const auto newer = newerThan(QVersionNumber(1, 2), *items);
    require(!newer || newer->version > QVersionNumber(1, 2), "newer is newer");
}

} // namespace flitmark

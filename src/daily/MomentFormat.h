// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <daily/MomentLanguages.h>

#include <QDate>

#include <tl/expected.hpp>

namespace flitmark {

/// `date`, of the years 1 to 9999, as Moment writes it by `format` in `language`: years, quarters, months, weeks and
/// days, "[literal]" text and escapes. The error says what the format asks for that we don't know: a time of day, a
/// zone, a timestamp. In time linear in the length of the format.
tl::expected<QString, QString> formatMoment(const QString& format, QDate date, const MomentLanguage& language);

} // namespace flitmark

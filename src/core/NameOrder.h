// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QCollator>
#include <QList>
#include <QStringView>

namespace flitmark {

/// The order of names as a language has it, case ignored; names that the language takes for equal are in the order of
/// their code units.
class NameOrder final
{
public:
    explicit NameOrder(const QLocale& locale);

    /// The positions of `names`, in the order of the names they hold.
    QList<qsizetype> sorted(const QList<QStringView>& names) const;

private:
    QCollator m_collator;
};

} // namespace flitmark

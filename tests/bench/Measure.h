// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QList>

#include <algorithm>
#include <cstdio>

namespace flitmark {

/// The milliseconds that `work` takes.
template<typename Work>
double milliseconds(Work work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

inline double medianOf(QList<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// Prints a figure with its unit and the most it may be, in the form that the table reads.
inline void report(const QByteArray& what, double figure, const char* unit, double most)
{
    std::printf("%s\t%.2f\t%s\t%g\n", what.constData(), figure, unit, most);
}

} // namespace flitmark

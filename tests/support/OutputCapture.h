// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryFile>

namespace flitmark {

/// Catches what the process prints to standard output while it lives.
class OutputCapture
{
public:
    OutputCapture();
    ~OutputCapture();
    Q_DISABLE_COPY_MOVE(OutputCapture)

    /// The lines printed so far, without their line breaks.
    QStringList lines();

private:
    QTemporaryFile m_file;
    int m_savedOutput;
};

} // namespace flitmark

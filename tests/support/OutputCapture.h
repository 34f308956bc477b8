// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <support/TestFiles.h>

#include <QTemporaryFile>
#include <QTest>

#include <unistd.h>

#include <cstdio>

namespace flitmark {

/// Catches what the process prints to standard output while it lives. After a failure it is printed in the end, as the
/// failure's own message is in it.
class OutputCapture
{
public:
    OutputCapture()
    {
        std::fflush(stdout);
        if (m_file.open()) {
            ::dup2(m_file.handle(), STDOUT_FILENO);
        }
    }
    ~OutputCapture()
    {
        std::fflush(stdout);
        ::dup2(m_savedOutput, STDOUT_FILENO);
        ::close(m_savedOutput);
        if (QTest::currentTestFailed()) {
            std::fputs(readTestFile(m_file.fileName()).constData(), stdout);
        }
    }
    Q_DISABLE_COPY_MOVE(OutputCapture)

    /// The lines printed so far, without their line breaks.
    QStringList lines()
    {
        std::fflush(stdout);
        return QString::fromUtf8(readTestFile(m_file.fileName())).split(u'\n', Qt::SkipEmptyParts);
    }

private:
    QTemporaryFile m_file;
    int m_savedOutput = ::dup(STDOUT_FILENO);
};

} // namespace flitmark

// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <support/OutputCapture.h>

#include <QFile>

#include <unistd.h>

#include <cstdio>

namespace flitmark {

OutputCapture::OutputCapture()
{
    std::fflush(stdout);
    m_savedOutput = ::dup(STDOUT_FILENO);
    if (m_file.open()) {
        ::dup2(m_file.handle(), STDOUT_FILENO);
    }
}

OutputCapture::~OutputCapture()
{
    std::fflush(stdout);
    ::dup2(m_savedOutput, STDOUT_FILENO);
    ::close(m_savedOutput);
}

QStringList OutputCapture::lines()
{
    std::fflush(stdout);
    QFile file(m_file.fileName());
    const bool isOpen = file.open(QIODevice::ReadOnly);
    const QString text = isOpen ? QString::fromUtf8(file.readAll()) : QString();
    return text.split(u'\n', Qt::SkipEmptyParts);
}

} // namespace flitmark

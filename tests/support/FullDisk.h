// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

#include <sys/resource.h>

#include <csignal>

namespace flitmark {

/// Lets no file of this process grow beyond a few bytes while it lives: to the process, a disk that is full.
class FullDisk
{
public:
    FullDisk()
    {
        ::getrlimit(RLIMIT_FSIZE, &m_old);
        struct rlimit few = m_old;
        few.rlim_cur = 16;
        ::signal(SIGXFSZ, SIG_IGN);
        ::setrlimit(RLIMIT_FSIZE, &few);
    }
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &m_old); }
    Q_DISABLE_COPY_MOVE(FullDisk)

private:
    struct rlimit m_old = {};
};

} // namespace flitmark

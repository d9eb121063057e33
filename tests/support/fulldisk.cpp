// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "fulldisk.h"

#include <csignal>

FullDisk::FullDisk(rlim_t bytes)
{
    // The signal would end the process before the write can fail.
    m_handler = std::signal(SIGXFSZ, SIG_IGN);
    if (getrlimit(RLIMIT_FSIZE, &m_before) != 0)
        qFatal("cannot read the limit of file sizes");
    rlimit small = m_before;
    small.rlim_cur = bytes;
    if (setrlimit(RLIMIT_FSIZE, &small) != 0)
        qFatal("cannot set the limit of file sizes");
}

FullDisk::~FullDisk()
{
    setrlimit(RLIMIT_FSIZE, &m_before);
    std::signal(SIGXFSZ, m_handler);
}

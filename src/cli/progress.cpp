// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/progress.h"

#include <iostream>
#include <unistd.h>
#include <utility>

namespace tessel::cli {

Progress::Progress(std::string what, int total)
    : m_what(std::move(what))
    , m_total(total)
    , m_terminal(isatty(STDERR_FILENO) == 1)
{
}

void Progress::finish()
{
    if (m_shown)
        std::cerr << "\r\x1b[K" << std::flush;
    m_shown = false;
}

void Progress::report(int done)
{
    using namespace std::chrono_literals;
    if (!m_terminal || std::chrono::steady_clock::now() - m_start < 1s)
        return;
    m_shown = true;
    std::cerr << "\r\x1b[K" << m_what << ": " << done << " of " << m_total << std::flush;
}

} // namespace tessel::cli

// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <chrono>
#include <ctime>

namespace tessel {

/// Measures the steps of a piece of work.
class Stopwatch
{
public:
    /// Milliseconds since the last lap, or since the making.
    double lap()
    {
        const auto now = std::chrono::steady_clock::now();
        const std::chrono::duration<double, std::milli> passed = now - m_start;
        m_start = now;
        return passed.count();
    }

private:
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

/// CPU time of all our threads, in milliseconds since some time.
inline double processorMilliseconds()
{
    return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

/// CPU time of this thread, in milliseconds since some time: of what other threads do nothing.
inline double threadMilliseconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return 1e3 * static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_nsec);
}

} // namespace tessel

// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/process.h"

#include <cstdlib>
#include <malloc.h>
#include <sys/resource.h>
#include <thread>
#include <unistd.h>

namespace tessel {

void lowerThreadPriority()
{
    static constexpr int niceness = 10;
    // On Linux what is called a process here is a thread.
    setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), niceness);
}

void endWithin(std::chrono::milliseconds time)
{
    std::thread([time] {
        std::this_thread::sleep_for(time);
        std::_Exit(EXIT_SUCCESS);
    }).detach();
}

void releaseUnusedMemory()
{
    malloc_trim(0);
}

} // namespace tessel

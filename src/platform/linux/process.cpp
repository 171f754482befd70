// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/process.h"

#include <malloc.h>
#include <sys/resource.h>
#include <unistd.h>

namespace tessel {

void lowerThreadPriority()
{
    static constexpr int niceness = 10;
    // On Linux what is called a process here is a thread.
    setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), niceness);
}

void releaseUnusedMemory()
{
    malloc_trim(0);
}

} // namespace tessel

// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/process.h"

#include <algorithm>
#include <array>
#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <link.h>
#include <malloc.h>
#include <span>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <sys/resource.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace tessel {

namespace {

/// How many threads Mesa's software renderer draws with, which it looks at when a display is first drawn on.
constexpr auto drawingThreads = "LP_NUM_THREADS";
constexpr auto noThread = "0";

struct Pages
{
    std::uintptr_t begin;
    std::uintptr_t end;
};

/// Read-only mappings of files in which nothing was written before they became so: pages that a loader or a
/// driver has changed would come back as they are in the file.
std::vector<Pages> unchangedFilePages()
{
    std::vector<Pages> unchanged;
    std::ifstream mappings("/proc/self/smaps");
    Pages candidate{};
    bool isCandidate = false;
    for (std::string line; std::getline(mappings, line);) {
        Pages pages{};
        std::array<char, 5> rights{};
        unsigned long inode = 0;
        // A line of its own for each mapping, then lines of figures.
        if (std::sscanf(line.c_str(), "%" SCNxPTR "-%" SCNxPTR " %4s %*x %*x:%*x %lu", &pages.begin,
                        &pages.end, rights.data(), &inode) == 4) {
            candidate = pages;
            isCandidate = inode != 0 && rights[1] == '-' && rights[3] == 'p';
        } else if (line.starts_with("Anonymous:") || line.starts_with("Swap:")) {
            isCandidate = isCandidate && line.ends_with(" 0 kB");
        } else if (isCandidate && line.starts_with("VmFlags:")) {
            unchanged.push_back(candidate);
        }
    }
    return unchanged;
}

/// For dl_iterate_phdr(), which keeps the object from being unloaded.
int releaseObject(dl_phdr_info* object, std::size_t /*size*/, void* unchangedPages)
{
    const std::span segments(object->dlpi_phdr, object->dlpi_phnum);
    for (const Pages& pages : *static_cast<const std::vector<Pages>*>(unchangedPages)) {
        const auto isInside = [&](const ElfW(Phdr) & segment) {
            const std::uintptr_t begin = object->dlpi_addr + segment.p_vaddr;
            return segment.p_type == PT_LOAD && begin < pages.end && pages.begin < begin + segment.p_memsz;
        };
        if (std::ranges::any_of(segments, isInside))
            // NOLINTNEXTLINE(performance-no-int-to-ptr): it was read as text
            madvise(reinterpret_cast<void*>(pages.begin), pages.end - pages.begin, MADV_DONTNEED);
    }
    return 0;
}

} // namespace

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

void beginDrawingOnCaller()
{
    constexpr int keepsOthers = 0;
    setenv(drawingThreads, noThread, keepsOthers);
}

void endDrawingOnCaller()
{
    const char* chosen = std::getenv(drawingThreads);
    if (chosen != nullptr && std::string_view(chosen) == noThread)
        unsetenv(drawingThreads);
}

void shareUnusedMemory()
{
    constexpr int arenas = 2;
    mallopt(M_ARENA_MAX, arenas);
    // Pictures and what a compiler works in come and go with looks. Left to itself the allocator takes them
    // from its arenas as soon as one of their size was freed, and smaller things that stay keep the gaps
    // open.
    constexpr int ownMapping = 1 << 20;
    constexpr int keptAtTheEnd = 4 << 20;
    mallopt(M_MMAP_THRESHOLD, ownMapping);
    mallopt(M_TRIM_THRESHOLD, keptAtTheEnd);
}

void releaseUnusedMemory()
{
    malloc_trim(0);
}

void releaseUnusedCode()
{
    std::vector<Pages> unchanged = unchangedFilePages();
    dl_iterate_phdr(releaseObject, &unchanged);
}

} // namespace tessel

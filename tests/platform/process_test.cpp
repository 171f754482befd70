// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/process.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <span>
#include <sys/mman.h>
#include <unistd.h>

namespace tessel {
namespace {

/// Much that is read-only and comes from the program's file.
alignas(65536) constexpr volatile char constants[16 * 65536] = {1};

/// Pages of the program that are there, of all kinds.
long residentPages()
{
    std::ifstream statm("/proc/self/statm");
    long all = 0;
    long resident = 0;
    statm >> all >> resident;
    return resident;
}

int sumOfConstants()
{
    int sum = 0;
    for (const volatile char& each : constants)
        sum += each;
    return sum;
}

TEST(Process, CodeThatWasReleasedComesBackAsItWas)
{
    ASSERT_EQ(sumOfConstants(), 1);
    const long before = residentPages();
    releaseUnusedCode();
    EXPECT_LT(residentPages(), before - 32);
    EXPECT_EQ(sumOfConstants(), 1);
}

// As a loader does, and drivers that write the code of their entry points.
TEST(Process, WhatWasChangedInMemoryIsKept)
{
    void* const page = const_cast<char*>(&constants[65536]);
    const auto size = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    ASSERT_EQ(mprotect(page, size, PROT_READ | PROT_WRITE), 0);
    *static_cast<char*>(page) = 5;
    ASSERT_EQ(mprotect(page, size, PROT_READ), 0);
    releaseUnusedCode();
    EXPECT_EQ(sumOfConstants(), 6);
}

} // namespace
} // namespace tessel

// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "render/background_drawing.h"

#include <atomic>
#include <cstdlib>

namespace tessel {

namespace {

/// Shared by those who draw; there until the very end.
std::shared_mutex& drawing()
{
    static auto& mutex = *new std::shared_mutex;
    return mutex;
}

void endWhileDrawing(int status, void* /*nothing*/)
{
    static bool isAlone = false; // only one thread exits
    isAlone = isAlone || drawing().try_lock();
    if (!isAlone)
        std::_Exit(status);
}

} // namespace

BackgroundDrawing::BackgroundDrawing() : m_lock(drawing()) {}

void BackgroundDrawing::guardExit()
{
    static std::atomic<int> registrations = 0;
    constexpr int enough = 8;
    if (registrations < enough && on_exit(endWhileDrawing, nullptr) == 0)
        ++registrations;
}

} // namespace tessel

// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/stand_by.h"

#include "base/file_descriptor.h"
#include "platform/linux/wayland/wayland_objects.h"

#include <QtGlobal>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <wayland-client.h>

namespace tessel {

namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

/// How long a compositor that starts anew may take.
constexpr seconds longestAbsence{10};
constexpr milliseconds betweenTries{200};

/// The connections of a compositor that dies are closed one after the other.
constexpr milliseconds longestClosing{500};

/// A session that starts the program itself does so first.
constexpr seconds courtesy{1};

/// Until whoever has the other end is gone.
void waitForEnd(const FileDescriptor& pipe)
{
    char byte = 0;
    while (read(pipe.get(), &byte, 1) < 0 && errno == EINTR) {
    }
}

bool isGone(wl_display* compositor)
{
    pollfd connection{.fd = wl_display_get_fd(compositor), .events = 0, .revents = 0}; // only of its end
    return poll(&connection, 1, milliseconds(longestClosing).count()) > 0;
}

bool comesBack()
{
    const auto end = std::chrono::steady_clock::now() + longestAbsence;
    while (std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(betweenTries);
        if (WaylandPointer<wl_display>(wl_display_connect(nullptr)) != nullptr)
            return true;
    }
    return false;
}

/// Ends the process unless the compositor has gone, with the program that has the pipe's other end, and is
/// back.
void waitForReturn(const FileDescriptor& program)
{
    const WaylandPointer<wl_display> compositor(wl_display_connect(nullptr));
    if (compositor == nullptr)
        std::_Exit(EXIT_SUCCESS);
    waitForEnd(program);
    if (!isGone(compositor.get()) || !comesBack())
        std::_Exit(EXIT_SUCCESS);
    std::this_thread::sleep_for(courtesy);
}

/// Makes another process.
/// \return there: what ends with this one; here, and where there can be none: nothing
FileDescriptor divide()
{
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        return {};
    FileDescriptor reading(ends[0]);
    FileDescriptor writing(ends[1]);
    const pid_t child = fork();
    if (child == 0)
        return reading;
    if (child > 0)
        // Open until the process ends, in whatever way.
        static const FileDescriptor ofThis = std::move(writing);
    return {};
}

} // namespace

bool standBy()
{
    // A connection that was handed over cannot be made again.
    if (!qEnvironmentVariableIsSet("WAYLAND_DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_SOCKET"))
        return false;
    bool isBack = false;
    // Who comes back leaves another behind.
    for (FileDescriptor program = divide(); program.isOpen(); program = divide()) {
        waitForReturn(program);
        isBack = true;
    }
    return isBack;
}

} // namespace tessel

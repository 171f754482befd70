// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <mutex>
#include <shared_mutex>

namespace tessel {

/// Kept by a thread beside the main one while it draws. Qt calls exit() when the X server is gone, and what
/// that goes on to take apart, the driver's compilers above all, would be taken from under the thread: the
/// program ends at once instead. Once exit() is under way nobody begins any more.
class BackgroundDrawing
{
public:
    BackgroundDrawing();

    /// To be called after each step that may have used parts of the driver for the first time: it registers
    /// what it takes apart then, and the last to be registered is the first to be heard.
    void guardExit();

private:
    std::shared_lock<std::shared_mutex> m_lock;
};

} // namespace tessel

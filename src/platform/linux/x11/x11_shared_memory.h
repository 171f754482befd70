// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <memory>
#include <xcb/shm.h>
#include <xcb/xcb.h>

namespace tessel {

/// Bytes that the X server sees too.
class X11SharedMemory
{
public:
    /// nullptr where the server cannot share, as over a network.
    /// \param connection must outlive the memory
    [[nodiscard]] static std::unique_ptr<X11SharedMemory> make(xcb_connection_t* connection,
                                                               std::size_t size);

    X11SharedMemory(const X11SharedMemory&) = delete;
    X11SharedMemory& operator=(const X11SharedMemory&) = delete;
    ~X11SharedMemory();

    [[nodiscard]] xcb_shm_seg_t segment() const { return m_segment; }
    [[nodiscard]] void* bytes() const { return m_bytes; }

private:
    X11SharedMemory(xcb_connection_t* connection, void* bytes, std::size_t size);

    xcb_connection_t* const m_connection;
    void* const m_bytes;
    const std::size_t m_size;
    const xcb_shm_seg_t m_segment;
};

} // namespace tessel

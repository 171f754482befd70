// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/linux/shared_pixels.h"
#include "platform/linux/wayland/wayland_objects.h"

#include <QSize>

#include <cstdint>
#include <memory>
#include <span>

namespace tessel {

/// A picture in memory that the compositor sees too: 0xFFRRGGBB from the top left corner on, without gaps.
class WaylandBuffer
{
public:
    /// Black at first.
    /// \return nullptr if there is no memory for it
    [[nodiscard]] static std::unique_ptr<WaylandBuffer> make(wl_shm* sharedMemory, QSize size);

    [[nodiscard]] std::span<std::uint32_t> pixels() const { return m_pixels->get(); }

    /// To be attached to a surface; until the compositor has done with it, nothing may be written.
    [[nodiscard]] wl_buffer* give();
    [[nodiscard]] bool isFree() const { return !m_isGiven; }

private:
    struct Listener;

    WaylandBuffer(std::unique_ptr<SharedPixels> pixels, WaylandPointer<wl_buffer> buffer);

    const std::unique_ptr<SharedPixels> m_pixels;
    const WaylandPointer<wl_buffer> m_buffer;
    bool m_isGiven = false;
};

} // namespace tessel

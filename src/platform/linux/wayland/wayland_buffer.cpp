// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/wayland/wayland_buffer.h"

#include <utility>
#include <wayland-client.h>

namespace tessel {

struct WaylandBuffer::Listener
{
    static void release(void* data, wl_buffer* /*buffer*/)
    {
        static_cast<WaylandBuffer*>(data)->m_isGiven = false;
    }

    static constexpr wl_buffer_listener all{release};
};

std::unique_ptr<WaylandBuffer> WaylandBuffer::make(wl_shm* sharedMemory, QSize size)
{
    std::unique_ptr<SharedPixels> pixels = SharedPixels::make(size);
    if (pixels == nullptr)
        return nullptr;
    wl_shm_pool* const pool = wl_shm_create_pool(sharedMemory, pixels->file().get(),
                                                 static_cast<std::int32_t>(pixels->get().size_bytes()));
    const int rowBytes = size.width() * static_cast<int>(sizeof(std::uint32_t));
    WaylandPointer<wl_buffer> buffer(
        wl_shm_pool_create_buffer(pool, 0, size.width(), size.height(), rowBytes, WL_SHM_FORMAT_XRGB8888));
    wl_shm_pool_destroy(pool);
    return std::unique_ptr<WaylandBuffer>(new WaylandBuffer(std::move(pixels), std::move(buffer)));
}

WaylandBuffer::WaylandBuffer(std::unique_ptr<SharedPixels> pixels, WaylandPointer<wl_buffer> buffer)
    : m_pixels(std::move(pixels))
    , m_buffer(std::move(buffer))
{
    wl_buffer_add_listener(m_buffer.get(), &Listener::all, this);
}

wl_buffer* WaylandBuffer::give()
{
    m_isGiven = true;
    return m_buffer.get();
}

} // namespace tessel

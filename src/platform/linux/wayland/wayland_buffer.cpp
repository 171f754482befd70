// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/wayland/wayland_buffer.h"

#include <sys/mman.h>
#include <unistd.h>
#include <utility>
#include <wayland-client.h>

namespace tessel {

namespace {

constexpr std::size_t bytesPerPixel = sizeof(std::uint32_t);

/// A file without a name; closed at the end.
class MemoryFile
{
public:
    explicit MemoryFile(std::size_t size)
        : m_descriptor(memfd_create("tessel-broth-wallpaper", MFD_CLOEXEC | MFD_ALLOW_SEALING))
    {
        if (m_descriptor >= 0 && ftruncate(m_descriptor, static_cast<off_t>(size)) != 0)
            close(std::exchange(m_descriptor, -1));
    }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    ~MemoryFile()
    {
        if (m_descriptor >= 0)
            close(m_descriptor);
    }
    [[nodiscard]] int descriptor() const { return m_descriptor; }

private:
    int m_descriptor;
};

} // namespace

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
    const auto count = static_cast<std::size_t>(size.width()) * static_cast<std::size_t>(size.height());
    const std::size_t bytes = count * bytesPerPixel;
    const MemoryFile file(bytes);
    if (file.descriptor() < 0)
        return nullptr;
    void* const memory = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED, file.descriptor(), 0);
    if (memory == MAP_FAILED)
        return nullptr;
    wl_shm_pool* const pool =
        wl_shm_create_pool(sharedMemory, file.descriptor(), static_cast<std::int32_t>(bytes));
    WaylandPointer<wl_buffer> buffer(wl_shm_pool_create_buffer(pool, 0, size.width(), size.height(),
                                                               size.width() * static_cast<int>(bytesPerPixel),
                                                               WL_SHM_FORMAT_XRGB8888));
    wl_shm_pool_destroy(pool);
    const std::span pixels(static_cast<std::uint32_t*>(memory), count);
    return std::unique_ptr<WaylandBuffer>(new WaylandBuffer(pixels, std::move(buffer)));
}

WaylandBuffer::WaylandBuffer(std::span<std::uint32_t> pixels, WaylandPointer<wl_buffer> buffer)
    : m_pixels(pixels)
    , m_buffer(std::move(buffer))
{
    wl_buffer_add_listener(m_buffer.get(), &Listener::all, this);
}

WaylandBuffer::~WaylandBuffer()
{
    munmap(m_pixels.data(), m_pixels.size_bytes());
}

wl_buffer* WaylandBuffer::give()
{
    m_isGiven = true;
    return m_buffer.get();
}

} // namespace tessel

// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/shared_pixels.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <utility>

namespace tessel {

std::unique_ptr<SharedPixels> SharedPixels::make(QSize size)
{
    const auto count = static_cast<std::size_t>(size.width()) * static_cast<std::size_t>(size.height());
    const std::size_t bytes = count * sizeof(std::uint32_t);
    FileDescriptor file(memfd_create("tessel-broth-wallpaper", MFD_CLOEXEC | MFD_ALLOW_SEALING));
    if (!file.isOpen() || ftruncate(file.get(), static_cast<off_t>(bytes)) != 0 ||
        fcntl(file.get(), F_ADD_SEALS, F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_SEAL) != 0)
        return nullptr;
    void* const memory = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED, file.get(), 0);
    if (memory == MAP_FAILED)
        return nullptr;
    return std::unique_ptr<SharedPixels>(
        new SharedPixels(size, std::span(static_cast<std::uint32_t*>(memory), count), std::move(file)));
}

SharedPixels::SharedPixels(QSize size, std::span<std::uint32_t> pixels, FileDescriptor file)
    : m_size(size)
    , m_pixels(pixels)
    , m_file(std::move(file))
{
}

SharedPixels::~SharedPixels()
{
    munmap(m_pixels.data(), m_pixels.size_bytes());
}

} // namespace tessel

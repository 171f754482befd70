// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/file_descriptor.h"

#include <QSize>

#include <cstdint>
#include <memory>
#include <span>

namespace tessel {

/// The pixels of a picture, 0xFFRRGGBB without gaps, in memory that another process can have too. It never
/// gets smaller, so that nobody else reads behind its end.
class SharedPixels
{
public:
    /// \return nullptr where there is no memory for them
    [[nodiscard]] static std::unique_ptr<SharedPixels> make(QSize size);
    SharedPixels(const SharedPixels&) = delete;
    SharedPixels& operator=(const SharedPixels&) = delete;
    ~SharedPixels();

    [[nodiscard]] std::span<std::uint32_t> get() const { return m_pixels; }
    [[nodiscard]] QSize size() const { return m_size; }
    [[nodiscard]] const FileDescriptor& file() const { return m_file; }

private:
    SharedPixels(QSize size, std::span<std::uint32_t> pixels, FileDescriptor file);

    const QSize m_size;
    const std::span<std::uint32_t> m_pixels;
    const FileDescriptor m_file;
};

} // namespace tessel

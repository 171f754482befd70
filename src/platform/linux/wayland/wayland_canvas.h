// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/canvas.h"
#include "platform/linux/wayland/wayland_buffer.h"
#include "platform/linux/wayland/wayland_objects.h"

#include <QSize>

#include <memory>
#include <vector>

namespace tessel {

class WaylandBackdrop;
class WaylandGlSurface;

/// Draws into a backdrop with OpenGL.
class WaylandGpuCanvas final : public GpuCanvas
{
public:
    /// \param backdrop must outlive this
    /// \param size pixels
    WaylandGpuCanvas(WaylandBackdrop& backdrop, QSize size);
    WaylandGpuCanvas(const WaylandGpuCanvas&) = delete;
    WaylandGpuCanvas& operator=(const WaylandGpuCanvas&) = delete;
    ~WaylandGpuCanvas() override;

    [[nodiscard]] bool makeCurrent(GlContext& context) override;
    void present(GlContext& context) override;
    /// To be called before the backdrop's surface ends.
    void release();

private:
    WaylandBackdrop& m_backdrop;
    const QSize m_size;
    std::unique_ptr<WaylandGlSurface> m_surface;
};

/// Draws into a backdrop through memory that the compositor shares. One buffer is enough where it copies what
/// it is given; else what changed in one is repeated in the next.
class WaylandPixelCanvas final : public PixelCanvas
{
public:
    /// \param backdrop must outlive this
    /// \param size pixels
    WaylandPixelCanvas(WaylandBackdrop& backdrop, wl_shm* sharedMemory, QSize size);

    [[nodiscard]] bool isReady() const override;
    [[nodiscard]] std::uint32_t* pixels() override;
    void presentPixels(std::span<const PixelRect> changed) override;
    /// Does nothing: this memory is what is shown.
    void releasePixels() override {}
    void present(std::span<const ColoredRect> rectangles) override;
    /// Gives all memory back; what is drawn next has to be drawn whole.
    void release();

private:
    struct Frame
    {
        std::unique_ptr<WaylandBuffer> buffer;
        std::vector<PixelRect> outdated; ///< where the latest one is another
        bool isOutdated = false;         ///< everywhere
    };

    void begin();
    void update(Frame& frame);
    [[nodiscard]] std::span<std::uint32_t> row(const Frame& frame, const PixelRect& area, int index) const;
    void copy(const PixelRect& area, Frame& to);
    void show(std::span<const PixelRect> changed);

    WaylandBackdrop& m_backdrop;
    wl_shm* const m_sharedMemory;
    const QSize m_size;
    std::vector<Frame> m_frames;
    Frame* m_latest = nullptr;      ///< that is shown; nullptr for none
    Frame* m_drawn = nullptr;       ///< that is drawn into
    std::vector<PixelRect> m_areas; ///< of rectangles
};

} // namespace tessel

// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/wayland/wayland_canvas.h"

#include "platform/linux/wayland/wayland_backdrop.h"
#include "platform/linux/wayland/wayland_gl_context.h"

#include <algorithm>
#include <limits>
#include <new>
#include <wayland-client.h>

namespace tessel {

namespace {

/// While one is shown and one on its way, the third can be drawn into.
constexpr std::size_t mostBuffers = 3;

/// Of more pieces it costs a compositor less to take all: those of the wlroots family take what lies around
/// them from 20 pieces on, and KWin's cost grows with each.
constexpr std::size_t mostPieces = 64;
/// Of more pieces a copy of all costs less.
constexpr std::size_t mostOutdated = 600;

} // namespace

WaylandGpuCanvas::WaylandGpuCanvas(WaylandBackdrop& backdrop, QSize size) : m_backdrop(backdrop), m_size(size)
{
}

WaylandGpuCanvas::~WaylandGpuCanvas() = default;

bool WaylandGpuCanvas::makeCurrent(GlContext& context)
{
    if (!m_backdrop.isReady())
        return false;
    auto& ours = static_cast<WaylandGlContext&>(context);
    if (m_surface == nullptr)
        m_surface = ours.makeSurface(m_backdrop.surface(), m_size);
    return ours.makeCurrent(*m_surface);
}

void WaylandGpuCanvas::present(GlContext& context)
{
    m_backdrop.askForFrame();
    static_cast<WaylandGlContext&>(context).swap(*m_surface);
}

void WaylandGpuCanvas::release()
{
    m_surface.reset();
}

WaylandPixelCanvas::WaylandPixelCanvas(WaylandBackdrop& backdrop, wl_shm* sharedMemory, QSize size)
    : m_backdrop(backdrop)
    , m_sharedMemory(sharedMemory)
    , m_size(size)
{
    m_frames.reserve(mostBuffers);
}

bool WaylandPixelCanvas::isReady() const
{
    return m_backdrop.isReady() &&
           (m_frames.size() < mostBuffers ||
            std::ranges::any_of(m_frames, [](const Frame& frame) { return frame.buffer->isFree(); }));
}

std::uint32_t* WaylandPixelCanvas::pixels()
{
    begin();
    return m_drawn->buffer->pixels().data();
}

void WaylandPixelCanvas::presentPixels(std::span<const PixelRect> changed)
{
    show(changed);
}

void WaylandPixelCanvas::present(std::span<const ColoredRect> rectangles)
{
    begin();
    m_areas.clear();
    for (const ColoredRect& rectangle : rectangles) {
        fillRectangle(m_drawn->buffer->pixels().data(), m_size.width(), rectangle);
        m_areas.push_back(rectangle.area);
    }
    show(m_areas);
}

void WaylandPixelCanvas::release()
{
    m_latest = nullptr;
    m_drawn = nullptr;
    m_frames.clear();
}

/// Finds a buffer that may be written, the shown one if the compositor has copied it already, and has it show
/// what is shown.
void WaylandPixelCanvas::begin()
{
    if (m_latest != nullptr && m_latest->buffer->isFree()) {
        m_drawn = m_latest;
        return;
    }
    const auto free =
        std::ranges::find_if(m_frames, [](const Frame& frame) { return frame.buffer->isFree(); });
    if (free != m_frames.end()) {
        m_drawn = &*free;
    } else {
        std::unique_ptr<WaylandBuffer> buffer = WaylandBuffer::make(m_sharedMemory, m_size);
        if (buffer == nullptr)
            throw std::bad_alloc();
        m_drawn = &m_frames.emplace_back(Frame{std::move(buffer), {}, true});
    }
    if (m_latest != nullptr)
        update(*m_drawn);
}

void WaylandPixelCanvas::update(Frame& frame)
{
    if (frame.isOutdated)
        std::ranges::copy(m_latest->buffer->pixels(), frame.buffer->pixels().begin());
    else
        for (const PixelRect& area : frame.outdated)
            copy(area, frame);
}

/// One row of an area, counted from the area's first.
std::span<std::uint32_t> WaylandPixelCanvas::row(const Frame& frame, const PixelRect& area, int index) const
{
    const auto first = static_cast<std::size_t>(area.y + index) * static_cast<std::size_t>(m_size.width()) +
                       static_cast<std::size_t>(area.x);
    return frame.buffer->pixels().subspan(first, area.width);
}

void WaylandPixelCanvas::copy(const PixelRect& area, Frame& to)
{
    for (int index = 0; index < area.height; ++index)
        std::ranges::copy(row(*m_latest, area, index), row(to, area, index).begin());
}

void WaylandPixelCanvas::show(std::span<const PixelRect> changed)
{
    const bool isAll = changed.size() > mostPieces;
    wl_surface* const surface = m_backdrop.surface();
    wl_surface_attach(surface, m_drawn->buffer->give(), 0, 0);
    if (isAll)
        wl_surface_damage_buffer(surface, 0, 0, m_size.width(), m_size.height());
    else
        for (const auto& [x, y, width, height] : changed)
            wl_surface_damage_buffer(surface, x, y, width, height);
    m_backdrop.commit();
    for (Frame& frame : m_frames) {
        frame.isOutdated = &frame != m_drawn && (frame.isOutdated || frame.outdated.size() > mostOutdated);
        if (&frame == m_drawn || frame.isOutdated)
            frame.outdated.clear();
        else
            frame.outdated.insert(frame.outdated.end(), changed.begin(), changed.end());
    }
    m_latest = m_drawn;
}

} // namespace tessel

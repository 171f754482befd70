// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/x11/x11_canvas.h"

#include "platform/linux/qt_gl_context.h"
#include "platform/linux/x11/x11_connection.h"
#include "platform/linux/x11/x11_shared_memory.h"

#include <QWindow>

#include <algorithm>

namespace tessel {

namespace {

/// The rectangles that one request may hold without any extension.
constexpr std::size_t mostRectangles = 8000;

/// As a pixel of ten bits for each colour, white staying white.
std::uint32_t deepColor(std::uint32_t color)
{
    const auto part = [color](int shift) {
        const std::uint32_t value = (color >> shift) & 0xFFU;
        return value << 2U | value >> 6U;
    };
    return part(16) << 20U | part(8) << 10U | part(0);
}

} // namespace

bool X11GpuCanvas::makeCurrent(GlContext& context)
{
    return m_window.isExposed() && static_cast<QtGlContext&>(context).makeCurrent(m_window);
}

void X11GpuCanvas::present(GlContext& context)
{
    static_cast<QtGlContext&>(context).swap(m_window);
}

X11PixelCanvas::X11PixelCanvas(xcb_connection_t* connection, QWindow& window, QSize size, std::uint8_t depth)
    : m_connection(connection)
    , m_window(window)
    , m_id(static_cast<xcb_window_t>(window.winId()))
    , m_size(size)
    , m_depth(depth)
    , m_graphics(xcb_generate_id(connection))
{
    static constexpr std::uint32_t noExposures = 0;
    xcb_create_gc(m_connection, m_graphics, m_id, XCB_GC_GRAPHICS_EXPOSURES, &noExposures);
}

X11PixelCanvas::~X11PixelCanvas()
{
    xcb_free_gc(m_connection, m_graphics);
}

bool X11PixelCanvas::isReady() const
{
    return m_window.isExposed();
}

std::uint32_t* X11PixelCanvas::pixels()
{
    if (m_image.isNull())
        makeImage();
    // A server that has not yet read what it shares with us shows parts of the next frame for a moment, which
    // is soon presented. To wait for it would take longer, and wake three threads.
    return reinterpret_cast<std::uint32_t*>(m_image.bits());
}

void X11PixelCanvas::makeImage()
{
    const auto bytes =
        static_cast<std::size_t>(m_size.width()) * static_cast<std::size_t>(m_size.height()) * 4U;
    if (m_depth != deepColorDepth) // there what is shown is another than what is drawn
        m_shared = X11SharedMemory::make(m_connection, bytes);
    m_image = m_shared == nullptr ? QImage(m_size, QImage::Format_RGB32)
                                  : QImage(static_cast<uchar*>(m_shared->bytes()), m_size.width(),
                                           m_size.height(), QImage::Format_RGB32);
}

void X11PixelCanvas::presentPixels(std::span<const PixelRect> changed)
{
    const auto width = static_cast<std::uint16_t>(m_size.width());
    const auto height = static_cast<std::uint16_t>(m_size.height());
    for (const PixelRect& area : changed) {
        if (m_shared == nullptr)
            putImage(m_connection, m_id, m_graphics, m_depth,
                     inFormatOf(m_depth, m_image.copy(area.x, area.y, area.width, area.height)),
                     {area.x, area.y});
        else
            xcb_shm_put_image(m_connection, m_id, m_graphics, width, height,
                              static_cast<std::uint16_t>(area.x), static_cast<std::uint16_t>(area.y),
                              area.width, area.height, area.x, area.y, m_depth, XCB_IMAGE_FORMAT_Z_PIXMAP, 0,
                              m_shared->segment(), 0);
    }
    xcb_flush(m_connection);
}

void X11PixelCanvas::releasePixels()
{
    m_image = {};
    m_shared.reset();
}

void X11PixelCanvas::present(std::span<const ColoredRect> rectangles)
{
    while (!rectangles.empty()) {
        const std::uint32_t color = rectangles.front().color;
        const auto end =
            std::ranges::find_if(rectangles.first(std::min(rectangles.size(), mostRectangles)),
                                 [color](const ColoredRect& each) { return each.color != color; });
        const auto count = static_cast<std::size_t>(end - rectangles.begin());
        fill(rectangles.first(count));
        rectangles = rectangles.subspan(count);
    }
    xcb_flush(m_connection);
}

/// \param rectangles of one colour, no more than a request may hold
void X11PixelCanvas::fill(std::span<const ColoredRect> rectangles)
{
    m_areas.clear();
    for (const auto& [_, area] : rectangles)
        m_areas.push_back({area.x, area.y, area.width, area.height});
    const std::uint32_t color = rectangles.front().color;
    const std::uint32_t pixel = m_depth == deepColorDepth ? deepColor(color) : color;
    xcb_change_gc(m_connection, m_graphics, XCB_GC_FOREGROUND, &pixel);
    xcb_poly_fill_rectangle(m_connection, m_id, m_graphics, static_cast<std::uint32_t>(m_areas.size()),
                            m_areas.data());
}

} // namespace tessel

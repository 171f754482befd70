// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/canvas.h"

#include <QImage>
#include <QSize>

#include <memory>
#include <xcb/xcb.h>

class QWindow;

namespace tessel {

class X11SharedMemory;

/// Draws into a window with OpenGL.
class X11GpuCanvas final : public GpuCanvas
{
public:
    /// \param window made for OpenGL; must outlive this
    explicit X11GpuCanvas(QWindow& window) : m_window(window) {}

    [[nodiscard]] bool makeCurrent(GlContext& context) override;
    void present(GlContext& context) override;

private:
    QWindow& m_window;
};

/// Draws into a window with the server's own requests, through shared memory where there is some.
class X11PixelCanvas final : public PixelCanvas
{
public:
    /// \param connection that the window is shown on, so that all comes in order
    /// \param window must outlive this
    X11PixelCanvas(xcb_connection_t* connection, QWindow& window, QSize size, std::uint8_t depth);
    X11PixelCanvas(const X11PixelCanvas&) = delete;
    X11PixelCanvas& operator=(const X11PixelCanvas&) = delete;
    ~X11PixelCanvas() override;

    [[nodiscard]] bool isReady() const override;
    [[nodiscard]] std::uint32_t* pixels() override;
    void presentPixels(std::span<const PixelRect> changed) override;
    void releasePixels() override;
    void present(std::span<const ColoredRect> rectangles) override;

private:
    void makeImage();
    void fill(std::span<const ColoredRect> rectangles);

    xcb_connection_t* const m_connection;
    QWindow& m_window;
    const xcb_window_t m_id;
    const QSize m_size;
    const std::uint8_t m_depth;
    const xcb_gcontext_t m_graphics;
    std::unique_ptr<X11SharedMemory> m_shared; ///< nullptr where the server is elsewhere, or has other pixels
    QImage m_image;                            ///< in the shared memory if there is any
    std::vector<xcb_rectangle_t> m_areas;      ///< of one colour
};

} // namespace tessel

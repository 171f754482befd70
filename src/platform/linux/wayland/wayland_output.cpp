// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/wayland/wayland_output.h"

#include "xdg-output-unstable-v1-client.h"

#include <wayland-client.h>

namespace tessel {

namespace {

/// Of monitors that do not tell how often they show a picture.
constexpr int usualRefresh = 60000;

} // namespace

struct WaylandOutput::Listener
{
    static WaylandOutput& self(void* data) { return *static_cast<WaylandOutput*>(data); }

    static void geometry(void* data, wl_output* /*output*/, int x, int y, int /*width*/, int /*height*/,
                         int /*subpixel*/, const char* /*make*/, const char* /*model*/, int transform)
    {
        if (self(data).m_place == nullptr)
            self(data).m_position = {x, y};
        self(data).m_isTurned = transform % 2 == 1; // by 90 or 270 degrees, flipped or not
    }

    static void mode(void* data, wl_output* /*output*/, std::uint32_t flags, int width, int height,
                     int refresh)
    {
        if ((flags & WL_OUTPUT_MODE_CURRENT) == 0)
            return;
        self(data).m_mode = {width, height};
        self(data).m_refresh = refresh;
    }

    static void done(void* data, wl_output* /*output*/)
    {
        self(data).m_isKnown = !self(data).m_mode.isEmpty();
        Q_EMIT self(data).changed();
    }

    static void scale(void* data, wl_output* /*output*/, int factor) { self(data).m_scale = factor; }

    static void name(void* data, wl_output* /*output*/, const char* name)
    {
        self(data).m_name = QString::fromUtf8(name);
    }

    static void description(void* /*data*/, wl_output* /*output*/, const char* /*description*/) {}

    static constexpr wl_output_listener all{geometry, mode, done, scale, name, description};
};

struct WaylandOutput::PlaceListener
{
    static void position(void* data, zxdg_output_v1* /*place*/, int x, int y)
    {
        Listener::self(data).m_position = {x, y};
    }

    static void size(void* data, zxdg_output_v1* /*place*/, int width, int height)
    {
        Listener::self(data).m_size = {width, height};
    }

    static void done(void* /*data*/, zxdg_output_v1* /*place*/) {}
    static void name(void* /*data*/, zxdg_output_v1* /*place*/, const char* /*name*/) {}
    static void description(void* /*data*/, zxdg_output_v1* /*place*/, const char* /*description*/) {}

    static constexpr zxdg_output_v1_listener all{position, size, done, name, description};
};

WaylandOutput::WaylandOutput(std::uint32_t number, WaylandPointer<wl_output> output)
    : m_number(number)
    , m_output(std::move(output))
    , m_name(QStringLiteral("monitor-%1").arg(number))
{
    wl_output_add_listener(m_output.get(), &Listener::all, this);
}

void WaylandOutput::followPlace(zxdg_output_manager_v1* manager)
{
    m_place.reset(zxdg_output_manager_v1_get_xdg_output(manager, m_output.get()));
    zxdg_output_v1_add_listener(m_place.get(), &PlaceListener::all, this);
}

QSize WaylandOutput::pixels() const
{
    return m_isTurned ? m_mode.transposed() : m_mode;
}

Screen WaylandOutput::screen() const
{
    const QSize pixels = this->pixels();
    const QSize points = m_size.isEmpty() ? pixels / m_scale : m_size;
    const QRect frame(m_position, points);
    return {.name = m_name,
            .frame = frame,
            .scale = static_cast<double>(pixels.width()) / points.width(),
            .resolution = pixels,
            .workArea = frame,
            .layout = Layout::points};
}

double WaylandOutput::refreshSeconds() const
{
    return 1000.0 / (m_refresh > 0 ? m_refresh : usualRefresh);
}

} // namespace tessel

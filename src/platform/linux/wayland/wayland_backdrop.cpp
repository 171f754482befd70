// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/wayland/wayland_backdrop.h"

#include "platform/linux/wayland/layer_shell.h"
#include "platform/linux/wayland/sway_background.h"
#include "platform/linux/wayland/wayland_connection.h"
#include "viewporter-client.h"

#include <algorithm>
#include <chrono>
#include <limits>
#include <utility>
#include <wayland-client.h>

namespace tessel {

namespace {

constexpr auto unlimited = std::numeric_limits<std::int32_t>::max();
constexpr std::uint32_t everyEdge = ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP | ZWLR_LAYER_SURFACE_V1_ANCHOR_BOTTOM |
                                    ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT | ZWLR_LAYER_SURFACE_V1_ANCHOR_RIGHT;
/// Says to stand under panels, not beside them.
constexpr int underPanels = -1;
/// After which nobody is taken to see it.
constexpr std::chrono::milliseconds longestFrame{1000};

} // namespace

struct WaylandBackdrop::Listener
{
    static void configure(void* data, zwlr_layer_surface_v1* /*role*/, std::uint32_t serial,
                          std::uint32_t width, std::uint32_t height)
    {
        static_cast<WaylandBackdrop*>(data)->configure(
            serial, QSize(static_cast<int>(width), static_cast<int>(height)));
    }

    static void closed(void* data, zwlr_layer_surface_v1* /*role*/)
    {
        static_cast<WaylandBackdrop*>(data)->disappear();
    }

    static constexpr zwlr_layer_surface_v1_listener all{configure, closed};
};

struct WaylandBackdrop::FrameListener
{
    static void done(void* data, wl_callback* /*callback*/, std::uint32_t /*time*/)
    {
        static_cast<WaylandBackdrop*>(data)->finishFrame();
    }

    static constexpr wl_callback_listener all{done};
};

WaylandBackdrop::WaylandBackdrop(WaylandConnection& connection) : m_connection(connection)
{
    m_stalled.setSingleShot(true);
    m_stalled.setInterval(longestFrame);
    connect(&m_stalled, &QTimer::timeout, this, &WaylandBackdrop::tryLayers);
}

WaylandBackdrop::~WaylandBackdrop()
{
    disappear();
}

void WaylandBackdrop::setOutput(std::shared_ptr<WaylandOutput> output)
{
    if (output == m_output)
        return;
    disappear();
    m_output = std::move(output);
    if (m_isPlaying || m_picture != nullptr)
        appear();
}

double WaylandBackdrop::refreshSeconds() const
{
    return m_output == nullptr ? 0 : m_output->refreshSeconds();
}

void WaylandBackdrop::setPicture(const QImage& picture, const QString& file)
{
    m_picture = WaylandBuffer::make(m_connection.sharedMemory(), picture.size());
    if (m_picture == nullptr)
        return;
    std::copy_n(reinterpret_cast<const std::uint32_t*>(picture.constBits()), m_picture->pixels().size(),
                m_picture->pixels().begin());
    m_pictureFile = file;
    if (m_wasShown)
        updateSway();
    appear();
    if (!m_isPlaying)
        showPicture();
}

void WaylandBackdrop::startPlaying()
{
    m_isPlaying = true;
    appear();
    if (m_isConfigured)
        Q_EMIT ready();
}

void WaylandBackdrop::stopPlaying()
{
    m_isPlaying = false;
    if (m_picture == nullptr)
        disappear();
    else
        showPicture();
}

/// Below everything, and letting every click through. It is there once the compositor has told its size.
void WaylandBackdrop::appear()
{
    if (m_surface != nullptr || m_output == nullptr)
        return;
    m_surface.reset(wl_compositor_create_surface(m_connection.compositor()));
    m_viewport.reset(wp_viewporter_get_viewport(m_connection.viewporter(), m_surface.get()));
    m_role.reset(zwlr_layer_shell_v1_get_layer_surface(m_connection.layers(), m_surface.get(),
                                                       m_output->get(), ZWLR_LAYER_SHELL_V1_LAYER_BACKGROUND,
                                                       "wallpaper"));
    zwlr_layer_surface_v1_add_listener(m_role.get(), &Listener::all, this);
    zwlr_layer_surface_v1_set_anchor(m_role.get(), everyEdge);
    zwlr_layer_surface_v1_set_exclusive_zone(m_role.get(), underPanels);
    const WaylandPointer<wl_region> nothing(wl_compositor_create_region(m_connection.compositor()));
    wl_surface_set_input_region(m_surface.get(), nothing.get());
    const WaylandPointer<wl_region> everything(wl_compositor_create_region(m_connection.compositor()));
    wl_region_add(everything.get(), 0, 0, unlimited, unlimited);
    wl_surface_set_opaque_region(m_surface.get(), everything.get());
    wl_surface_commit(m_surface.get());
    m_connection.flush();
}

void WaylandBackdrop::disappear()
{
    if (m_surface == nullptr)
        return;
    Q_EMIT aboutToEnd();
    m_stalled.stop();
    m_frame.reset();
    m_role.reset();
    m_viewport.reset();
    m_surface.reset();
    m_isConfigured = false;
    m_wasShown = false;
    m_layer = Layer::background;
    m_connection.flush();
}

/// It may come again at any time, with another size or the same.
void WaylandBackdrop::configure(std::uint32_t serial, QSize size)
{
    zwlr_layer_surface_v1_ack_configure(m_role.get(), serial);
    wp_viewport_set_destination(m_viewport.get(), std::max(1, size.width()), std::max(1, size.height()));
    if (std::exchange(m_isConfigured, true))
        commit();
    else if (m_isPlaying)
        Q_EMIT ready();
    else
        showPicture();
}

void WaylandBackdrop::showPicture()
{
    if (!m_isConfigured || m_picture == nullptr)
        return;
    wl_surface_attach(m_surface.get(), m_picture->give(), 0, 0);
    wl_surface_damage_buffer(m_surface.get(), 0, 0, unlimited, unlimited);
    commit();
}

void WaylandBackdrop::askForFrame()
{
    if (m_frame != nullptr)
        return;
    m_frame.reset(wl_surface_frame(m_surface.get()));
    wl_callback_add_listener(m_frame.get(), &FrameListener::all, this);
    if (m_layer != Layer::bottom && canTryLayers())
        m_stalled.start();
}

void WaylandBackdrop::commit()
{
    askForFrame();
    wl_surface_commit(m_surface.get());
    m_connection.flush();
}

void WaylandBackdrop::finishFrame()
{
    m_stalled.stop();
    m_frame.reset();
    if (!std::exchange(m_wasShown, true))
        updateSway();
    if (m_layer == Layer::tryingBottom)
        m_layer = Layer::bottom;
    Q_EMIT frameDone();
}

/// What sway draws would cover ours until it is drawn anew.
void WaylandBackdrop::updateSway()
{
    if (m_connection.stacksLatestLowest())
        setSwayBackground(m_output->screen().name, m_pictureFile);
}

/// Another wallpaper program may cover it, or a window that fills the screen: what covers the first layer,
/// but not the second, is no window.
void WaylandBackdrop::tryLayers()
{
    if (m_layer == Layer::background) {
        setLayer(Layer::tryingBottom);
        m_stalled.start();
    } else {
        setLayer(Layer::background);
    }
}

/// Not where it would come back below what is drawn there.
bool WaylandBackdrop::canTryLayers() const
{
    return !m_connection.stacksLatestLowest() &&
           zwlr_layer_surface_v1_get_version(m_role.get()) >= ZWLR_LAYER_SURFACE_V1_SET_LAYER_SINCE_VERSION;
}

void WaylandBackdrop::setLayer(Layer layer)
{
    m_layer = layer;
    zwlr_layer_surface_v1_set_layer(m_role.get(), layer == Layer::background
                                                      ? ZWLR_LAYER_SHELL_V1_LAYER_BACKGROUND
                                                      : ZWLR_LAYER_SHELL_V1_LAYER_BOTTOM);
    commit();
}

} // namespace tessel

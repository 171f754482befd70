// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/wayland/wayland_objects.h"

#include "platform/linux/wayland/layer_shell.h"
#include "viewporter-client.h"
#include "xdg-output-unstable-v1-client.h"

#include <wayland-client.h>
#include <wayland-egl.h>

namespace tessel {

void WaylandDeleter::operator()(wl_buffer* object) const
{
    wl_buffer_destroy(object);
}

void WaylandDeleter::operator()(wl_callback* object) const
{
    wl_callback_destroy(object);
}

void WaylandDeleter::operator()(wl_compositor* object) const
{
    wl_compositor_destroy(object);
}

void WaylandDeleter::operator()(wl_display* object) const
{
    wl_display_disconnect(object);
}

void WaylandDeleter::operator()(wl_egl_window* object) const
{
    wl_egl_window_destroy(object);
}

void WaylandDeleter::operator()(wl_output* object) const
{
    if (wl_output_get_version(object) >= WL_OUTPUT_RELEASE_SINCE_VERSION)
        wl_output_release(object);
    else
        wl_output_destroy(object);
}

void WaylandDeleter::operator()(wl_region* object) const
{
    wl_region_destroy(object);
}

void WaylandDeleter::operator()(wl_registry* object) const
{
    wl_registry_destroy(object);
}

void WaylandDeleter::operator()(wl_shm* object) const
{
    wl_shm_destroy(object);
}

void WaylandDeleter::operator()(wl_surface* object) const
{
    wl_surface_destroy(object);
}

void WaylandDeleter::operator()(wp_viewport* object) const
{
    wp_viewport_destroy(object);
}

void WaylandDeleter::operator()(wp_viewporter* object) const
{
    wp_viewporter_destroy(object);
}

void WaylandDeleter::operator()(zwlr_layer_shell_v1* object) const
{
    if (zwlr_layer_shell_v1_get_version(object) >= ZWLR_LAYER_SHELL_V1_DESTROY_SINCE_VERSION)
        zwlr_layer_shell_v1_destroy(object);
    else
        wl_proxy_destroy(reinterpret_cast<wl_proxy*>(object));
}

void WaylandDeleter::operator()(zwlr_layer_surface_v1* object) const
{
    zwlr_layer_surface_v1_destroy(object);
}

void WaylandDeleter::operator()(zxdg_output_manager_v1* object) const
{
    zxdg_output_manager_v1_destroy(object);
}

void WaylandDeleter::operator()(zxdg_output_v1* object) const
{
    zxdg_output_v1_destroy(object);
}

} // namespace tessel

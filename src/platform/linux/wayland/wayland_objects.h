// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <memory>

struct wl_buffer;
struct wl_callback;
struct wl_compositor;
struct wl_display;
struct wl_egl_window;
struct wl_output;
struct wl_region;
struct wl_registry;
struct wl_shm;
struct wl_surface;
struct wp_viewport;
struct wp_viewporter;
struct zwlr_layer_shell_v1;
struct zwlr_layer_surface_v1;
struct zxdg_output_manager_v1;
struct zxdg_output_v1;

namespace tessel {

/// Ends what the compositor keeps for us, and our side of it.
struct WaylandDeleter
{
    void operator()(wl_buffer* object) const;
    void operator()(wl_callback* object) const;
    void operator()(wl_compositor* object) const;
    void operator()(wl_display* object) const;
    void operator()(wl_egl_window* object) const;
    void operator()(wl_output* object) const;
    void operator()(wl_region* object) const;
    void operator()(wl_registry* object) const;
    void operator()(wl_shm* object) const;
    void operator()(wl_surface* object) const;
    void operator()(wp_viewport* object) const;
    void operator()(wp_viewporter* object) const;
    void operator()(zwlr_layer_shell_v1* object) const;
    void operator()(zwlr_layer_surface_v1* object) const;
    void operator()(zxdg_output_manager_v1* object) const;
    void operator()(zxdg_output_v1* object) const;
};

template<typename Object>
using WaylandPointer = std::unique_ptr<Object, WaylandDeleter>;

} // namespace tessel

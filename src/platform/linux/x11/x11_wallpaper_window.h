// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/screens.h"
#include "platform/wallpaper_window.h"

#include <memory>

namespace tessel {

class X11Connection;
class X11Events;
class X11Occlusion;
class X11ScreenPower;
enum class Rasterizer : std::uint8_t;

/// What the wallpaper's windows on one X server share; all of it must outlive them.
struct X11Surroundings
{
    X11Connection& connection;
    X11Events& events;
    X11Occlusion& occlusion;
    X11ScreenPower& power;
};

/// The desktop's picture is known to a window of this class, which leaves free what else the desktop draws.
class X11WallpaperWindow : public WallpaperWindow
{
    Q_OBJECT

public:
    /// \param file of the window's pixel size
    virtual void setPictureBehind(const QString& file) = 0;
};

[[nodiscard]] std::unique_ptr<X11WallpaperWindow>
makeX11WallpaperWindow(const Screen& screen, Rasterizer rasterizer, const X11Surroundings& surroundings);

} // namespace tessel

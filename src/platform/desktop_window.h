// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/screens.h"

#include <QImage>
#include <QObject>
#include <QSize>
#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <span>

namespace tessel {

class GlContext;

/// Some of a window's pixels, from its top left corner.
struct PixelRect
{
    std::int16_t x = 0;
    std::int16_t y = 0;
    std::uint16_t width = 0;
    std::uint16_t height = 0;

    bool operator==(const PixelRect&) const = default;
};

/// A window that fills one monitor below everything else, on every workspace. It has no shadow, never takes
/// the focus, and every click goes through it.
class DesktopWindow : public QObject
{
    Q_OBJECT

public:
    [[nodiscard]] virtual QSize pixelSize() const = 0;

    virtual void show() = 0;
    virtual void hide() = 0;

    /// Tells which picture the desktop shows behind the window, or is about to: a file of the window's pixel
    /// size. Whatever else is there, the icons above all, is left free.
    virtual void setPictureBehind(const QString& file) = 0;

    /// Makes the context that was given at creation current for drawing on this window.
    /// \return false while it cannot be drawn to
    [[nodiscard]] virtual bool makeCurrent() = 0;
    /// Shows what a GPU has drawn in the window's own framebuffer.
    virtual void swap() = 0;

    // Without a GPU there is no such framebuffer. What the processor has drawn is shown in two ways.

    /// Memory for all pixels, 0x00RRGGBB from the top left corner on, without gaps. It may be written until
    /// showPixels() is called. releasePixels() frees it.
    [[nodiscard]] virtual std::uint32_t* pixels() = 0;
    virtual void showPixels() = 0;
    virtual void releasePixels() = 0;

    /// Paints rectangles in one colour, 0xRRGGBB, over what is shown: cheap where little changes. flush()
    /// ends a frame of such calls.
    virtual void fill(std::uint32_t color, std::span<const PixelRect> rectangles) = 0;
    virtual void flush() = 0;

    /// A function that sets what the window shows by itself, without any work of ours: at once, and wherever
    /// it is uncovered from then on. It takes a picture of the window's pixel size in Format_RGB32, or a null
    /// image for none. Any thread may call it, even when the window is gone.
    [[nodiscard]] virtual std::function<void(const QImage&)> backdropSetter() const = 0;

Q_SIGNALS:
    /// What was painted is lost: the next frame has to paint all of it.
    void exposed();
};

/// nullptr where the display server has no such windows.
/// \param context must outlive the window
[[nodiscard]] std::unique_ptr<DesktopWindow> makeDesktopWindow(const Screen& screen, GlContext& context);

} // namespace tessel

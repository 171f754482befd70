// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/canvas.h"

#include <QImage>
#include <QTimer>

namespace tessel {

/// A surface in memory, which asks for frames by a timer.
class PictureSurface : public LiveSurface, public PixelCanvas
{
    Q_OBJECT

public:
    explicit PictureSurface(QSize pixels);

    [[nodiscard]] const QImage& image() const { return m_image; }

    [[nodiscard]] QSize pixelSize() const override { return m_image.size(); }
    [[nodiscard]] Canvas canvas() override { return static_cast<PixelCanvas*>(this); }
    void setFrameRate(int framesPerSecond) override;

    [[nodiscard]] bool isReady() const override { return true; }
    [[nodiscard]] std::uint32_t* pixels() override;
    void presentPixels(std::span<const PixelRect> changed) override;
    void releasePixels() override { m_next = {}; }
    void present(std::span<const ColoredRect> rectangles) override;

Q_SIGNALS:
    /// image() is another one.
    void drawn();

private:
    QImage m_image;
    QImage m_next; ///< there only while pixels are drawn
    QTimer m_frames;
    int m_rate = 0;
};

} // namespace tessel

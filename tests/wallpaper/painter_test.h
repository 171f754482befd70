// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "shaders/shaders.h"
#include "support/fake_desktop.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <vector>

namespace tessel {

/// What paints frames on the canvas of a window of 333 x 250 pixels.
template<typename Painter>
class PainterTest : public DrawingTest
{
protected:
    static constexpr int width = 333;
    static constexpr int height = 250;
    static constexpr long all = long{width} * height; ///< pixels

    PainterTest()
    {
        record->screen = {QStringLiteral("ONE"), QRect(0, 0, width, height), 1.0};
        window = std::make_unique<MemoryWindow>(record);
    }

    static Frame frameOf(const Look& look, double time)
    {
        return {.previous = look,
                .current = look,
                .width = width,
                .height = height,
                .time = time,
                .reference = 400};
    }

    bool paint(const Look& look, double time) { return painter.paint(encoder, frameOf(look, time), *window); }

    bool shows(const Look& look, double time)
    {
        return countSame(record->image, *renderStill(encoder, frameOf(look, time))) == all;
    }

    /// How far the pixels are from what the renderer draws, in levels of the channel that is farthest off, in
    /// order.
    std::vector<int> differences(const Frame& frame)
    {
        const auto still = renderStill(encoder, frame);
        std::vector<int> result;
        for (int y = 0; y < height; ++y) {
            const auto* shown = reinterpret_cast<const QRgb*>(record->image.constScanLine(y));
            for (int x = 0; x < width; ++x) {
                const QRgb drawn = still->row(y)[static_cast<std::size_t>(x)];
                result.push_back(std::max({std::abs(qRed(shown[x]) - qRed(drawn)),
                                           std::abs(qGreen(shown[x]) - qGreen(drawn)),
                                           std::abs(qBlue(shown[x]) - qBlue(drawn))}));
            }
        }
        std::ranges::sort(result);
        return result;
    }

    void showsWhatTheRendererDraws(const Look& look)
    {
        for (const double time : {0.0, 0.1, 0.2, 7.0}) {
            ASSERT_TRUE(Painter::canPaint(frameOf(look, time)));
            paint(look, time);
            EXPECT_TRUE(shows(look, time)) << title(look.dither) << " " << look.pixel << " at " << time;
        }
    }

    /// Only frames of this kind of dither, and of one look.
    void paintsOnly(shaders::DitherKind kind)
    {
        Look look;
        for (const Dither dither : allDithers()) {
            look.dither = dither;
            EXPECT_EQ(Painter::canPaint(frameOf(look, 0.0)), shaders::kind(dither) == kind) << title(dither);
            Frame fading = frameOf(look, 0.0);
            fading.mix = 0.5F;
            EXPECT_FALSE(Painter::canPaint(fading)) << title(dither);
        }
    }

    std::shared_ptr<WindowRecord> record = std::make_shared<WindowRecord>();
    std::unique_ptr<MemoryWindow> window;
    Painter painter;
};

} // namespace tessel

// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// What a frame of a smooth look costs while it plays at 1920x1080 without a GPU, in CPU time of all threads:
// of each pattern, beside drawing it whole.

#include "render/headless_context.h"
#include "render/stopwatch.h"
#include "wallpaper/smooth_painter.h"

#include <QGuiApplication>

#include <algorithm>
#include <cstdio>
#include <vector>

using namespace tessel;

namespace {

constexpr int width = 1920;
constexpr int height = 1080;
constexpr int framesPerSecond = 20;
constexpr int frames = 60;
constexpr int firstFrames = 20; ///< that are left out: tiles have not settled

/// Counts what it is handed.
class CountingCanvas : public PixelCanvas
{
public:
    [[nodiscard]] bool isReady() const override { return true; }
    [[nodiscard]] std::uint32_t* pixels() override { return m_pixels.data(); }
    void presentPixels(std::span<const PixelRect> changed) override
    {
        for (const PixelRect& area : changed)
            presented += 1.0 * area.width * area.height;
    }
    void releasePixels() override {}
    void present(std::span<const ColoredRect> /*rectangles*/) override {}

    double presented = 0;

private:
    std::vector<std::uint32_t> m_pixels = std::vector<std::uint32_t>(std::size_t{width} * height);
};

struct Row
{
    Pattern pattern;
    double whole;     ///< CPU milliseconds of a frame that is drawn whole
    double painted;   ///< and of one that is painted
    double presented; ///< share of the pixels
};

Row measure(FrameEncoder& encoder, Pattern pattern)
{
    Look look;
    look.pattern = pattern;
    look.dither = Dither::smooth;
    const auto frameAt = [&](int frame) {
        return Frame{.previous = look,
                     .current = look,
                     .width = width,
                     .height = height,
                     .time = 100.0 + frame * double{look.speed} / framesPerSecond};
    };
    const GlTexture texture = makeTexture(colorFormat, width, height);
    const GlFramebuffer framebuffer = makeFramebuffer(texture);
    encoder.encode(frameAt(0), {framebuffer.name()});
    glFinish();
    double begin = processorMilliseconds();
    encoder.encode(frameAt(1), {framebuffer.name()});
    glFinish();
    const double whole = processorMilliseconds() - begin;

    CountingCanvas canvas;
    SmoothPainter painter;
    for (int frame = 0; frame < frames; ++frame) {
        if (frame == firstFrames) {
            canvas.presented = 0;
            begin = processorMilliseconds();
        }
        painter.paint(encoder, frameAt(frame), canvas);
    }
    static constexpr int counted = frames - firstFrames;
    return {pattern, whole, (processorMilliseconds() - begin) / counted,
            canvas.presented / counted / width / height};
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const HeadlessContext context;
    FrameEncoder encoder;
    std::vector<Row> table;
    for (const Pattern pattern : allPatterns())
        table.push_back(measure(encoder, pattern));
    std::ranges::sort(table, std::greater(), &Row::painted);
    std::printf("smooth looks at %dx%d and %d frames a second, CPU milliseconds a frame\n", width, height,
                framesPerSecond);
    for (const Row& row : table)
        std::printf("  %-10s whole %6.1f   as played %6.1f = 1 / %4.1f   %3.0f %% of the pixels presented\n",
                    title(row.pattern).data(), row.whole, row.painted, row.whole / row.painted,
                    100 * row.presented);
    return 0;
}

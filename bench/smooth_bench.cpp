// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// What a frame of a smooth look costs while it plays at 1920x1080 without a GPU, in CPU time of all threads:
// of each pattern, beside drawing it whole; and how far it is from that then. Or of those that are named.

#include "render/headless_context.h"
#include "render/still.h"
#include "render/stopwatch.h"
#include "wallpaper/smooth_painter.h"

#include <QGuiApplication>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <numeric>
#include <vector>

using namespace tessel;

namespace {

constexpr int width = 1920;
constexpr int height = 1080;
constexpr int framesPerSecond = 20;
constexpr int frames = 160;
constexpr int firstFrames = 60; ///< that are left out: tiles have not settled

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
    double away;      ///< levels from what is drawn whole, on average,
    int mostlyWithin; ///< and of 99 in 100 pixels
};

/// How far the pixels are from those of a picture, in levels of the channel that is farthest off, in order.
std::vector<int> differences(const std::uint32_t* pixels, const Picture& picture)
{
    std::vector<int> result;
    for (int y = 0; y < height; ++y)
        for (const std::uint32_t drawn : picture.row(y)) {
            const std::uint32_t shown = *pixels++;
            int most = 0;
            for (unsigned shift = 0; shift < 24; shift += 8)
                most = std::max(most, std::abs(static_cast<int>(shown >> shift & 0xFFU) -
                                               static_cast<int>(drawn >> shift & 0xFFU)));
            result.push_back(most);
        }
    std::ranges::sort(result);
    return result;
}

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
    const double painted = (processorMilliseconds() - begin) / counted;
    const std::vector<int> away = differences(canvas.pixels(), *renderStill(encoder, frameAt(frames - 1)));
    return {pattern,
            whole,
            painted,
            canvas.presented / counted / width / height,
            std::reduce(away.begin(), away.end(), 0.0) / static_cast<double>(away.size()),
            away[away.size() / 100 * 99]};
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
        if (argc < 2 || std::find(argv + 1, argv + argc, title(pattern)) != argv + argc)
            table.push_back(measure(encoder, pattern));
    std::ranges::sort(table, std::greater(), &Row::painted);
    std::printf("smooth looks at %dx%d and %d frames a second, CPU milliseconds a frame\n", width, height,
                framesPerSecond);
    for (const Row& row : table)
        std::printf("  %-10s whole %6.1f   as played %6.1f = 1 / %4.1f   %3.0f %% of the pixels presented   "
                    "%.2f levels away, 99 %% within %d\n",
                    title(row.pattern).data(), row.whole, row.painted, row.whole / row.painted,
                    100 * row.presented, row.away, row.mostlyWithin);
    return 0;
}

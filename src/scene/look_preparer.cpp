// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "scene/look_preparer.h"

#include "platform/process.h"
#include "render/background_drawing.h"
#include "render/frame_encoder.h"
#include "render/headless_context.h"
#include "render/photo.h"

#include <optional>
#include <stdexcept>

namespace tessel {

namespace {

std::vector<PreparedPhoto> photosOf(const CrossFade& fade, int longestSide)
{
    std::vector<PreparedPhoto> photos;
    for (const Look* look : {&fade.previous, &fade.current}) {
        if (look->pattern != Pattern::image || !look->imagePath)
            continue;
        try {
            photos.push_back({*look->imagePath, readPhoto(*look->imagePath, longestSide)});
        } catch (const PhotoError&) {
            // Whoever shows the look finds the same and tells it.
        }
    }
    return photos;
}

/// The looks as they give way to each other, and the second alone.
void drawOnce(CrossFade fade, const std::vector<ViewSize>& views)
{
    fade.previous.imagePath.reset();
    fade.current.imagePath.reset();
    BackgroundDrawing drawing;
    try {
        const HeadlessContext context;
        drawing.guardExit();
        FrameEncoder encoder;
        for (const ViewSize& view : views) {
            encoder.prepare(frameInside(fade, view));
            drawing.guardExit();
            encoder.prepare(frameInside({fade.current, fade.current}, view));
        }
    } catch (const std::runtime_error&) {
        // Then the shaders are built when they are needed, and what is wrong with them is told there.
    }
}

} // namespace

Frame frameInside(const CrossFade& fade, const ViewSize& view)
{
    return {.previous = fade.previous,
            .current = fade.current,
            .width = view.pixels.width(),
            .height = view.pixels.height(),
            .mix = 0.5F,
            .reference = view.reference};
}

LookPreparer::LookPreparer() : m_worker(QStringLiteral("prepare"))
{
    for (Newest& newest : m_newest)
        newest = std::make_shared<std::atomic<int>>(0);
}

void LookPreparer::prepare(Source source, const CrossFade& fade, std::vector<ViewSize> views,
                           int longestPhotoSide,
                           std::function<void(const std::vector<PreparedPhoto>& photos)> done)
{
    const Newest& newest = m_newest.at(static_cast<std::size_t>(source));
    const auto isOutdated = [newest, number = ++*newest] { return *newest != number; };
    using Photos = std::optional<std::vector<PreparedPhoto>>;
    m_worker.run(
        [isOutdated, fade, views = std::move(views), longestPhotoSide] {
            if (isOutdated())
                return Photos();
            drawOnce(fade, views);
            // Compilers leave much memory behind that nobody will need soon.
            releaseUnusedMemory();
            return Photos(photosOf(fade, longestPhotoSide));
        },
        [done = std::move(done)](const Outcome<Photos>& outcome) {
            if (!outcome.value)
                done({});
            else if (*outcome.value)
                done(**outcome.value);
        });
}

} // namespace tessel

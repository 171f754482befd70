// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "scene/look_preparer.h"

#include "platform/process.h"
#include "render/frame_encoder.h"
#include "render/headless_context.h"
#include "render/photo.h"

#include <cstdlib>
#include <mutex>
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

/// Held while a thread draws; there until the very end.
std::recursive_mutex& drawing()
{
    static auto& mutex = *new std::recursive_mutex;
    return mutex;
}

/// Ends the program at once where a thread still draws: what exit() goes on to take apart, the driver's
/// compilers above all, would be taken from under it.
void endWhileDrawing(int status, void* /*nothing*/)
{
    // Otherwise nobody begins any more.
    if (!drawing().try_lock())
        std::_Exit(status);
}

/// Qt calls exit() when the X server is gone. The last to be registered is the first to be heard, and a
/// driver registers what it takes apart as it is used for the first time. To be called while one draws.
void guardExit()
{
    static int registrations = 0;
    constexpr int enough = 6;
    if (registrations < enough && on_exit(endWhileDrawing, nullptr) == 0)
        ++registrations;
}

/// The looks as they give way to each other, and the second alone.
void drawOnce(CrossFade fade, const std::vector<ViewSize>& views)
{
    fade.previous.imagePath.reset();
    fade.current.imagePath.reset();
    const std::scoped_lock lock(drawing());
    try {
        const HeadlessContext context;
        guardExit();
        FrameEncoder encoder;
        for (const ViewSize& view : views) {
            encoder.prepare(frameInside(fade, view));
            guardExit();
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

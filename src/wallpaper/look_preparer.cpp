// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "wallpaper/look_preparer.h"

#include "render/frame_encoder.h"
#include "render/headless_context.h"
#include "render/photo.h"

#include <malloc.h>

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
void drawOnce(CrossFade fade, const std::vector<QSize>& sizes)
{
    fade.previous.imagePath.reset();
    fade.current.imagePath.reset();
    try {
        const HeadlessContext context;
        FrameEncoder encoder;
        for (const QSize& size : sizes) {
            encoder.prepare(frameInside(fade, size));
            encoder.prepare(frameInside({fade.current, fade.current}, size));
        }
    } catch (const ContextError&) {
        // Then the shaders are built when they are needed.
    }
}

} // namespace

Frame frameInside(const CrossFade& fade, QSize size)
{
    return {.previous = fade.previous,
            .current = fade.current,
            .width = size.width(),
            .height = size.height(),
            .mix = 0.5F};
}

LookPreparer::LookPreparer()
{
    m_thread.setMaxThreadCount(1);
}

LookPreparer::~LookPreparer()
{
    m_thread.clear();
    m_thread.waitForDone();
}

void LookPreparer::prepare(const CrossFade& fade, std::vector<QSize> sizes, int longestPhotoSide,
                           std::function<void(const std::vector<PreparedPhoto>& photos)> done)
{
    m_thread.clear();
    m_thread.start([this, fade, sizes = std::move(sizes), longestPhotoSide, done = std::move(done)] {
        drawOnce(fade, sizes);
        // Compilers leave much memory behind that nobody will need soon.
        malloc_trim(0);
        QMetaObject::invokeMethod(
            this, [done, photos = photosOf(fade, longestPhotoSide)] { done(photos); }, Qt::QueuedConnection);
    });
}

} // namespace tessel

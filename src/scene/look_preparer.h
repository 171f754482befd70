// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/worker.h"
#include "model/look.h"
#include "render/uniforms.h"
#include "scene/animation_clocks.h"

#include <QImage>
#include <QSize>

#include <array>
#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tessel {

/// A look that gives way to another.
struct CrossFade
{
    Look previous;
    Look current;
};

/// What the cells of a view are measured on: its pixels, and the reference of cellSize().
struct ViewSize
{
    QSize pixels;
    float reference = desktopReference;
};

/// A frame in the middle of a cross-fade.
[[nodiscard]] Frame frameInside(const CrossFade& fade, const ViewSize& view);

/// A photo as readPhoto() reads it.
struct PreparedPhoto
{
    std::string path;
    QImage image;
};

/// Does on another thread what two looks need before they can be drawn without a hitch: reads their photos,
/// and draws them once with a context of its own, which leaves its shaders in the driver's cache on disk.
/// Building them from there takes a tenth of the time.
class LookPreparer
{
public:
    LookPreparer();

    /// Prepares a cross-fade on views of these sizes and then calls `done` on this thread, with the photos
    /// that there are. One is prepared after the other; of those of one source that wait only the newest is,
    /// and the `done` of the others is dropped.
    void prepare(Source source, const CrossFade& fade, std::vector<ViewSize> views, int longestPhotoSide,
                 std::function<void(const std::vector<PreparedPhoto>& photos)> done);

private:
    /// The number of a source's newest request; the jobs that wait read it too.
    using Newest = std::shared_ptr<std::atomic<int>>;

    std::array<Newest, sourceCount> m_newest;
    Worker m_worker;
};

} // namespace tessel

// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/look.h"
#include "render/uniforms.h"

#include <QImage>
#include <QObject>
#include <QSize>
#include <QThreadPool>

#include <functional>
#include <vector>

namespace tessel {

/// A look that gives way to another.
struct CrossFade
{
    Look previous;
    Look current;
};

/// A frame in the middle of a cross-fade, on a screen of this pixel size.
[[nodiscard]] Frame frameInside(const CrossFade& fade, QSize size);

/// A photo as readPhoto() reads it.
struct PreparedPhoto
{
    std::string path;
    QImage image;
};

/// Does on another thread what two looks need before they can be drawn without a hitch: reads their photos,
/// and draws them once with a context of its own, which leaves its shaders in the driver's cache on disk.
/// Building them from there takes a tenth of the time.
class LookPreparer : public QObject
{
    Q_OBJECT

public:
    LookPreparer();
    ~LookPreparer() override;

    /// Prepares a cross-fade on screens of these pixel sizes and then calls `done` on this thread, with the
    /// photos that there are. One is prepared after the other; one that waits is dropped, and its `done` with
    /// it, when the next is asked for.
    void prepare(const CrossFade& fade, std::vector<QSize> sizes, int longestPhotoSide,
                 std::function<void(const std::vector<PreparedPhoto>& photos)> done);

private:
    QThreadPool m_thread;
};

} // namespace tessel

// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/worker.h"
#include "model/look.h"

#include <QQuickAsyncImageProvider>
#include <QString>

#include <atomic>

namespace tessel {

/// Pictures of looks for QML: "image://looks/" and the look, as pictureOfLook() writes it. They are drawn at
/// the size asked for, in pixels, on a thread and in a context of their own, which is given back when there
/// has been nothing to draw for some seconds. The cells of a look of `pixel` 8 are about 2 points large on a
/// tile as wide as those of presets, and pixelForCells() says what others need.
///
/// Qt keeps providers of pictures for as long as it likes; this ends when its owner wants, and must not end
/// before the engine: a driver may not be drawing while the program leaves.
class LookPictures
{
public:
    LookPictures();
    ~LookPictures();
    LookPictures(const LookPictures&) = delete;
    LookPictures& operator=(const LookPictures&) = delete;

    /// A provider for an engine, which gets to own it.
    [[nodiscard]] QQuickAsyncImageProvider* makeProvider();

    /// \param id the address without "image://looks/"
    [[nodiscard]] QQuickImageResponse* request(const QString& id, const QSize& requestedSize);

    /// Gives the context and what was kept for drawing back at once. May be called from any thread.
    void release();

private:
    class Painter;

    std::atomic<bool> m_isEnding = false;
    Painter* const m_painter; ///< lives on the worker's thread
    Worker m_worker;
};

/// The address of the picture of a look, which must be one that JSON can hold.
[[nodiscard]] QString pictureOfLook(const Look& look);

/// The `pixel` that gives a look's cells a side of so many points on a picture so many points wide.
[[nodiscard]] float pixelForCells(float cellPoints, float widthPoints);

} // namespace tessel

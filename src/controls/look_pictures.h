// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/look.h"

#include <QQuickAsyncImageProvider>
#include <QString>

#include <memory>

namespace tessel {

/// Pictures of looks for QML: "image://looks/" and the look, as pictureOfLook() writes it. They are drawn at
/// the size asked for, in pixels, on a thread and in a context of their own, which is given back when there
/// has been nothing to draw for some seconds. The cells of a look of `pixel` 8 are about 2 points large on a
/// tile as wide as those of presets, and pixelForCells() says what others need.
class LookPictures : public QQuickAsyncImageProvider
{
public:
    LookPictures();
    ~LookPictures() override;

    QQuickImageResponse* requestImageResponse(const QString& id, const QSize& requestedSize) override;

    /// Gives the context and what was kept for drawing back at once. May be called from any thread.
    void release();

private:
    class Painter;
    const std::unique_ptr<Painter> m_painter;
};

/// The address of the picture of a look, which must be one that JSON can hold.
[[nodiscard]] QString pictureOfLook(const Look& look);

/// The `pixel` that gives a look's cells a side of so many points on a picture so many points wide.
[[nodiscard]] float pixelForCells(float cellPoints, float widthPoints);

} // namespace tessel

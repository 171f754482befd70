// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QQuickImageProvider>

namespace tessel {

/// Draws what is dithered or soft: "image://shapes/" and one of
///     even/COLOURS/COLUMNSxROWS/SCALE      a ramp from the first colour to the last
///     blocks/COLOURS/COLUMNSxROWS/SCALE    a block for each colour, with seams
///     top/COLOUR/COLUMNSxROWS/SCALE        a fade whose upper end is covered
///     bottom/COLOUR/COLUMNSxROWS/SCALE     a fade whose lower end is covered
///     vignette/COLOURS/COLUMNSxROWS/SCALE  from the middle to the corners
///     shadow/COLOUR/BLURxRADIUS/1          the shadow of a rectangle, to be stretched: its borders are as
///     wide as the
///                                          two numbers (points) together
///     mark/SCALE                           the product's mark, 18 points a side
/// COLOURS are RRGGBB or AARRGGBB with dashes between; SCALE is device pixels to a point.
class ShapeImages : public QQuickImageProvider
{
public:
    ShapeImages();

    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;
};

} // namespace tessel

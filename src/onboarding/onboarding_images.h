// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QQuickImageProvider>

namespace tessel {

/// Draws what the introduction shows beside pictures of looks: "image://onboarding/" and one of
///     dissolve/wide/SCALE    soot that lets a picture through towards its right, 880 x 560 points
///     dissolve/narrow/SCALE  the same over less of it
///     tile/resting/SCALE     the rim of a bowl to choose, on soot, 140 points a side; or tile/lit
///     handle/resting/SCALE   the rim of the handle, 36 points a side; or handle/lit
///     bowl/SCALE             a bowl from the side whose broth is seen through it, 308 x 182 points
///     steam/SCALE            what rises from it, 256 x 224 points
///     pointer/SCALE          a mouse pointer, 18 x 24 points
/// SCALE is device pixels to a point.
class OnboardingImages : public QQuickImageProvider
{
public:
    OnboardingImages();

    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;
};

} // namespace tessel

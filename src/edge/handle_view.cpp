// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "edge/handle_view.h"

#include "controls/art_pixels.h"

#include <utility>

namespace tessel {

namespace {

/// In cells: 18 wide, the opening 14.
constexpr art::Bowl bowl{.radius = 9, .foot = 1, .glaze = 1, .lit = 0.5, .shade = -0.5};
constexpr int pressedGlaze = 2;

} // namespace

QImage drawHandle(const QImage& picture, bool hovered, bool pressed, double scale)
{
    art::Bowl shown = bowl;
    if (pressed)
        shown.glaze = pressedGlaze;
    const art::Glaze glaze = hovered || pressed ? art::Glaze::Lit : art::Glaze::Resting;
    return art::bowlFromAbove(shown, glaze, picture, scale);
}

void HandleView::setHovered(bool hovered)
{
    if (std::exchange(m_hovered, hovered) == hovered)
        return;
    update();
    Q_EMIT stateChanged();
}

void HandleView::setPressed(bool pressed)
{
    if (std::exchange(m_pressed, pressed) == pressed)
        return;
    update();
    Q_EMIT stateChanged();
}

QImage HandleView::shown(const QImage& picture) const
{
    return drawHandle(picture, m_hovered, m_pressed, scale());
}

QRectF HandleView::pictureArea() const
{
    static constexpr double rim = 4;
    return boundingRect().adjusted(rim, rim, -rim, -rim);
}

} // namespace tessel

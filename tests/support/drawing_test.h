// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "render/graphics.h"
#include "render/headless_context.h"
#include "render/still.h"

#include <QGuiApplication>
#include <QImage>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <string>

namespace tessel {

/// Tests that draw: one context and one encoder for the whole program, as in the application.
class DrawingTest : public testing::Test
{
protected:
    DrawingTest();

    /// Draws `look` alone at the desktop's reference.
    Picture draw(const Look& look, int width, int height, double time = 0.0);

    /// A look that shows an 8-bit grey picture and nothing else: no grain, no vignette, plain contrast.
    Look photoLook(const QImage& photo);

    /// A look that shows one grey, 0 to 255.
    Look greyLook(uint grey);

    /// A look that shows a horizontal ramp from black to white.
    Look rampLook();

    Graphics& graphics;
    FrameEncoder& encoder; ///< of the graphics

private:
    QTemporaryDir m_folder;
};

/// The three bytes of a pixel as a colour.
inline Color colorOf(std::uint32_t pixel)
{
    return pixel & 0xFFFFFFU;
}

} // namespace tessel

// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "onboarding/bowls.h"

#include <QCoreApplication>

#include <utility>

namespace tessel {

namespace {

/// The place of the palette "Tromsø".
constexpr int nightPalette = 112;

QString named(const char* title)
{
    return QCoreApplication::translate("Bowls", title);
}

/// With what all of them have in common.
Look simmered(Pattern pattern, Dither dither, float pixel, float seed, std::vector<Color> colors)
{
    Look look;
    look.pattern = pattern;
    look.dither = dither;
    look.pixel = pixel;
    look.grain = 0.02F;
    look.vignette = 0.2F;
    look.seed = seed;
    look.custom = std::move(colors);
    return look;
}

Look tomatoBisque()
{
    Look look = simmered(Pattern::blobs, Dither::halftone, 7.0F, 4.0F,
                         {0x2A0402, 0x8A1609, 0xE0391C, 0xFF8A52, 0xFFE2C4});
    look.scale = 1.4F;
    look.speed = 0.2F;
    return look;
}

Look misoTide()
{
    Look look = simmered(Pattern::ripple, Dither::lines, 6.0F, 22.0F,
                         {0x1A0D04, 0x5C3410, 0xB4772C, 0xE9BE6C, 0xFFF1CF});
    look.scale = 1.5F;
    look.speed = 0.3F;
    return look;
}

Look borscht()
{
    Look look = simmered(Pattern::spiral, Dither::bayer4, 6.0F, 18.0F,
                         {0x1E0214, 0x67083A, 0xB80F55, 0xF0668F, 0xFFF1E8});
    look.warp = 1.8F;
    look.speed = 0.2F;
    return look;
}

Look greenCurry()
{
    Look look = simmered(Pattern::smoke, Dither::noise, 5.0F, 12.0F,
                         {0x06170C, 0x12502B, 0x3E9A3B, 0xA6D65A, 0xFBF7D2});
    look.scale = 1.3F;
    look.speed = 0.25F;
    return look;
}

Look splitPea()
{
    Look look = simmered(Pattern::cells, Dither::bayer8, 5.0F, 40.0F,
                         {0x141A06, 0x455312, 0x8A9A1E, 0xC6CE4E, 0xF4F0B0});
    look.scale = 0.6F;
    look.warp = 0.2F;
    look.speed = 0.15F;
    return look;
}

Look clamChowder()
{
    Look look = simmered(Pattern::topo, Dither::posterize, 4.0F, 12.0F,
                         {0x4A3524, 0xA07F58, 0xDDC49C, 0xF5E8CF, 0xFFFBF2});
    look.scale = 1.4F;
    look.speed = 0.15F;
    look.invert = true;
    return look;
}

} // namespace

std::vector<Bowl> bowls()
{
    //: names of wallpapers to begin with, each that of a soup
    return {{named(QT_TRANSLATE_NOOP("Bowls", "Tomato Bisque")), tomatoBisque()},
            {named(QT_TRANSLATE_NOOP("Bowls", "Miso Tide")), misoTide()},
            {named(QT_TRANSLATE_NOOP("Bowls", "Borscht")), borscht()},
            {named(QT_TRANSLATE_NOOP("Bowls", "Green Curry")), greenCurry()},
            {named(QT_TRANSLATE_NOOP("Bowls", "Split Pea")), splitPea()},
            {named(QT_TRANSLATE_NOOP("Bowls", "Clam Chowder")), clamChowder()}};
}

Look exampleLook()
{
    Look look;
    look.pattern = Pattern::aurora;
    look.palette = nightPalette;
    look.scale = 1.1F;
    return look;
}

} // namespace tessel

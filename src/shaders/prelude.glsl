// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// What every shader is told: the frame header, the block of the one look it draws, and which of the two
// looks of a cross-fade that is. The indices are those of render/uniforms.cpp.

uniform float uFrame[14];
uniform float uLook[28];
uniform int uSlot; // 0 previous look, 1 current look

#define frameSize vec2(uFrame[0], uFrame[1]) // target, in pixels
#define frameTime uFrame[2]                  // animation phase, wraps at 2000 pi
#define handleOnRight (uFrame[5] > 0.5)
#define cellSize (uSlot == 0 ? uFrame[12] : uFrame[13]) // in target pixels

#define lookPattern int(uLook[0])
#define lookDither int(uLook[1])
#define lookPixel uLook[2]
#define lookLevels floor(uLook[3] + 0.5)
#define lookScale uLook[4]
#define lookWarp uLook[5]
#define lookContrast uLook[6]
#define lookOffset uLook[7]
#define lookGrain uLook[8]
#define lookVignette uLook[9]
#define lookInvert (uLook[10] > 0.5)
#define lookSeed uLook[11]
#define lookStopCount uLook[12]

const int ditherSmooth = 0; // draws no cells
const int ditherPoster = 1;
const int ditherHalftone = 5; // draws dots larger than cells, as does Diamond
const int ditherDiamond = 7;
const int ditherAscii = 8; // draws larger ones still, as does Benday
const int ditherBenday = 9;

const float pi = 3.14159265358979;
const float tau = 6.28318530717959;

float saturate(float x) { return clamp(x, 0.0, 1.0); }
vec2 saturate(vec2 x) { return clamp(x, 0.0, 1.0); }
vec3 saturate(vec3 x) { return clamp(x, 0.0, 1.0); }

/// How bright an sRGB colour looks, 0 to 1, to compare colours by.
float brightness(vec3 color) { return dot(color, vec3(0.2126, 0.7152, 0.0722)); }

vec3 stopColor(int stop) { return vec3(uLook[13 + 3 * stop], uLook[14 + 3 * stop], uLook[15 + 3 * stop]); }

/// The width of one cell in pattern coordinates: what an edge needs to be anti-aliased over.
float cellWidth() { return 2.0 * cellSize / (min(uFrame[0], uFrame[1]) * lookScale); }

/// The distance of two dots of Benday, in cells: from 2 in fine ones down to where there is a dot for every cell.
float bendayPitch() { return clamp(2.0 - 0.1 * (lookPixel - 6.0), 1.41421356, 2.0); }

/// The width of what the dither draws at once, in pattern coordinates: a cell, or a dot that is larger than that.
float dotWidth()
{
    bool dots = lookDither == ditherHalftone || lookDither == ditherDiamond;
    return cellWidth() * (lookDither == ditherBenday ? 0.85 * bendayPitch() : dots ? 1.3 : 1.0);
}

/// How much farther apart a pattern's lines and dots stand than in fine cells: 1 up to a pixel of 6, then as the
/// pixel grows. It comes from the look alone, so that every view of it, however large, has the same composition.
float coarseness()
{
    float beyond = clamp(lookPixel, 6.0, 24.0) / 6.0 - 1.0;
    bool dots = lookDither == ditherHalftone || lookDither == ditherDiamond;
    float drawn = lookDither == ditherAscii ? 1.6 * beyond : dots ? 1.3 * beyond : beyond;
    // Benday's dots are so large that they are coarse in fine cells already.
    drawn = lookDither == ditherBenday ? clamp(0.8 * bendayPitch() * lookPixel, 6.0, 30.0) / 6.0 - 1.0 : drawn;
    return 1.0 + (lookDither == ditherSmooth ? 0.0 : drawn);
}

/// How plain a soft field looks in the steps that the look draws it in, 0 to 1: few flat ones, or large cells.
float plainness()
{
    bool flatSteps = lookDither == ditherPoster || lookDither == ditherBenday;
    float few = flatSteps ? saturate(0.25 * (9.0 - lookLevels)) : 0.0;
    return max(few, saturate(0.8 * (coarseness() - 1.0)));
}

/// Half the extent of the picture in pattern coordinates: the picture spans -halfExtent() to halfExtent().
vec2 halfExtent() { return frameSize / (min(uFrame[0], uFrame[1]) * lookScale); }

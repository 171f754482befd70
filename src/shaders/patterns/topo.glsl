// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// A contour map: lines of constant width over a gentle tint of the height, every fifth line heavier.

#define kSpin k[0]
#define kBendPlaces k[1]
#define kLandPlaces k[2]
#define kSummit k[3].xy
#define kHollow k[3].zw
#define kSummitHeight k[4].x
#define kSummitFall k[4].y // 1 / width^2, as is the other
#define kHollowDepth k[4].z
#define kHollowFall k[4].w
#define kLines k[5].x
#define kZoom k[5].y
#define kHair k[5].z // half the width of a fine line in cells
#define kDetail k[5].w

void prepare(inout vec4 k[8])
{
    kSpin = spin(0.028);
    kBendPlaces = vec4(seedOffset(0), seedOffset(1));
    kLandPlaces = vec4(seedOffset(2) + 0.2 * loopCircle(0.03), seedOffset(3));
    // The main summit and a hollow on the other side of the map.
    vec2 aspect = frameSize / min(frameSize.x, frameSize.y);
    float angle = tau * seedRandom(8);
    vec2 away = aspect * vec2(cos(angle), sin(angle));
    kSummit = (0.25 + 0.4 * seedRandom(9)) * away;
    kHollow = -(0.5 + 0.3 * seedRandom(10)) * away;
    // Their heights and 1 / width^2.
    kSummitHeight = 0.28 + 0.2 * seedRandom(11);
    kSummitFall = 1.0 / (0.35 + 0.5 * seedRandom(12));
    kHollowDepth = 0.16 + 0.2 * seedRandom(13);
    kHollowFall = 1.0 / (0.3 + 0.5 * seedRandom(14));
    kLines = (11.0 + 6.0 * seedRandom(15)) / coarseness();
    kHair = (0.5 + 0.25 * saturate(coarseness() - 1.0)) * dotWidth() / cellWidth();
    // In coarse cells there are fewer hills too.
    kZoom = (0.36 + 0.22 * seedRandom(16)) * pow(coarseness(), -0.5);
    kDetail = 0.09 / coarseness();
}

/// The height, about 0 to 1, and its gradient.
vec3 relief(vec2 p, vec4 k[8])
{
    float zoom = kZoom;
    vec2 q = p * zoom;
    vec3 bendX = noiseGradient(q * 1.3 + kBendPlaces.xy, kSpin);
    vec3 bendY = noiseGradient(q * 1.3 + kBendPlaces.zw, kSpin);
    float bend = lookWarp * 0.19;
    vec2 w = q + bend * vec2(bendX.x, bendY.x);
    vec3 land = noiseGradient(w + kLandPlaces.xy, kSpin);
    vec3 detail = noiseGradient(octaveTurn * w + kLandPlaces.zw, kSpin);
    vec2 slope = 0.26 * land.yz + kDetail * (detail.yz * octaveTurn);
    // The chain rule through the bent domain.
    slope = zoom * (slope + 1.3 * bend * (slope.x * bendX.yz + slope.y * bendY.yz));
    vec3 height = vec3(0.42 + 0.26 * land.x + kDetail * detail.x, slope);
    vec2 up = p - kSummit;
    vec2 down = p - kHollow;
    float summit = kSummitHeight * exp(-dot(up, up) * kSummitFall);
    float hollow = kHollowDepth * exp(-dot(down, down) * kHollowFall);
    height.x += summit - hollow;
    height.yz += 2.0 * (hollow * kHollowFall * down - summit * kSummitFall * up);
    return height;
}

float pattern(vec2 p, vec4 k[8])
{
    vec3 height = relief(p, k);
    float level = height.x * kLines;
    float nearest = floor(level + 0.5);
    float slope = max(length(height.yz) * kLines, 1e-3);
    float cell = cellWidth();
    bool heavy = mod(nearest, 5.0) < 0.5;
    float halfWidth = heavy ? max(0.014, 2.0 * kHair * cell) : max(0.006, kHair * cell);
    float line = stroke((level - nearest) / slope, halfWidth, cell);
    // Where lines would touch, they give way to the tint.
    float room = 0.5 / (slope * halfWidth);
    line *= heavy ? smoothstep(0.4, 1.2, room) : 0.75 * smoothstep(1.5, 4.0, room);
    // On a level summit a line would come and go all at once.
    line *= smoothstep(0.0, 0.07 * kLines, slope);
    float tint = 0.1 + 0.58 * smoothstep(-0.1, 1.0, mix(height.x, floor(level) / kLines, 0.5));
    tint -= 0.05 * dot(height.yz, vec2(0.7, -0.7));
    return mix(tint, min(tint + 0.55, 1.0), line);
}

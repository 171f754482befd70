// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Rising wisps: thin sheets of smoke that turn as they climb. A sheet is bright where it is seen edge-on,
// along its two rims and where it folds over itself, and it frays and fades the higher it has risen.

const int sheets = 4;

#define kSpin k[0]
#define kPlaces k[1]
#define kCurl k[2].x
#define kLean k[2].y
#define kHalfHeight k[2].z
#define kRoom k[2].w
#define kSheet(i) k[3 + (i)] // middle, half width, phases of its sway and of its turn

void prepare(inout vec4 k[8])
{
    vec2 aspect = frameSize / min(frameSize.x, frameSize.y);
    kSpin = spin(0.07);
    kPlaces = vec4(seedOffset(0), seedOffset(1));
    float source = (0.9 * seedRandom(4) - 0.45) * aspect.x;
    float spread = (0.5 + 0.4 * seedRandom(5)) * aspect.x;
    kLean = 0.9 * seedRandom(6) - 0.45;
    kCurl = 0.08 + 0.1 * plainness();
    kHalfHeight = aspect.y;
    kRoom = min(0.35 + 0.37 * aspect.x, 1.0);
    for (int i = 0; i < sheets; ++i) {
        float side = (float(i) + 0.5 + 0.7 * (seedRandom(10 + i) - 0.5)) / float(sheets) - 0.5;
        kSheet(i) = vec4(source + 1.6 * spread * side, (0.18 + 0.3 * seedRandom(20 + i)) * kRoom,
                        tau * seedRandom(30 + i) - loopAngle(0.13 + 0.025 * float(i)),
                        tau * seedRandom(40 + i) - loopAngle(0.17 + 0.02 * float(i)));
    }
}

float pattern(vec2 p, vec4 k[8])
{
    float height = 0.5 + 0.5 * p.y / kHalfHeight;
    float risen = saturate(0.25 + 0.75 * height);
    vec2 n = p * vec2(0.75, 0.55);
    vec2 bend = vec2(noise(n + kPlaces.xy, kSpin), noise(n + kPlaces.zw, kSpin));
    vec2 more = vec2(noise(n * 1.8 + kPlaces.zw, kSpin), noise(n * 1.8 - kPlaces.xy, kSpin));
    vec2 q = p + lookWarp * (0.3 * bend + kCurl * more) * risen;
    // Sharp near the source, softer above.
    float rim = max(mix(0.025, 0.11, risen), 0.8 * cellWidth());
    float smoke = 0.0;
    float body = 0.0;
    for (int i = 0; i < sheets; ++i) {
        vec4 sheet = kSheet(i);
        float middle = sheet.x + kLean * q.y + (0.1 + 0.12 * risen) * sin(2.3 * q.y + sheet.z);
        // The sheet turns: its width passes through nothing and comes out the other side.
        float turn = 1.7 * q.y + sheet.w + 0.8 * sin(1.1 * q.y + sheet.z);
        float width = sheet.y * (0.35 + 1.1 * risen) * sin(turn);
        float reach = abs(width) + 0.02;
        float d = abs(q.x - middle) - reach;
        // Brightest at the rim, thinning out inward slowly and outward at once.
        float veil = d < 0.0 ? 0.2 + 0.8 * exp(d * 6.0) : bell(d, rim);
        float thin = 0.22 / (reach + 0.22);
        smoke += veil * (0.2 + 0.65 * thin);
        body += bell(d, 0.6 * kRoom);
    }
    float fade = 1.0 - 0.65 * smoothstep(0.3, 1.5, height + 0.3 * bend.y);
    float air = 0.17 + 0.07 * bend.x + 0.3 * body / float(sheets);
    return air + 0.95 * expose(kRoom * fade * smoke);
}

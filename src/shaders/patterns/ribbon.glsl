// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// A broad ribbon that twists as it crosses the frame, shaded by its turning, its edges lit; a second, fainter
// one behind it.

#define kCourse(i) k[2 * (i)] // phase of the course, phase of the twist, twist per length, half width
#define kLine(i) k[2 * (i) + 1] // offset, amplitude, cosine and sine of the angle
#define kZoom k[4].x
#define kCell k[4].y
#define kLight k[4].z
#define kSpin k[5]
#define kPlace k[6].xy
#define kWaist k[6].z // half the width that is left of a ribbon that is seen from its edge

void prepare(inout vec4 k[8])
{
    vec2 shape = frameSize / min(frameSize.x, frameSize.y);
    // Along the longer side of the frame, more or less.
    float lean = 0.15 + 0.4 * seedRandom(2);
    lean = (shape.y > shape.x ? 0.5 * pi - lean : lean) * (seedRandom(1) > 0.5 ? 1.0 : -1.0);
    float size = sqrt(shape.x * shape.y);
    for (int i = 0; i < 2; ++i) {
        float far = float(i);
        float turn = lean + far * (0.5 + 0.7 * seedRandom(3)) * (seedRandom(4) > 0.5 ? 1.0 : -1.0);
        float course = tau * seedRandom(5 + i) + loopAngle(0.06 - 0.02 * far);
        float twist = tau * seedRandom(7 + i) + loopAngle(0.07 + 0.02 * far);
        kCourse(i) = vec4(course, twist,
                        (0.55 + 0.5 * seedRandom(9 + i)) * (seedRandom(11 + i) > 0.5 ? 1.0 : -1.0),
                        size * (far > 0.5 ? 0.34 : 0.41 + 0.08 * seedRandom(13)));
        kLine(i) = vec4(0.3 * (seedRandom(15 + i) - 0.5), 0.1 + 0.1 * lookWarp, cos(turn), sin(turn));
    }
    kZoom = pow(lookScale, 0.72);
    kCell = pow(lookScale, 0.72) * dotWidth();
    kLight = tau * seedRandom(17);
    kSpin = spin(0.07);
    kPlace = seedOffset(9);
    kWaist = pow(lookScale, 0.72) * dotWidth() * saturate(2.0 * (coarseness() - 1.2));
}

/// Tone of a ribbon (x), how much it covers (y) and its distance (z).
vec3 ribbon(vec2 p, vec4 a, vec4 b, vec4 k[8])
{
    vec2 q = vec2(dot(p, b.zw), dot(p, vec2(-b.w, b.z)));
    float course = b.x + b.y * (sin(q.x * 1.1 + a.x) + 0.5 * sin(q.x * 2.1 - a.x * 2.0));
    float slope = b.y * (1.1 * cos(q.x * 1.1 + a.x) + 1.05 * cos(q.x * 2.1 - a.x * 2.0));
    float twist = a.y + a.z * 2.0 * q.x + 0.5 * sin(q.x * 0.9 - a.x);
    float facing = cos(twist);
    float halfWidth = sqrt(a.w * a.w * (facing * facing + 0.003) + kWaist * kWaist);
    float y = (q.y - course) * inversesqrt(1.0 + slope * slope);
    float v = clamp(y / halfWidth, -1.0, 1.0);
    float away = abs(y) - halfWidth;
    float width = kCell;
    // The cloth is a little hollow, so the light wanders across it as it turns.
    // It turns over within a little way, not at once, or its waist would flicker as it moves.
    float side = clamp(6.0 * facing, -1.0, 1.0);
    float normal = twist + 0.55 * side * v;
    float sheen = saturate(0.5 + 0.5 * cos(2.0 * normal + kLight));
    float back = 0.86 + 0.14 * side;
    float tone = back * (0.175 + 0.325 * sheen + 0.5 * pow(sheen, 5.0));
    float rim = (1.0 - smoothstep(0.006, 0.022 + width, abs(away))) * (0.45 + 0.5 * sheen);
    float cover = inside(away - 0.006, width);
    return vec3(tone + rim, cover, away);
}

float pattern(vec2 p, vec4 k[8])
{
    p *= kZoom;
    vec2 bend = vec2(noise(p * 0.6 + kPlace, kSpin), noise(p * 0.6 - kPlace.yx, kSpin));
    p += 0.09 * lookWarp * bend;
    vec3 front = ribbon(p, kCourse(0), kLine(0), k);
    vec3 back = ribbon(p, kCourse(1), kLine(1), k);
    float shade = smoothstep(-0.1, 0.28, front.z);
    float tone = 0.03 + 0.1 * exp(-max(front.z, 0.0) * 3.5) * 0.8;
    tone = mix(tone, back.x * 0.62 * (0.25 + 0.75 * shade), back.y);
    return mix(tone, front.x * 1.05, front.y);
}

// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// OKLab, in which colours are blended. Matrices: Ottosson, "A perceptual color space for image processing".

vec3 linearFromSrgb(vec3 c)
{
    vec3 low = c * (1.0 / 12.92);
    vec3 high = pow((c + 0.055) * (1.0 / 1.055), vec3(2.4));
    return mix(high, low, vec3(lessThanEqual(c, vec3(0.04045))));
}

vec3 srgbFromLinear(vec3 c)
{
    vec3 low = c * 12.92;
    vec3 high = 1.055 * pow(max(c, 0.0031308), vec3(1.0 / 2.4)) - 0.055;
    return mix(high, low, vec3(lessThanEqual(c, vec3(0.0031308))));
}

vec3 oklabFromSrgb(vec3 c)
{
    const mat3 lms = mat3(0.4122214708, 0.2119034982, 0.0883024619,
                          0.5363325363, 0.6806995451, 0.2817188376,
                          0.0514459929, 0.1073969566, 0.6299787005);
    const mat3 lab = mat3(0.2104542553, 1.9779984951, 0.0259040371,
                          0.7936177850, -2.4285922050, 0.7827717662,
                          -0.0040720468, 0.4505937099, -0.8086757660);
    return lab * pow(max(lms * linearFromSrgb(c), 0.0), vec3(1.0 / 3.0));
}

vec3 srgbFromOklab(vec3 c)
{
    const mat3 lms = mat3(1.0, 1.0, 1.0,
                          0.3963377774, -0.1055613458, -0.0894841775,
                          0.2158037573, -0.0638541728, -1.2914855480);
    const mat3 rgb = mat3(4.0767416621, -1.2684380046, -0.0041960863,
                          -3.3077115913, 2.6097574011, -0.7034186147,
                          0.2309699292, -0.3413193965, 1.7076147010);
    vec3 cone = lms * c;
    return srgbFromLinear(rgb * (cone * cone * cone));
}

// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The 4 x 4 ordered matrix, one threshold per cell.

vec3 shade(vec2 position) { return pick(inksAt(position), bayerThreshold(ivec2(position), 2)); }

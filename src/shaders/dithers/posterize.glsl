// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Flat steps, no pattern.

vec3 shade(vec2 position) { return pick(inksAt(position), 0.5); }

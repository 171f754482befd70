// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// In the place of inks_fetch, for the map of characters: one after the other, white on black.

float mapShare;

Inks inksAt(vec2 position) { return Inks(vec3(0.0), vec3(1.0), mapShare); }

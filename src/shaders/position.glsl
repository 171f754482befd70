// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Where a fragment is in the picture. Made of its own column and row: a place that is interpolated between vertices
// is rounded otherwise in a slice of the picture than in the whole of it.

uniform vec3 uTarget; // cells in a pixel; the row at the lower edge; 1, or -1 where rows are counted down from it

/// The middle of the fragment, in cells from the top left corner.
vec2 position() { return uTarget.x * vec2(gl_FragCoord.x, uTarget.y + uTarget.z * gl_FragCoord.y); }

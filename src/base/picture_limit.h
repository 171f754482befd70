// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImageReader>

namespace tessel {

/// Lets Qt read pictures of up to 512 MiB, which is to be called before it reads any: by itself it refuses
/// the picture of a monitor with more than 8192 x 4096 pixels. A file of a few kilobytes may ask for far
/// more.
inline void limitPictures()
{
    QImageReader::setAllocationLimit(512);
}

} // namespace tessel

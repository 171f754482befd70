// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace tessel {

/// What leaveOpen() may add to a stream, in bytes.
inline constexpr std::size_t openEndLength = 5;

/// Changes a deflate stream (RFC 1951) as a compressor has ended it into one that the next can follow: its
/// last block is no longer marked as that, and an empty one behind it goes up to a whole byte. So parts of
/// something can be compressed at the same time.
/// \param room the stream, and openEndLength bytes or more behind it
/// \param length of the stream
/// \return its length now
/// \throws std::invalid_argument for what is no such stream
[[nodiscard]] std::size_t leaveOpen(std::span<std::uint8_t> room, std::size_t length);

} // namespace tessel

#pragma once

#include <array>
#include <cstdint>

/// Tones are made in blocks of this many frames.
inline constexpr int HiresBlockFrames = 512;

/// In shapes and in gains, 2^`HiresUnityBits` is 1.
inline constexpr int HiresUnityBits = 30;
/// Their products are added up: 2^`HiresSumBits` is full scale, and room is for eight times as much.
inline constexpr int HiresSumBits = 2 * HiresUnityBits;
/// Those of a block, one channel.
using HiresSums = std::array<std::int64_t, HiresBlockFrames>;

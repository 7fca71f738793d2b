#pragma once

#include "hires/block.h"

#include <array>
#include <cstdint>

/// One cycle of a sine in steps of a 32768th, and its first entry once more: 2^`HiresUnityBits` is 1.
using HiresSineTable = std::array<std::int32_t, 32768 + 1>;

/// Filled by the first who asks, and never changed: any thread may read it.
const HiresSineTable& GetHiresSineTable();

/// The sine at a phase of which 2^64 are a cycle, between the entries on a straight line, which is off by
/// 5e-9 at most (-166 dB).
inline std::int32_t LookUpSine(const HiresSineTable& table, std::uint64_t phase) {
    const std::uint64_t entry = phase >> 49;
    const auto part = static_cast<std::int64_t>(phase >> 17 & 0xFFFFFFFF);
    const std::int64_t a = table[entry], b = table[entry + 1];
    return static_cast<std::int32_t>(a + (((b - a) * part + 0x80000000) >> 32));
}

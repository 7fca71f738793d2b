#pragma once

#include <cstdint>

/// Fixed-point arithmetic of the audio path. Overflow is meant to wrap, so it is done on unsigned numbers,
/// where it is defined; shifts of negative numbers are arithmetic.

/// A gain in 8.24 fixed point: 1.0, which leaves a sample as it is.
inline constexpr int UnityGain = 1 << 24;

[[gnu::always_inline]] constexpr int WrapToInt(std::int64_t value) {
    return static_cast<int>(static_cast<std::uint32_t>(value));
}

[[gnu::always_inline]] constexpr int WrapAdd(int a, int b) {
    return static_cast<int>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}

[[gnu::always_inline]] constexpr int WrapSubtract(int a, int b) {
    return static_cast<int>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

[[gnu::always_inline]] constexpr int WrapMultiply(int a, int b) {
    return static_cast<int>(static_cast<std::uint32_t>(a) * static_cast<std::uint32_t>(b));
}

[[gnu::always_inline]] constexpr int WrapShiftLeft(int value, int shift) {
    return shift > 31 ? 0 : static_cast<int>(static_cast<std::uint32_t>(value) << shift);
}

/// sample * gain / 2^24 from 12-bit halves, which keeps every product within 32 bits for gains up to 1.0.
/// Kept quirk: the product of the two low halves is dropped; the result is part of the sound, to the bit.
[[gnu::always_inline]] constexpr int SplitProduct(int sample, int gain) {
    const int sampleHigh = sample >> 12, sampleLow = sample & 0xFFF;
    const int gainHigh = gain >> 12, gainLow = gain & 0xFFF;
    return WrapAdd(WrapMultiply(sampleHigh, gainHigh),
                   WrapAdd(WrapMultiply(gainHigh, sampleLow) >> 12, WrapMultiply(sampleHigh, gainLow) >> 12));
}

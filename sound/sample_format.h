#pragma once

#include "sound/kernels/kernels.h"
#include "sound/sound_source.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <type_traits>

/// External sample formats: each names the type of one stored sample and how it converts to and from an
/// internal one.
/// Kept quirk: nothing is clipped on the way out. A value beyond the format's range keeps its low bits, so
/// +524272 in 8 bits wraps to byte 0; levels are the peak limiter's business.

/// Unsigned 8-bit, 128 is silence.
struct LSFU8 {
    using Stored = std::uint8_t;
    static constexpr int bytesPerSample = 1;
    static constexpr int peak = 127 * 4096 + 2047; ///< the largest magnitude that doesn't wrap

    static constexpr int In(Stored stored) { return (stored - 128) * 4096; }
    static constexpr Stored Out(int sample) { return static_cast<Stored>(((sample + 2048u) >> 12) - 128u); }
};

/// Signed 16-bit in the host's byte order, as audio devices take it.
struct LSF16 {
    using Stored = std::int16_t;
    static constexpr int bytesPerSample = 2;
    static constexpr int peak = FullScale16;

    [[gnu::always_inline]] static constexpr int In(Stored stored) { return stored * 16; }
    [[gnu::always_inline]] static constexpr Stored Out(int sample) {
        // The bits that an arithmetic shift would differ in are cut.
        return static_cast<Stored>((sample + 8u) >> 4);
    }
};

/// Signed 16-bit, little-endian in memory whatever the host.
struct LSFLE16 {
    using Stored = std::int16_t;
    static constexpr int bytesPerSample = 2;
    static constexpr int peak = FullScale16;

    static constexpr int In(Stored stored) { return LSF16::In(SwapOnBigEndian(stored)); }
    static constexpr Stored Out(int sample) { return SwapOnBigEndian(LSF16::Out(sample)); }

private:
    static constexpr Stored SwapOnBigEndian(Stored value) {
        if constexpr (std::endian::native == std::endian::little)
            return value;
        return static_cast<Stored>((value << 8) | ((value >> 8) & 0xFF));
    }
};

/// Whether samples are stored as `LSF16` stores them.
template <class Format>
inline constexpr bool IsStoredAs16 = std::is_same_v<Format, LSF16> ||
                                     (std::is_same_v<Format, LSFLE16> &&
                                      std::endian::native == std::endian::little);

/// Converts `count` single samples (frames * channels) from and to an external format; the buffers don't
/// overlap.
/// Thread: any. Blocks: no. Allocates: no.
template <class Format>
void ConvertSamplesIn(int* out, const typename Format::Stored* in, int count) {
    if constexpr (IsStoredAs16<Format>)
        Kernels().widen(out, in, count);
    else
        std::transform(in, in + count, out, Format::In);
}

template <class Format>
void ConvertSamplesOut(typename Format::Stored* out, const int* in, int count) {
    if constexpr (IsStoredAs16<Format>)
        Kernels().narrow(out, in, count);
    else
        std::transform(in, in + count, out, Format::Out);
}

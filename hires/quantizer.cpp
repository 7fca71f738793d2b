#include "hires/quantizer.h"

#include <algorithm>

namespace {

/// Tells its seeds from those of noise, whose last bits would be the dither otherwise.
constexpr std::uint64_t OwnStream = 0x5DEECE66D1CE4E5B;

/// The difference of two numbers, each evenly spread over a step.
std::int64_t DrawDither(HiresRandom& random, int dropped) {
    const std::uint64_t drawn = random.Draw();
    const std::uint64_t mask = (std::uint64_t{1} << dropped) - 1;
    return static_cast<std::int64_t>(drawn >> 32 & mask) - static_cast<std::int64_t>(drawn & mask);
}

} // namespace

HiresQuantizer::HiresQuantizer(int bits, bool dithers, std::uint64_t seed)
    : dropped(32 - bits),
      isDithered(dithers),
      random(seed ^ OwnStream) {}

void HiresQuantizer::Quantize(const std::int32_t* in, std::int32_t* out, int count) {
    const std::int32_t half = dropped == 0 ? 0 : 1 << (dropped - 1);
    const std::int32_t highest = INT32_MAX - half; // that is rounded up to a number that there is
    const std::int32_t kept = -1 << dropped;
    HiresRandom drawing = random; // in registers
    if (!isDithered)
        for (int i = 0; i < count; ++i)
            out[i] = (std::min(in[i], highest) + half) & kept;
    else
        for (int i = 0; i < count; ++i) {
            const std::int64_t sum = in[i] + DrawDither(drawing, dropped);
            out[i] =
                (static_cast<std::int32_t>(std::clamp<std::int64_t>(sum, INT32_MIN, highest)) + half) & kept;
        }
    random = drawing;
}

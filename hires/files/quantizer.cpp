#include "hires/files/quantizer.h"

#include <algorithm>

namespace {

constexpr std::uint64_t OwnStream = 0x5DEECE66D1CE4E5B; ///< tells its seeds from those of noise

} // namespace

HiresQuantizer::HiresQuantizer(int bits, bool dithers, std::uint64_t seed)
    : dropped(32 - bits),
      isDithered(dithers),
      random(seed ^ OwnStream) {}

/// The difference of two numbers, each evenly spread over a step.
std::int64_t HiresQuantizer::DrawDither() {
    const std::uint64_t drawn = random.Draw();
    const std::uint64_t mask = (std::uint64_t{1} << dropped) - 1;
    return static_cast<std::int64_t>(drawn >> 32 & mask) - static_cast<std::int64_t>(drawn & mask);
}

void HiresQuantizer::Quantize(std::int32_t* samples, int count) {
    if (dropped == 0)
        return;
    const std::int64_t half = std::int64_t{1} << (dropped - 1);
    const std::int64_t highest = (std::int64_t{1} << (31 - dropped)) - 1;
    for (std::int32_t* sample = samples; sample != samples + count; ++sample) {
        const std::int64_t added = half + (isDithered ? DrawDither() : 0);
        const std::int64_t rounded = std::clamp((*sample + added) >> dropped, -highest - 1, highest);
        *sample = static_cast<std::int32_t>(rounded << dropped);
    }
}

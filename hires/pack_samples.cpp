#include "hires/pack_samples.h"

#include "sound/files/wave_format.h"

#include <bit>
#include <cstring>

namespace {

template <class Encode>
void PackEach(const std::int32_t* samples, int count, char* out, Encode encode) {
    for (int i = 0; i < count; ++i) {
        const auto stored = LEndianReverse(encode(samples[i]));
        std::memcpy(out, &stored, sizeof stored);
        out += sizeof stored;
    }
}

/// Puts down the highest 24 bits in `Bytes` bytes, 3 or 4.
template <std::size_t Bytes>
void Put24(std::int32_t sample, char* out) {
    const std::uint32_t stored = LEndianReverse(static_cast<std::uint32_t>(sample) >> 8);
    std::memcpy(out, &stored, Bytes);
}

/// Each is written as four bytes, which is faster, and the next one replaces the fourth.
void Pack24(const std::int32_t* samples, int count, char* out) {
    for (; count > 1; --count, out += 3)
        Put24<4>(*samples++, out);
    if (count == 1)
        Put24<3>(*samples, out);
}

} // namespace

void PackSamples(HiresSamples kind, const std::int32_t* samples, int count, char* out) {
    switch (kind) {
    case HiresSamples::Int16:
        return PackEach(samples, count, out,
                        [](std::int32_t sample) { return static_cast<std::uint16_t>(sample >> 16); });
    case HiresSamples::Int24:
        return Pack24(samples, count, out);
    case HiresSamples::Int32:
        return PackEach(samples, count, out,
                        [](std::int32_t sample) { return static_cast<std::uint32_t>(sample); });
    case HiresSamples::Float:
        return PackEach(samples, count, out, [](std::int32_t sample) {
            return std::bit_cast<std::uint32_t>(static_cast<float>(sample) * 0x1p-31F);
        });
    }
}

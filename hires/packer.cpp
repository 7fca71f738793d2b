#include "hires/packer.h"

#include "hires/sample_bits.h"
#include "sound/kernels/kernels.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace {

template <class Word>
void Store(Word word, char* out) {
    if constexpr (std::endian::native == std::endian::big)
        word = static_cast<Word>(sizeof word == 2 ? __builtin_bswap16(static_cast<std::uint16_t>(word))
                                                  : __builtin_bswap32(word));
    std::memcpy(out, &word, sizeof word);
}

void Pack16(const std::int32_t* samples, int count, char* out) {
    for (int i = 0; i < count; ++i)
        Store(static_cast<std::uint16_t>(samples[i] >> 16), out + std::ptrdiff_t{2} * i);
}

void Pack32(const std::int32_t* samples, int count, char* out) {
    for (int i = 0; i < count; ++i)
        Store(static_cast<std::uint32_t>(samples[i]), out + std::ptrdiff_t{4} * i);
}

void PackFloats(const std::int32_t* samples, int count, char* out) {
    for (int i = 0; i < count; ++i)
        Store(std::bit_cast<std::uint32_t>(static_cast<float>(samples[i]) * 0x1p-31F),
              out + std::ptrdiff_t{4} * i);
}

void PackRounded(HiresSamples kind, const std::int32_t* samples, int count, char* out) {
    switch (kind) {
    case HiresSamples::Int16:
        return Pack16(samples, count, out);
    case HiresSamples::Int24:
        return Kernels().pack24(out, samples, count);
    case HiresSamples::Int32:
        return Pack32(samples, count, out);
    case HiresSamples::Float:
        return PackFloats(samples, count, out);
    }
}

} // namespace

HiresPacker::HiresPacker(const HiresFileFormat& format)
    : kind(format.samples),
      quantizer(GetBits(kind), format.dither && kind == HiresSamples::Int16, format.seed) {}

void HiresPacker::Round(const std::int32_t* samples, int count, std::int32_t* out) {
    quantizer.Quantize(samples, out, count);
}

void HiresPacker::Pack(const std::int32_t* samples, int count, char* out) {
    std::array<std::int32_t, 2048> rounded; // stays in the cache
    while (count > 0) {
        const int now = std::min<int>(count, rounded.size());
        Round(samples, now, rounded.data());
        PackRounded(kind, rounded.data(), now, out);
        samples += now;
        count -= now;
        out += std::ptrdiff_t{now} * (GetBits(kind) / 8);
    }
}

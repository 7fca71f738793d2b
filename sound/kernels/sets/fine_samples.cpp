#include "sound/kernels/kernel_set.h"

#include <bit>
#include <cstring>

namespace KERNEL_ISA {

void AddTurned(std::int64_t* sums, const LTurn& turn, int count) {
    const std::int64_t sine = turn.sine, cosine = turn.cosine;
    for (int i = 0; i < count; ++i)
        sums[i] += sine * turn.cosines[i] + cosine * turn.sines[i];
}

bool RoundSums(std::int32_t* out, const std::int64_t* sums, int count, int shift) {
    const std::int64_t half = std::int64_t{1} << (shift - 1), most = std::int64_t{INT32_MAX} << shift;
    std::int64_t room = 0; // of all together; negative where there is none
    for (int i = 0; i < count; ++i) {
        room |= (most - sums[i]) | (most + sums[i]);
        out[i] = static_cast<std::int32_t>(static_cast<std::uint64_t>(sums[i] + half) >> shift);
    }
    return room >= 0;
}

/// Bytes that are written beyond a sample's own are the next one's.
void Pack24(char* out, const std::int32_t* samples, int count) {
    int i = 0;
#ifdef __AVX2__
    using Bytes = unsigned char __attribute__((vector_size(16)));
    for (; i + 5 < count; i += 4, out += 12) {
        Bytes four;
        std::memcpy(&four, samples + i, sizeof four);
        four = __builtin_shufflevector(four, four, 1, 2, 3, 5, 6, 7, 9, 10, 11, 13, 14, 15, 0, 0, 0, 0);
        std::memcpy(out, &four, sizeof four);
    }
#endif
    for (; i < count; ++i, out += 3) {
        auto word = static_cast<std::uint32_t>(samples[i]) >> 8;
        if constexpr (std::endian::native == std::endian::big)
            word = __builtin_bswap32(word);
        if (i + 1 < count)
            std::memcpy(out, &word, 4);
        else
            std::memcpy(out, &word, 3);
    }
}

} // namespace KERNEL_ISA

#include "sound/fixed_point.h"
#include "sound/kernels/kernel_set.h"

#include <cstring>
#ifdef __AVX2__
#include <immintrin.h>
#endif

namespace KERNEL_ISA {

namespace {

using Run = LPolyphaseRun;

constexpr int HalfRow = LPolyphaseRow::HalfLength;
/// The middle taps' part is counted in this, once it is halved.
constexpr int CoarseBits = 7;
static_assert(LPolyphaseRow::Coarse == 2 << CoarseBits);

/// Where a run stands: the row of the next output frame, and its first sample.
struct Place {
    [[gnu::always_inline]] inline void MoveOn(const Run& run) {
        phase += run.stepPart;
        const bool wraps = phase >= run.phases;
        phase -= wraps ? run.phases : 0;
        sample += run.stepWhole + (wraps ? 1 : 0);
    }
    const std::int16_t* GetRow(const Run& run) const { return run.rows[phase].taps; }
    const std::int16_t* GetMiddle(const Run& run) const { return run.middle + phase * 2; }

    int phase;
    const std::int16_t* sample; ///< of the first channel
};

/// The sum of 32 products. 16-bit factors, so that two products fit one multiply-add instruction.
[[gnu::always_inline]] inline int Dot32(const std::int16_t* a, const std::int16_t* b) {
    int sum = 0;
    for (int t = 0; t < HalfRow; ++t)
        sum += a[t] * b[t];
    return sum;
}

/// (a / 2 + b / 2 + coarse * 128 + rounding) >> shift, where 32 bits hold all but what the coarse part
/// becomes; the sums are those of the negated samples.
[[gnu::always_inline]] inline int Scale(const Run& run, int a, int b, int coarse) {
    // Kept quirk: each half is halved before they are added, which drops a bit of each.
    const int fine = (-a >> 1) + (-b >> 1) + run.rounding;
    const int common = run.shift < CoarseBits ? run.shift : CoarseBits;
    return WrapSubtract(fine >> common, WrapShiftLeft(coarse, CoarseBits - common)) >> (run.shift - common);
}

[[gnu::always_inline]] inline int ConvolveOne(const Run& run, const Place& place,
                                              const std::int16_t* sample) {
    const std::int16_t* row = place.GetRow(run);
    const std::int16_t* middle = place.GetMiddle(run);
    return Scale(run, Dot32(row, sample), Dot32(row + HalfRow, sample + HalfRow),
                 middle[0] * sample[HalfRow - 1] + middle[1] * sample[HalfRow]);
}

#ifdef __AVX2__

// Four output frames at a time: adding up what stands in one register takes as long as filling it, so the
// sums of all are added up together.

constexpr int Group = 4;

[[gnu::always_inline]] inline __m256i Load(const std::int16_t* from) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from));
}

struct Row {
    [[gnu::always_inline]] explicit Row(const std::int16_t* from)
        : taps{Load(from), Load(from + 16), Load(from + 32), Load(from + 48)} {}

    /// Four parts of the sum of each half.
    [[gnu::always_inline]] __m256i SumInParts(const std::int16_t* sample) const {
        const auto multiply = [&](int k) { return _mm256_madd_epi16(taps[k], Load(sample + 16 * k)); };
        const __m256i a = _mm256_add_epi32(multiply(0), multiply(1));
        const __m256i b = _mm256_add_epi32(multiply(2), multiply(3));
        return _mm256_add_epi32(_mm256_blend_epi32(a, b, 0xF0), _mm256_permute2x128_si256(a, b, 0x21));
    }

    __m256i taps[4];
};

/// Two neighbours as one number.
[[gnu::always_inline]] inline int LoadPair(const std::int16_t* from) {
    int pair = 0;
    std::memcpy(&pair, from, sizeof pair);
    return pair;
}

/// As `Scale` of one.
[[gnu::always_inline]] inline __m128i Scale(const Run& run, __m256i parts, __m128i coarse) {
    const int common = run.shift < CoarseBits ? run.shift : CoarseBits;
    const __m256i halved = _mm256_srai_epi32(_mm256_sub_epi32(_mm256_setzero_si256(), parts), 1);
    const __m128i sum = _mm_add_epi32(_mm256_castsi256_si128(halved), _mm256_extracti128_si256(halved, 1));
    const __m128i fine =
        _mm_sra_epi32(_mm_add_epi32(sum, _mm_set1_epi32(run.rounding)), _mm_cvtsi32_si128(common));
    const __m128i all = _mm_sub_epi32(fine, _mm_sll_epi32(coarse, _mm_cvtsi32_si128(CoarseBits - common)));
    return _mm_sra_epi32(all, _mm_cvtsi32_si128(run.shift - common));
}

/// What a group of output frames needs of each channel.
struct Sums {
    [[gnu::always_inline]] __m128i Scale(const Run& run, const int (&middle)[Group]) const {
        const __m256i all =
            _mm256_hadd_epi32(_mm256_hadd_epi32(parts[0], parts[1]), _mm256_hadd_epi32(parts[2], parts[3]));
        const auto load = [](const int(&pairs)[Group]) {
            return _mm_setr_epi32(pairs[0], pairs[1], pairs[2], pairs[3]);
        };
        return KERNEL_ISA::Scale(run, all, _mm_madd_epi16(load(middle), load(samples)));
    }

    __m256i parts[Group];
    int samples[Group]; ///< the two in the middle of each span
};

template <int Channels>
int ConvolveGroups(const Run& run, Place& start, std::ptrdiff_t distance, int* out, int frames) {
    Place place = start;
    int done = 0;
    for (; done + Group <= frames; done += Group) {
        Sums sums[Channels];
        int middle[Group];
        for (int k = 0; k < Group; ++k) {
            const Row row(place.GetRow(run));
            for (int c = 0; c < Channels; ++c) {
                const std::int16_t* sample = place.sample + c * distance;
                sums[c].parts[k] = row.SumInParts(sample);
                sums[c].samples[k] = LoadPair(sample + HalfRow - 1);
            }
            middle[k] = LoadPair(place.GetMiddle(run));
            place.MoveOn(run);
        }
        auto* to = reinterpret_cast<__m128i*>(out + done * Channels);
        const __m128i first = sums[0].Scale(run, middle);
        if constexpr (Channels == 1) {
            _mm_storeu_si128(to, first);
        } else {
            const __m128i second = sums[1].Scale(run, middle);
            _mm_storeu_si128(to, _mm_unpacklo_epi32(first, second));
            _mm_storeu_si128(to + 1, _mm_unpackhi_epi32(first, second));
        }
    }
    start = place;
    return done;
}

#else

template <int Channels>
int ConvolveGroups(const Run& /*run*/, Place& /*start*/, std::ptrdiff_t /*distance*/, int* /*out*/,
                   int /*frames*/) {
    return 0;
}

#endif

template <int Channels>
void ConvolveChannels(const Run& run, Place place, std::ptrdiff_t distance, int* out, int frames) {
    for (int i = ConvolveGroups<Channels>(run, place, distance, out, frames); i < frames; ++i) {
        for (int c = 0; c < Channels; ++c)
            out[i * Channels + c] = ConvolveOne(run, place, place.sample + c * distance);
        place.MoveOn(run);
    }
}

} // namespace

void Convolve(const Run& run, int phase, const LChannelSamples& negated, int* out, int frames) {
    const Place place{phase, negated.first};
    if (negated.channels == 1)
        ConvolveChannels<1>(run, place, negated.distance, out, frames);
    else
        ConvolveChannels<2>(run, place, negated.distance, out, frames);
}

} // namespace KERNEL_ISA

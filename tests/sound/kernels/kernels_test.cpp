#include "sound/kernels/kernels.h"
#include "support/reference.h"

#include <gtest/gtest.h>

#include <array>

namespace {

std::vector<std::int16_t> Noise16(int count) {
    std::vector<std::int16_t> samples;
    for (const int value : ReferenceNoise(count, 60000))
        samples.push_back(static_cast<std::int16_t>(value));
    return samples;
}

/// What each set makes of the same, which has to be one thing.
template <class Try>
auto TryAllSets(Try tryOne) {
    const auto first = tryOne(*GetUsableKernels().front());
    for (const LKernels* kernels : GetUsableKernels())
        EXPECT_EQ(tryOne(*kernels), first) << kernels->instructionSet;
    return first;
}

using Samples = std::vector<int>;

TEST(Kernels, GainsPeaksAndFormatsAreTheSameInAllSets) {
    const Samples loud = ReferenceNoise(5003, 2000000);
    TryAllSets([&](const LKernels& kernels) {
        Samples mono(5003), stereo(5002), wide(5003);
        std::vector<std::int16_t> narrow(5003);
        kernels.applyGainLine(mono.data(), loud.data(), 5003, 1, 9000000, -321);
        kernels.applyGainLine(stereo.data(), loud.data(), 2501, 2, 0x1000000, -4321);
        kernels.narrow(narrow.data(), loud.data(), 5003);
        kernels.widen(wide.data(), narrow.data(), 5003);
        EXPECT_EQ(wide[7], narrow[7] * 16);
        const Samples few = {7, -100, 16, 99};
        EXPECT_EQ(kernels.getPeak(few.data(), 4), 100);
        return std::tuple(mono, stereo, narrow, wide, kernels.getPeak(loud.data(), 5003));
    });
}

TEST(Kernels, FineSamplesAreTheSameInAllSets) {
    const Samples sines = ReferenceNoise(503, 1 << 29), cosines = ReferenceNoise(503, 1 << 28);
    const auto [rounded, packed] = TryAllSets([&](const LKernels& kernels) {
        std::vector<std::int64_t> sums(503, 5);
        sums[3] = -(std::int64_t{INT32_MAX} << 29);
        kernels.addTurned(sums.data() + 4, {sines.data(), cosines.data(), 1 << 29, -(1 << 28)}, 499);
        EXPECT_EQ(sums[4], 5 + (std::int64_t{cosines[0]} << 29) - (std::int64_t{sines[0]} << 28));
        Samples out(503);
        EXPECT_TRUE(kernels.roundSums(out.data(), sums.data(), 503, 29));
        std::string bytes(1509, '?');
        kernels.pack24(bytes.data(), out.data(), 503);
        sums[502] = (std::int64_t{INT32_MAX} << 29) + 1;
        EXPECT_FALSE(kernels.roundSums(Samples(503).data(), sums.data(), 503, 29));
        return std::pair(out, bytes);
    });
    EXPECT_EQ(rounded[3], -INT32_MAX);
    for (std::size_t i = 0; i < rounded.size(); ++i)
        for (std::size_t byte = 0; byte < 3; ++byte)
            ASSERT_EQ(packed[3 * i + byte], static_cast<char>(rounded[i] >> (8 * byte + 8))) << i;
}

TEST(Kernels, PackingTurnsRoundsAndTellsWhatDoesNotFit) {
    for (const int channels : {1, 2}) {
        const auto pack = [&](Samples samples, int shift) {
            return TryAllSets([&](const LKernels& kernels) {
                Samples shifted = samples;
                std::vector<std::int16_t> negated(samples.size());
                const int frames = static_cast<int>(samples.size()) / channels;
                const bool fits =
                    kernels.pack(shifted.data(), frames, shift, {negated.data(), frames, channels});
                return std::tuple(fits, shifted, negated);
            });
        };
        pack(ReferenceNoise(1006, 2000000), 6);
        const auto [fits, shifted, negated] = pack({65535, -65535, 3, -3, 1, -1}, 1);
        EXPECT_TRUE(fits) << "32768, turned, is -32768";
        EXPECT_EQ(shifted, (Samples{32768, -32767, 2, -1, 1, 0}));
        EXPECT_EQ(negated, (channels == 1 ? std::vector<std::int16_t>{-32768, 32767, -2, 1, -1, 0}
                                          : std::vector<std::int16_t>{-32768, -2, -1, 32767, 1, 0}));
        EXPECT_FALSE(std::get<0>(pack({0, 0, -32768, 0, 0, 0}, 0)));
    }
}

/// Three rows, the last ones' middles beyond 16 bits, as they are defined: with 64-bit sums.
struct Filter {
    Filter() {
        const std::vector<std::int16_t> noise = Noise16(3 * 63);
        for (std::size_t p = 0; p < 3; ++p) {
            for (std::size_t t = 0; t < 63; ++t) {
                taps[p][t] = noise[p * 63 + t] / 18; // 31 of them and 128 add up to less than 65535
                rows[p].taps[t] = static_cast<std::int16_t>(taps[p][t]);
            }
            for (const std::size_t t : {31, 32}) {
                taps[p][t] = middles[p][t - 31];
                middle[p * 2 + t - 31] = static_cast<std::int16_t>(taps[p][t] >> 8);
                rows[p].taps[t] = static_cast<std::int16_t>(taps[p][t] & 0xFF);
            }
        }
    }

    int Convolve(int phase, const std::int16_t* negated, int rounding, int shift) const {
        std::int64_t halves[2] = {0, 0};
        for (int t = 0; t < 63; ++t)
            halves[t > 31] -=
                std::int64_t{taps[static_cast<std::size_t>(phase)][static_cast<std::size_t>(t)]} * negated[t];
        return static_cast<int>(((halves[0] >> 1) + (halves[1] >> 1) + rounding) >> shift);
    }

    static constexpr int middles[3][2] = {{65536, -20}, {63000, 41700}, {-65536, 255}};
    std::array<std::array<int, 63>, 3> taps{};
    std::array<LPolyphaseRow, 3> rows{};
    std::array<std::int16_t, 6> middle{};
};

TEST(Kernels, ConvolvingIsExactHoweverLoud) {
    constexpr int frames = 1003; // of which the last stand alone
    const Filter filter;
    std::vector<std::int16_t> samples = Noise16(4096);
    std::fill_n(samples.begin() + 40, 70, std::int16_t{-32768});
    for (const auto& [rounding, shift] : {std::pair{16384, 15}, {64, 7}, {1 << 10, 11}, {0, 0}, {0, 31}}) {
        const LPolyphaseRun run{filter.rows.data(), filter.middle.data(), 3, 1, 2, shift, rounding};
        for (const int channels : {1, 2}) {
            const Samples out = TryAllSets([&](const LKernels& kernels) {
                Samples convolved(static_cast<std::size_t>(frames * channels));
                kernels.convolve(run, 2, {samples.data(), 2000, channels}, convolved.data(), frames);
                return convolved;
            });
            for (int i = 0; i < frames; ++i) {
                const int at = 2 + i * 5; // in thirds of a frame
                for (int c = 0; c < channels; ++c)
                    ASSERT_EQ(out[static_cast<std::size_t>(i * channels + c)],
                              filter.Convolve(at % 3, &samples[static_cast<std::size_t>(at / 3 + c * 2000)],
                                              rounding, shift))
                        << i << " of " << channels << ", shift " << shift;
            }
        }
    }
}

TEST(Kernels, FiltersGoOnWhereTheyWere) {
    const LOnePoles filters{
        .poles = {0.5, -0.5, 0, 0, 0.25, 0}, .gains = {1, 1, 0, 0, 1, 0}, .delayed = 100, .direct = 1000};
    const std::vector<double> in = {8, 0, 0, 0, 0, 0, -16, 0, 0, 8};
    for (const std::size_t piece : {1, 4, 7, 10}) {
        const Samples out = TryAllSets([&](const LKernels& kernels) {
            Samples filtered(in.size());
            LOnePoles::State state{};
            for (std::size_t at = 0; at < in.size(); at += piece)
                kernels.filter(filters, state, &in[at], &filtered[at],
                               static_cast<int>(std::min(piece, in.size() - at)));
            return filtered;
        });
        EXPECT_EQ(out, (Samples{8024, 802, 4, 0, 1, 0, -16047, -1603, -8, 8023})) << piece;
    }
}

} // namespace

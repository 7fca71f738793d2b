#include "support/array_source.h"
#include "support/reference.h"
#include "sys/random.h"
#include "tone/pink_noise.h"
#include "tone/tone_engine.h"
#include "tone/white_noise.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>

namespace {

template <class Noise>
LSoundSource Seeded(std::uint32_t ms = 0) {
    FixRandomSeed(7);
    return LSoundSource::Make<Noise>(ms);
}

TEST(Noise, MatchesTheReference) {
    EXPECT_EQ(HashSamples(ReadInPieces(*Seeded<SSWhiteNoise>(), 200000)), 0x9F5A8B0Fu);
    EXPECT_EQ(HashSamples(ReadInPieces(*Seeded<SSPinkNoise>(), 200000)), 0x9120D5C2u);
}

TEST(Noise, WhiteNoiseIsItsTableThenSegmentsOfItXoredWithAValue) {
    const LSoundSource noise = LSoundSource::Make<SSWhiteNoise>(0u);
    const std::vector<int> out = ReadFrames(*noise, 200000);
    std::size_t at = 32768;
    for (std::size_t segment = 0; at < out.size(); ++segment) {
        const int value = out[segment];
        for (std::size_t i = static_cast<std::size_t>(value & 32767); i < 32768 && at < out.size(); ++i, ++at)
            ASSERT_EQ(out[at], out[i] ^ value) << at;
    }
    EXPECT_LE(*std::max_element(out.begin(), out.end()), 262143);
    EXPECT_GE(*std::min_element(out.begin(), out.end()), -262144);
}

template <class Noise>
class EveryNoise : public ::testing::Test {};
using Noises = ::testing::Types<SSWhiteNoise, SSPinkNoise>;
TYPED_TEST_SUITE(EveryNoise, Noises);

TYPED_TEST(EveryNoise, ASeekAnywhereRestartsIt) {
    const LSoundSource noise = LSoundSource::Make<TypeParam>(10'000u);
    const std::vector<int> first = ReadFrames(*noise, 50000);
    EXPECT_EQ(noise->GetPositionSample(), 50000);
    noise->Seek(5000);
    EXPECT_EQ(noise->GetPositionSample(), 0);
    EXPECT_EQ(ReadFrames(*noise, 50000), first);
    noise->Unload();
    noise->Seek(0);
    EXPECT_EQ(ReadFrames(*noise, 50000), first) << "its table is drawn again as it was";
    EXPECT_NE(ReadFrames(*LSoundSource::Make<TypeParam>(0u), 50000), first) << "each source draws its own";
}

TYPED_TEST(EveryNoise, HasTheLengthOfItsDurationOrAMinute) {
    EXPECT_EQ(TypeParam(1500).GetEndSample(), 66150);
    TypeParam endless(0);
    EXPECT_EQ(endless.GetEndSample(), 2646000);
    ReadFrames(endless, 10);
    EXPECT_EQ(endless.GetPositionSample(), 0);
    endless.status = SoundInvalidFormat;
    EXPECT_EQ(ReadFrames(endless, 2), (std::vector<int>{0x5EED, 0x5EED}))
        << "with a status it writes nothing";
}

TEST(Noise, IsMonoWhateverTheToneSays) {
    SonvireData tone;
    tone.flags = ToneFlagStereo;
    for (const int waveform : {ToneWhiteNoise, TonePinkNoise}) {
        tone.waveform = static_cast<std::uint8_t>(waveform);
        EXPECT_EQ(OpenToneEngine(tone)->channels, 1);
    }
}

void Fft(std::vector<std::complex<double>>& x) {
    const std::size_t n = x.size();
    for (std::size_t i = 1, j = 0; i < n; ++i) {
        for (std::size_t bit = n >> 1; (j ^= bit, (j & bit) == 0); bit >>= 1) {
        }
        if (i < j)
            std::swap(x[i], x[j]);
    }
    for (std::size_t size = 2; size <= n; size *= 2)
        for (std::size_t block = 0; block < n; block += size)
            for (std::size_t k = 0; k < size / 2; ++k) {
                const auto turn = std::polar(1.0, -2 * std::numbers::pi * static_cast<double>(k) /
                                                      static_cast<double>(size));
                const auto odd = turn * x[block + k + size / 2];
                x[block + k + size / 2] = x[block + k] - odd;
                x[block + k] += odd;
            }
}

TEST(Noise, PinkNoiseFallsBy3DbAnOctave) {
    constexpr std::size_t Size = 16384;
    std::vector<double> power(Size / 2);
    FixRandomSeed(1);
    for (int source = 0; source < 100; ++source) { // each has a table of its own, which is all its randomness
        const LSoundSource noise = LSoundSource::Make<SSPinkNoise>(0u);
        std::vector<std::complex<double>> x;
        for (const int sample : ReadFrames(*noise, Size))
            x.emplace_back(
                sample * (0.5 - 0.5 * std::cos(2 * std::numbers::pi * static_cast<double>(x.size()) / Size)));
        Fft(x);
        for (std::size_t i = 0; i < power.size(); ++i)
            power[i] += std::norm(x[i]);
    }
    // Equal power in every octave: from 50 Hz on, and from 117 Hz on, whose last octave reaches 15 kHz.
    std::vector<double> octaves;
    for (const double lowest : {50.0, 117.2})
        for (double hz = lowest; hz * 2 < 15010; hz *= 2) {
            double sum = 0;
            const double bin = 44100.0 / Size;
            for (std::size_t i = 0; i < power.size(); ++i)
                if (const double at = static_cast<double>(i) * bin; at >= hz && at < 2 * hz)
                    sum += power[i] / (std::floor(2 * hz / bin) - std::floor(hz / bin)) * hz / bin;
            octaves.push_back(10 * std::log10(sum));
        }
    const auto [low, high] = std::minmax_element(octaves.begin(), octaves.end());
    EXPECT_LT(*high - *low, 1.0);
}

} // namespace

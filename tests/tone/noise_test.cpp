#include "support/array_source.h"
#include "support/reference.h"
#include "sys/random.h"
#include "tone/pink_noise.h"
#include "tone/tone_engine.h"
#include "tone/white_noise.h"

#include <gtest/gtest.h>

#include <cmath>

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

TEST(Noise, PinkNoiseHasEqualPowerInEveryOctave) {
    std::vector<double> octaves(9); // from 22 kHz down to 43 Hz
    FixRandomSeed(1);
    for (int source = 0; source < 100; ++source) { // each has a table of its own, which is all its randomness
        const std::vector<int> samples = ReadFrames(*LSoundSource::Make<SSPinkNoise>(0u), 16384);
        std::vector<double> x(samples.begin(), samples.end());
        for (double& power :
             octaves) { // what neighbours differ in is the highest octave, their sums are the rest
            for (std::size_t i = 0; i < x.size() / 2; ++i) {
                power += std::pow(x[2 * i] - x[2 * i + 1], 2) / 2;
                x[i] = (x[2 * i] + x[2 * i + 1]) / std::sqrt(2);
            }
            x.resize(x.size() / 2);
        }
    }
    const auto [low, high] = std::minmax_element(octaves.begin(), octaves.end());
    EXPECT_LT(10 * std::log10(*high / *low), 1.0) << "in decibels";
}

} // namespace

#include "support/array_source.h"
#include "support/reference.h"
#include "sys/random.h"
#include "tone/pink_noise.h"
#include "tone/white_noise.h"

#include <gtest/gtest.h>

namespace {

template <class Noise>
LSoundSource Seeded() {
    FixRandomSeed(7);
    return LSoundSource::Make<Noise>(0u);
}

TEST(Noise, MatchesTheReference) {
    ExpectReference(ReadInPieces(*Seeded<SSWhiteNoise>(), 200000), "white noise, seed 7");
    ExpectReference(ReadInPieces(*Seeded<SSPinkNoise>(), 200000), "pink noise, seed 7");
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

} // namespace

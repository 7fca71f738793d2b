#include "sound/stages/peak_limit.h"
#include "support/array_source.h"
#include "support/reference.h"

#include <gtest/gtest.h>

namespace {

LSoundSource Limit(const std::vector<int>& samples, int rate, int limit = FullScale16,
                   std::uint8_t channels = 1) {
    return LSoundSource::Make<LSRCPeakLimit>(ArrayOf(samples, rate, channels), limit);
}

TEST(PeakLimit, StandsOnlyWhereTheInputCanExceedTheLimit) {
    const LSoundSource quiet = ArrayOf({}, 44100, 1, 524272), loud = ArrayOf({}, 44100, 1, 524273);
    EXPECT_EQ(&*LSPPeakLimit(524272).OpenSource(quiet), &*quiet);
    EXPECT_EQ(LSPPeakLimit(524272).OpenSource(loud)->peakMax, 524272);
    EXPECT_EQ(LSPPeakLimit(524272).OpenSource(LSoundSource())->status, SoundInputUnusable);
    EXPECT_EQ(LSRCPeakLimit(loud, 0x7000000).peakMax, 4194303);
}

TEST(PeakLimit, BlocksLastA35thOfASecond) {
    const std::tuple<int, bool, int> cases[] = {{44100, false, 1260}, {44100, true, 630},
                                                {8000, false, 228},   {400, false, 16},
                                                {1, true, 16},        {352800, false, 8192}};
    for (const auto& [rate, streaming, frames] : cases) {
        const LSoundSource input = ArrayOf({}, rate);
        Array(input).streaming = streaming;
        ReadFrames(*LSoundSource::Make<LSRCPeakLimit>(input, FullScale16), 1);
        EXPECT_EQ(Array(input).longestRead, frames) << rate;
    }
}

TEST(PeakLimit, WhatNeedsNoScalingPassesToTheBit) {
    const std::vector<int> full(5000, -FullScale16);
    EXPECT_EQ(ReadFrames(*Limit(full, 44100), 5000), full);
}

TEST(PeakLimit, MatchesTheReference) {
    for (const auto& [channels, reference] :
         {std::pair{2, "limited stereo 8000"}, {3, "limited by 3 at 8000"}}) {
        const LSoundSource limited =
            Limit(ReferenceNoise(60000, 900000), 8000, FullScale16, static_cast<std::uint8_t>(channels));
        ExpectReference(ReadInPieces(*limited, 20000), reference);
        limited->Seek(0);
        ExpectReference(ReadInPieces(*limited, 20000), reference);
    }
}

TEST(PeakLimit, ThePositionRunsBehindTheInputAndASeekLandsExactly) {
    const std::vector<int> ramp = Numbered(20000, 0);
    const LSoundSource limited = Limit(ramp, 8000);
    ReadFrames(*limited, 1000);
    EXPECT_EQ(limited->GetPositionSample(), 1000);
    ExpectSeeks(*limited, ramp, {17, 5000, 0});
    EXPECT_EQ(limited->GetEndSample(), 20000);
    const LSoundSource input = ArrayOf(ramp, 8000);
    Array(input).streaming = true;
    EXPECT_EQ(LSRCPeakLimit(input, FullScale16).GetEndSample(), 20000 - 3 * 114) << "what its delay holds";
}

} // namespace

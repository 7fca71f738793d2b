#include "sound/stages/convert_channels.h"
#include "sound/stages/convert_rate.h"
#include "support/array_source.h"
#include "support/reference.h"

#include <gtest/gtest.h>

#include <optional>

namespace {

TEST(ConvertChannels, SumsDownAndSpreadsOut) {
    const LSoundSource mono = LSPConvChannels(1).OpenSource(ArrayOf({1000, -400, 524272, 524272}, 44100, 2));
    EXPECT_EQ(ReadFrames(*mono, 3), (std::vector<int>{600, 1048544, 0}));
    EXPECT_EQ(mono->peakMax, FullScale16) << "the sum keeps the input's peak";
    const std::vector<int> noise = ReferenceNoise(40000, 1000); // more than is converted at once
    const LSoundSource stereo = LSPConvChannels(2).OpenSource(ArrayOf(noise, 44100));
    const std::vector<int> spread = ReadFrames(*stereo, 40000);
    stereo->Seek(0);
    const std::vector<int> summed = ReadFrames(*LSPConvChannels(1).OpenSource(stereo), 40000);
    for (std::size_t i = 0; i < noise.size(); ++i) {
        ASSERT_EQ(spread[2 * i], noise[i]);
        ASSERT_EQ(spread[2 * i + 1], noise[i]);
        ASSERT_EQ(summed[i], 2 * noise[i]);
    }
}

TEST(ConvertChannels, OnlyMonoAndStereoConvert) {
    for (const auto& [from, to] : {std::pair{2, 2}, {1, 1}, {3, 1}, {3, 2}, {1, 3}, {2, 0}}) {
        const LSoundSource source = ArrayOf({}, 44100, static_cast<std::uint8_t>(from));
        EXPECT_EQ(&*LSPConvChannels(static_cast<std::uint8_t>(to)).OpenSource(source), &*source)
            << from << to;
    }
    const LSoundSource failed;
    EXPECT_EQ(&*LSPConvChannels(2).OpenSource(failed), &*failed);
}

TEST(ResampleFilter, TheRatioIsTheFirstFractionThatIsCloseEnough) {
    constexpr int cases[][4] = {{44100, 48000, 37, 34}, {48000, 44100, 34, 37}, {8000, 44100, 11, 2},
                                {22050, 44100, 2, 1},   {88200, 22050, 1, 4},   {44100, 44101, 1, 1},
                                {1, 600, 1, 1},         {100, 50000, 255, 1}};
    for (const auto& [in, out, phases, step] : cases) {
        const LConvertRateBase filter(in, out, 63, false);
        EXPECT_EQ(filter.GetPhases(), phases) << in << " to " << out;
        EXPECT_EQ(filter.GetStep(), step) << in << " to " << out;
    }
}

TEST(ConvertRate, MatchesTheReference) {
    struct {
        const char* reference;
        int in, out;
        std::uint8_t inChannels, outChannels;
        int peak, frames;
        std::optional<int> start = {}; // sought beforehand
    } const cases[] = {
        {"mono 8000 to 44100", 8000, 44100, 1, 1, 524272, 60000},
        {"mono 44100 to 48000", 44100, 48000, 1, 1, 524272, 60000},
        {"mono 48000 to 44100", 48000, 44100, 1, 1, 524272, 60000},
        {"mono 22050 to 44100", 22050, 44100, 1, 1, 524272, 60000},
        {"mono 96000 to 44100", 96000, 44100, 1, 1, 524272, 60000},
        {"stereo 48000 to 44100", 48000, 44100, 2, 2, 2000000, 20000},
        {"mixed 48000 to 44100", 48000, 44100, 2, 1, 524272, 20000}, // and only then converted
        {"mono 88200 to 22050", 88200, 22050, 1, 1, 524272, 4000},
        {"88204 to 22050 by 44100", 88204, 22050, 1, 1, 524272, 4000}, // two stages from here on
        {"192000 to 22050 by 44100", 192000, 22050, 1, 1, 524272, 4000},
        {"mono 88204 to 44100", 88204, 44100, 1, 1, 524272, 4000}, // by a filter of its own
        {"48000 to 44100 from 1000", 48000, 44100, 1, 1, 524272, 4000, 1000},
        {"48000 to 44100 from -1000", 48000, 44100, 1, 1, 524272, 4000, -1000},
    };
    for (const auto& each : cases) {
        LSoundSource source = ArrayOf(ReferenceNoise(60000, each.peak), each.in, each.inChannels);
        LSPConvertSourceRateChannels(each.out, each.outChannels, source);
        if (each.start) {
            ReadFrames(*source, 100); // of which nothing must be left
            source->Seek(*each.start);
        }
        ExpectReference(ReadInPieces(*source, each.frames), each.reference);
    }
}

TEST(ConvertRate, AConstantComesOutAsItself) {
    // Rounding wraps it, so that 16 bits do not hold it.
    const LSoundSource largest = ArrayOf(std::vector<int>(6000, 2147483647), 44100);
    ExpectReference(ReadFrames(*LSPConvertRate(48000).OpenSource(largest), 6000),
                    "largest from 44100 to 48000");
    // 65535 is halved to one more than 16 bits hold by rounding, 1 << 29 is the largest that needs no shift
    // on the way out, and 1 << 30 would need one to the left.
    for (const auto& [sample, expected] : {std::pair{65535, 65535}, {1 << 29, 1 << 29}, {1 << 30, 0}}) {
        LSRCConvertRate converter(ArrayOf(std::vector<int>(4000, sample), 44100), 48000, false);
        const std::vector<int> out = ReadFrames(converter, 4000);
        for (int i = 500; i < 3000; ++i)
            ASSERT_NEAR(out[static_cast<std::size_t>(i)], expected, expected / 256.0) << i;
    }
}

TEST(ConvertRate, AConvertedSourceReportsItsNewLengthPositionAndPeak) {
    const LSoundSource converted = LSPConvertRate(44100).OpenSource(ArrayOf(std::vector<int>(48000), 48000));
    EXPECT_EQ(converted->sampleRate, 44100);
    EXPECT_EQ(&*LSPConvertRate(44100).OpenSource(converted), &*converted) << "which it has by now";
    EXPECT_EQ(converted->GetEndSample(), 44108); // 48000 / 37 * 34 and what remains of it
    EXPECT_EQ(converted->peakMax, 2 * FullScale16);
    EXPECT_EQ(converted->GetPositionSample(), 0);
    ReadFrames(*converted, 3400);
    EXPECT_EQ(converted->GetPositionSample(), 3398) << "where the last frame stood, truncated";
    converted->Seek(1000);
    EXPECT_EQ(converted->GetPositionSample(), 999) << "truncated twice";
    EXPECT_EQ(LSRCConvertRate(ArrayOf({}, 48000, 1, 0x100000), 44100, false).peakMax, 0x200000);
    EXPECT_EQ(LSRCConvertRate(ArrayOf({}, 48000, 1, 0x100001), 44100, false).peakMax, 0x100001);
}

TEST(ConvertRate, AStreamingInputIsReadAsFarAsItHasCome) {
    const LSoundSource input = ArrayOf(ReferenceNoise(5000, 1000), 48000);
    Array(input).streaming = true;
    LSRCConvertRate converter(input, 44100, false);
    EXPECT_EQ(converter.GetEndSample(), 4563); // (5000 - 33) / 37 * 34 and the rest, less one
    ReadFrames(converter, 100);
    EXPECT_EQ(Array(input).longestRead, 5000);
    ReadFrames(converter, 5000); // past what there is, in steps of 64
    EXPECT_EQ(Array(input).position, 5640) << "the first step beyond 5099 * 37 / 34 + 32";
}

TEST(ConvertRate, AFilterWithoutAnyPassBandIsSilent) {
    // The first of two stages would cut off at exactly 2 * 2250 / 48000 - 3/32 = 0.
    const LSoundSource source = LSPConvertRate(2250).OpenSource(ArrayOf(ReferenceNoise(9000, 524272), 48000));
    EXPECT_EQ(ReadFrames(*source, 300), std::vector<int>(300));
}

TEST(ConvertRate, LayoutsThatNothingConvertsAreSilent) {
    LSRCConvertRate converter(ArrayOf(ReferenceNoise(3000, 1000), 48000, 3), 44100, false);
    EXPECT_EQ(ReadFrames(converter, 100), std::vector<int>(300));
    EXPECT_EQ(LSPConvertRate(44100).OpenSource(LSoundSource())->status, SoundNothing);
    EXPECT_EQ(LSRCConvertRate(LSoundSource(), 44100, false).status, SoundInputUnusable);
    EXPECT_EQ(LSRCConvertRate(ArrayOf({}, 48000), 0, false).status, SoundInvalidFormat);
    EXPECT_EQ(LSRCConvertRate(ArrayOf({}, 48000), 0, false).sampleRate, 44100);
}

} // namespace

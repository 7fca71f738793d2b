#include "sound/stages/convert_channels.h"
#include "sound/stages/convert_rate.h"
#include "support/array_source.h"
#include "support/reference.h"

#include <gtest/gtest.h>

namespace {

LSoundSource Make(const std::vector<int>& samples, int rate, std::uint8_t channels = 1,
                  int peak = FullScale16) {
    return LSoundSource::Make<ArraySource>(samples, rate, channels, peak);
}

TEST(ConvertChannels, SumsDownAndSpreadsOut) {
    const LSoundSource mono = LSPConvChannels(1).OpenSource(Make({1000, -400, 524272, 524272}, 44100, 2));
    EXPECT_EQ(ReadFrames(*mono, 3), (std::vector<int>{600, 1048544, 0}));
    EXPECT_EQ(mono->peakMax, FullScale16) << "the sum keeps the input's peak";
    const std::vector<int> noise = ReferenceNoise(40000, 1000);
    const std::vector<int> stereo = ReadFrames(*LSPConvChannels(2).OpenSource(Make(noise, 44100)), 40000);
    for (std::size_t i = 0; i < stereo.size(); ++i) // more than it converts at once
        ASSERT_EQ(stereo[i], noise[i / 2]);
}

TEST(ConvertChannels, OnlyMonoAndStereoConvert) {
    struct {
        std::uint8_t from, to;
    } const cases[] = {{2, 2}, {1, 1}, {3, 1}, {3, 2}, {1, 3}, {2, 0}};
    for (const auto& each : cases) {
        const LSoundSource source = Make({}, 44100, each.from);
        EXPECT_EQ(&*LSPConvChannels(each.to).OpenSource(source), &*source) << int{each.from} << int{each.to};
    }
    const LSoundSource failed;
    EXPECT_EQ(&*LSPConvChannels(2).OpenSource(failed), &*failed);
}

TEST(ResampleFilter, TheRatioIsTheFirstFractionThatIsCloseEnough) {
    struct {
        int in, out, phases, step;
    } const cases[] = {{44100, 48000, 37, 34}, {48000, 44100, 34, 37}, {8000, 44100, 11, 2},
                       {22050, 44100, 2, 1},   {88200, 22050, 1, 4},   {44100, 44101, 1, 1},
                       {1, 600, 1, 1},         {100, 50000, 255, 1}};
    for (const auto& each : cases) {
        const LConvertRateBase filter(each.in, each.out, 63, false);
        EXPECT_EQ(filter.GetPhases(), each.phases) << each.in << " to " << each.out;
        EXPECT_EQ(filter.GetStep(), each.step) << each.in << " to " << each.out;
    }
}

TEST(ConvertRate, MatchesTheReference) {
    struct {
        const char* reference;
        int in, out;
        std::uint8_t channels;
        int peak, frames;
        bool wide;
    } const cases[] = {
        {"mono 8000 to 44100", 8000, 44100, 1, 524272, 60000, false},
        {"mono 44100 to 48000", 44100, 48000, 1, 524272, 60000, false},
        {"mono 48000 to 44100", 48000, 44100, 1, 524272, 60000, false},
        {"mono 22050 to 44100", 22050, 44100, 1, 524272, 60000, false},
        {"mono 96000 to 44100", 96000, 44100, 1, 524272, 60000, false},
        {"stereo 48000 to 44100", 48000, 44100, 2, 2000000, 20000, false},
        {"mono 192000 to 44100 (wide)", 192000, 44100, 1, 524272, 16000, true},
    };
    for (const auto& each : cases) {
        const LSoundSource input = Make(ReferenceNoise(60000, each.peak), each.in, each.channels);
        LSRCConvertRate converter(input, each.out, each.wide);
        EXPECT_EQ(HashSamples(ReadInPieces(converter, each.frames)), ReferenceHash(each.reference))
            << each.reference;
    }
}

TEST(ConvertRate, EveryInstructionSetGivesTheSameBits) {
    std::vector<std::int16_t> rows, cut, samples;
    for (const int value : ReferenceNoise(4096, 60000))
        samples.push_back(static_cast<std::int16_t>(value));
    rows.assign(samples.begin() + 100, samples.begin() + 100 + 3 * 64);
    cut = {1, 0, 0, -1, 1, 1};
    samples[40] = samples[41] = rows[40] = rows[41] = -32768; // the one pair of products that overflows
    const LPolyphaseRun run{rows.data(), cut.data(), 3, 1, 2, 1 << 10, 11};
    const std::vector<int> loud = ReferenceNoise(5003, 2000000);

    struct Results {
        int peak;
        std::vector<int> mono, stereo, convolved;
        bool operator==(const Results&) const = default;
    };
    std::vector<Results> results;
    for (const LKernels* kernels : GetUsableKernels()) {
        Results all{.peak = kernels->getPeak(loud.data(), 5003),
                    .mono = std::vector<int>(5003),
                    .stereo = std::vector<int>(5002),
                    .convolved = std::vector<int>(2000)};
        kernels->applyGainLine(all.mono.data(), loud.data(), 5003, 1, 9000000, -321);
        kernels->applyGainLine(all.stereo.data(), loud.data(), 2501, 2, 0x1000000, -4321);
        kernels->convolve(run, 2, samples.data(), all.convolved.data(), 1, 2000);
        results.push_back(all);
    }
    for (const Results& each : results)
        EXPECT_EQ(each, results.front());
}

TEST(ConvertRate, ASampleThatRoundsUpBeyond16BitsCountsInFull) {
    // A peak of 65535 is halved to 32768: one more than 16 bits hold. A constant comes out as itself.
    LSRCConvertRate converter(Make(std::vector<int>(4000, 65535), 44100), 48000, false);
    const std::vector<int> out = ReadFrames(converter, 4000);
    for (int i = 500; i < 3000; ++i)
        ASSERT_NEAR(out[static_cast<std::size_t>(i)], 65535, 200) << i;
}

TEST(ConvertRate, AConvertedSourceReportsItsNewLengthPositionAndPeak) {
    const LSoundSource converted = LSPConvertRate(44100).OpenSource(Make(std::vector<int>(48000), 48000));
    EXPECT_EQ(converted->sampleRate, 44100);
    EXPECT_EQ(converted->GetEndSample(), 44108); // 48000 / 37 * 34 and what remains of it
    EXPECT_EQ(converted->peakMax, 2 * FullScale16);
    EXPECT_EQ(converted->GetPositionSample(), 0);
    ReadFrames(*converted, 3400);
    EXPECT_EQ(converted->GetPositionSample(), 3398) << "where the last frame stood, truncated";
    converted->Seek(1000);
    EXPECT_EQ(converted->GetPositionSample(), 999) << "truncated twice";
    EXPECT_EQ(LSRCConvertRate(Make({}, 48000, 1, 0x100001), 44100, false).peakMax, 0x100001);
}

TEST(ConvertRate, ASeekGoesOnAsIfReadToThere) {
    const std::vector<int> noise = ReferenceNoise(30000, 300000);
    LSRCConvertRate straight(Make(noise, 48000), 44100, false), sought(Make(noise, 48000), 44100, false);
    const int target = 34 * 100; // a whole number of the fraction's periods
    ReadFrames(straight, target);
    sought.Seek(target);
    const std::vector<int> expected = ReadFrames(straight, 2000), got = ReadFrames(sought, 2000);
    for (std::size_t i = 0; i < got.size(); ++i)
        ASSERT_NEAR(got[i], expected[i], 32) << i; // the blocks may be scaled apart
    sought.Seek(-1000); // before the beginning: silence, and no memory that is not there
    EXPECT_EQ(ReadFrames(sought, 10), std::vector<int>(10));
}

TEST(ConvertRate, AStreamingInputIsReadAsFarAsItHasCome) {
    const LSoundSource input = Make(ReferenceNoise(5000, 1000), 48000);
    auto& stream = static_cast<ArraySource&>(*input);
    stream.streaming = true;
    LSRCConvertRate converter(input, 44100, false);
    EXPECT_EQ(converter.GetEndSample(), 4563); // (5000 - 33) / 37 * 34 and the rest, less one
    ReadFrames(converter, 100);
    EXPECT_EQ(stream.longestRead, 5000);
    ReadFrames(converter, 5000); // past what there is, in steps of 64
    EXPECT_LE(stream.position, 5000 + 64 * 20);
}

TEST(ConvertRate, FarReductionsTakeTwoStagesAndMixingComesFirst) {
    LSoundSource source = Make(ReferenceNoise(60000, 524272), 192000);
    const LSoundSource twice = LSPConvertRate(22050).OpenSource(source);
    LSRCConvertRate byHand(LSoundSource::Make<LSRCConvertRate>(source, 44100, true), 22050, false);
    const std::vector<int> expected = ReadFrames(byHand, 4000);
    source->Seek(0);
    EXPECT_EQ(ReadFrames(*LSPConvertRate(22050).OpenSource(source), 4000), expected);

    LSoundSource stereo = Make(ReferenceNoise(20000, 524272), 48000, 2);
    LSPConvertSourceRateChannels(44100, 1, stereo);
    EXPECT_EQ(stereo->channels, 1);
    EXPECT_EQ(stereo->sampleRate, 44100);

    LSoundSource equal = Make({}, 44100);
    LSoundSourceBase* before = &*equal;
    LSPConvertSourceRateChannels(44100, 1, equal);
    EXPECT_EQ(&*equal, before);
}

TEST(ConvertRate, AFilterWithoutAnyPassBandIsSilent) {
    // The first of two stages would cut off at exactly 2 * 2250 / 48000 - 3/32 = 0.
    const LSoundSource source = LSPConvertRate(2250).OpenSource(Make(ReferenceNoise(9000, 524272), 48000));
    EXPECT_EQ(ReadFrames(*source, 300), std::vector<int>(300));
}

TEST(ConvertRate, LayoutsThatNothingConvertsAreSilent) {
    LSRCConvertRate converter(Make(ReferenceNoise(3000, 1000), 48000, 3), 44100, false);
    EXPECT_EQ(ReadFrames(converter, 100), std::vector<int>(300));
    EXPECT_EQ(LSPConvertRate(44100).OpenSource(LSoundSource())->status, SoundNothing);
    EXPECT_EQ(LSRCConvertRate(LSoundSource(), 44100, false).status, SoundInputUnusable);
}

} // namespace

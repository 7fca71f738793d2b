#include "sound/stages/concatenation.h"
#include "sound/stages/convert_rate.h"
#include "sound/stages/repeat.h"
#include "support/array_source.h"
#include "support/reference.h"

#include <gtest/gtest.h>

namespace {

LSoundSource Constant(int value, int frames, int rate = 1000, std::uint8_t channels = 1,
                      int peak = FullScale16) {
    return ArrayOf(std::vector<int>(static_cast<std::size_t>(frames * channels), value), rate, channels,
                   peak);
}

/// 3 frames of 1, 4 frames of silence, nothing of a failed source, 2 frames of 5, a frame of silence.
LSoundSourceCat Mixed() {
    LSoundSourceCat list;
    const LSoundSource moved = Constant(1, 3);
    moved->Seek(2);
    list.AddSource(moved);
    list.AddSilence(LSoundTime(4));
    list.AddSource(LSoundSource());
    list.AddSilence(LSoundTime(-1000));
    list.AddSource(Constant(5, 2));
    list.AddSilence(LSoundTime(1));
    return list;
}

TEST(Concatenation, PlaysItsItemsOneAfterAnother) {
    const LSoundSource source = Mixed().OpenSource();
    EXPECT_EQ(source->sampleRate, 1000);
    const std::vector<int> expected = {1, 1, 1, 0, 0, 0, 0, 5, 5, 0, 0, 0, 0};
    EXPECT_EQ(ReadFrames(*source, 13), expected);
    EXPECT_EQ(source->GetPositionSample(), 10) << "it does not move past the end";
    EXPECT_EQ(ReadInPieces(*Mixed().OpenSource(), 13), expected);
    LSoundSourceCat silence;
    silence.AddSilence(LSoundTime(1));
    EXPECT_EQ(ReadFrames(*silence.OpenSource(), 9), std::vector<int>(9)) << "one of them past its end";
}

TEST(Concatenation, ItsLengthIsThatOfItsItems) {
    const LSoundSource source = Mixed().OpenSource();
    EXPECT_EQ(source->GetEndSample(), 10 - 1000) << "a negative silence plays nothing and counts as it is";
    EXPECT_EQ(LSoundSourceCat().OpenSource()->GetEndSample(), 0);
    const auto lengthOf = [](int rate, int first, int second, bool streaming = false) { // a second each
        LSoundSourceCat list;
        for (const int each : {first, second}) {
            list.AddSource(Constant(1, each, each));
            Array(list.GetItems().back().source).streaming = streaming;
        }
        return list.OpenSource(rate, 1)->GetEndSample();
    };
    EXPECT_EQ(lengthOf(44100, 8000, 44100), 44000 + 44100) << "as converted, by 11/2";
    EXPECT_EQ(lengthOf(44100, 44100, 8000), 44100 + 44000) << "also where it is not open yet";
    // By way of 44100, by 17/74: 2594 * 17 and what 44 frames make; half of these 44108.
    EXPECT_EQ(lengthOf(22050, 22050, 192000), 22050 + 22054);
    EXPECT_EQ(lengthOf(48000, 48000, 44100, true), 48000 + 47954) << "(44100 - 33) * 37 / 34, less one";
}

TEST(Concatenation, PlaysEveryPassWholeWhereItIsLooped) {
    LSoundSourceCat inner, outer;
    inner.AddSource(Constant(1, 300));
    inner.AddSource(Constant(2, 300));
    outer.AddSource(inner.OpenSource());
    outer.AddSource(Constant(3, 300));
    const LSoundSource list = outer.OpenSource();
    EXPECT_EQ(list->GetEndSample(), 900);
    const std::vector<int> once = ReadFrames(*list, 900);
    LSRCRepeat loop(list, 0, 900);
    loop.Seek(0);
    for (const int pass : {2, 3, 4})
        EXPECT_EQ(ReadFrames(loop, 900), once) << pass;
}

TEST(Concatenation, TakesTheLargestRateChannelsAndPeak) {
    LSoundSourceCat list;
    EXPECT_EQ(list.OpenSource()->sampleRate, 8000);
    EXPECT_EQ(list.OpenSource()->channels, 1);
    list.AddSource(LSoundSource()); // which has a large peak
    EXPECT_EQ(list.OpenSource()->peakMax, 524272);
    list.AddSource(Constant(3, 4, 22050));
    list.AddSource(Constant(3, 4, 44100));
    EXPECT_EQ(list.OpenSource()->peakMax, 1048544) << "what its converter may add included";
    list.AddSource(Constant(4, 4, 44100, 2, 2097151));
    const LSoundSource source = list.OpenSource();
    EXPECT_EQ(source->sampleRate, 44100);
    EXPECT_EQ(source->channels, 2);
    EXPECT_EQ(source->peakMax, 2097151);
}

TEST(Concatenation, ItemsAreConvertedAsTheyAreReached) {
    const std::vector<int> noise = ReferenceNoise(4000, 300000);
    const LSoundSource slow = ArrayOf(noise, 22050);
    LSoundSourceCat list;
    list.AddSource(slow);
    list.AddSource(Constant(7, 10, 44100, 2));
    const std::vector<int> out = ReadFrames(*list.OpenSource(), 8010);
    slow->Seek(0);
    LSoundSource alone = slow;
    LSPConvertSourceRateChannels(44100, 2, alone);
    const std::vector<int> expected = ReadFrames(*alone, 8000);
    EXPECT_TRUE(std::equal(expected.begin(), expected.end(), out.begin()));
    EXPECT_EQ(std::vector<int>(out.end() - 20, out.end()), std::vector<int>(20, 7));
}

TEST(Concatenation, AnItemThatNothingConvertsIsSilentForItsLength) {
    LSoundSourceCat list;
    list.AddSource(Constant(9, 3, 1000, 2));
    list.AddSource(Constant(8, 2, 1000, 6));
    const LSoundSource source = list.OpenSource();
    EXPECT_EQ(source->channels, 6);
    std::vector<int> expected(3 * 6, 0);
    expected.resize(5 * 6, 8);
    EXPECT_EQ(ReadFrames(*source, 5), expected);
}

TEST(Concatenation, SeeksToAnyFrame) {
    LSoundSourceCat list;
    list.AddSource(ArrayOf({1, 2, 3}, 1000));
    list.AddSilence(LSoundTime(2));
    list.AddSource(ArrayOf({4, 5}, 1000));
    const LSoundSource source = list.OpenSource();
    // 3 is the first item's end: still its own.
    ExpectSeeks(*source, {1, 2, 3, 0, 0, 4, 5}, {6, 0, 2, 3, 4, 5, 7, 8, 1});
    source->Seek(-2); // and so is its first item
    EXPECT_EQ(ReadFrames(*source, 5), (std::vector<int>{0, 0, 0, 0, 1}));
    const LSoundSource stereo = list.OpenSource(1000, 2);
    stereo->Seek(-1);
    EXPECT_EQ(ReadFrames(*stereo, 3), (std::vector<int>{0, 0, 0, 0, 1, 1}));
    const LSoundSource empty = LSoundSourceCat().OpenSource(44100, 1);
    empty->Seek(5);
    EXPECT_EQ(empty->GetEndSample(), 44105) << "the second of silence it plays once it was sought";
}

TEST(Concatenation, ListsNestedDeepAreSoughtInNoTime) {
    LSoundSource inner = Constant(3, 2);
    for (int rate = 1001; rate < 1033; ++rate) { // each has to be converted for the next one
        LSoundSourceCat list;
        list.AddSource(inner);
        list.AddSource(Constant(1, 1, rate));
        inner = list.OpenSource();
    }
    for (const int target : {0, 1, -5})
        inner->Seek(target);
    EXPECT_EQ(ReadFrames(*inner, 10).size(), 10u);
}

TEST(Concatenation, StreamsWhileAnyItemToComeDoes) {
    const LSoundSource stream = Constant(1, 3);
    Array(stream).streaming = true;
    LSoundSourceCat list;
    list.AddSource(Constant(2, 2));
    list.AddSource(stream);
    list.AddSource(Constant(4, 2));
    const LSoundSource source = list.OpenSource();
    EXPECT_TRUE(source->IsStreaming());
    ReadFrames(*source, 3);
    EXPECT_TRUE(source->IsStreaming()) << "in the stream";
    ReadFrames(*source, 3);
    EXPECT_FALSE(source->IsStreaming());
}

TEST(Concatenation, WaitsForItsItemAndTheNextAndUnloadsThoseThatAreDone) {
    const LSoundSource items[] = {Constant(1, 100), Constant(2, 100), Constant(3, 100)};
    LSoundSourceCat list;
    for (const LSoundSource& item : items) {
        list.AddSilence(LSoundTime(10));
        list.AddSource(item);
    }
    const auto counts = [&items](int ArraySource::*count) {
        return std::vector<int>{Array(items[0]).*count, Array(items[1]).*count, Array(items[2]).*count};
    };
    const LSoundSource source = list.OpenSource(2000, 1); // 20 frames of silence, 200 behind a converter
    // By the frames that are read before it waits.
    const std::tuple<int, std::vector<int>, std::vector<int>> cases[] = {
        {0, {5, 0, 0}, {0, 0, 0}}, {100, {10, 5, 0}, {0, 0, 0}}, {130, {10, 10, 0}, {1, 0, 0}}};
    for (const auto& [frames, waited, unloads] : cases) {
        ReadFrames(*source, frames);
        source->WaitForStreamingData(5);
        EXPECT_EQ(counts(&ArraySource::waited), waited) << frames;
        EXPECT_EQ(counts(&ArraySource::unloads), unloads) << frames;
    }
    source->Seek(250);
    source->Unload();
    EXPECT_EQ(counts(&ArraySource::unloads), (std::vector<int>{2, 1, 0}));
    source->Seek(5000);
    EXPECT_EQ(counts(&ArraySource::unloads), (std::vector<int>{3, 3, 1}));
}

} // namespace

#include "sound/sample_format.h"
#include "sound/sound_sink.h"
#include "sound/sound_source.h"
#include "sound/stages/concatenation.h"
#include "support/array_source.h"

#include <gtest/gtest.h>

#include <atomic>
#include <climits>
#include <cstdlib>
#include <new>

static std::atomic<int> allocations = 0;

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__) // which bring allocators of their own
void* operator new(std::size_t size) {
    ++allocations;
    return std::malloc(size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
#endif

namespace {

TEST(SoundSource, ASilenceOfAListCostsNoAllocation) {
    const LSoundSource shared; // by all empty handles, and made for the first
    LSoundSourceCat list;
    const int before = allocations;
    for (int i = 0; i < 1000; ++i)
        list.AddSilence(LSoundTime(1));
    EXPECT_LE(allocations - before, 11) << "of the list, which doubles 1, 2, 4 ... 1024";
    const LSoundSource source = list.OpenSource();
    int buffer[8000];
    const int opened = allocations;
    source->Read(buffer, 8000);
    EXPECT_EQ(allocations, opened);
}

TEST(SoundSource, EmptyHandlesShareASilenceAndSwallow) {
    const LSoundSource source;
    EXPECT_EQ(&*source, &*LSoundSource()) << "nothing is allocated for it";
    EXPECT_EQ(source->status, SoundNothing);
    EXPECT_EQ(source->sampleRate, 11025);
    EXPECT_EQ(source->GetEndSample(), 0);
    EXPECT_EQ(ReadFrames(*source, 3), (std::vector<int>{0, 0, 0}));
    const LSoundSink sink;
    EXPECT_EQ(&*sink, &*LSoundSink());
    EXPECT_EQ(sink->status, SinkUnusable);
    sink->Write(nullptr, 1);
}

TEST(SoundSource, AnImpossibleFormatIsRepairedAndMarked) {
    const ArraySource noRate({}, 0), noChannels({}, 8000, 0);
    EXPECT_EQ(noRate.sampleRate, 44100);
    EXPECT_EQ(noChannels.channels, 1);
    EXPECT_EQ(noRate.status & noChannels.status, SoundInvalidFormat);
    EXPECT_EQ(ArraySource({}, 1, 1).status, SoundUsable);
}

TEST(SoundSource, IsSharedByItsHandles) {
    LSoundSource source = ArrayOf({});
    LSoundSource& itself = source;
    source = itself;
    EXPECT_EQ(source->refCount, 1);
    const LSoundSource second = source; // NOLINT: the copy is what is tested
    EXPECT_EQ(second->refCount, 2);
    source.Close();
    EXPECT_EQ(second->refCount, 1);
    EXPECT_EQ(source->status, SoundNothing);
}

TEST(SoundTime, ConvertsToFramesAndBack) {
    constexpr int cases[][3] = {
        {1500, 44100, 66150}, {999, 44100, 44055}, {-1500, 44100, -66150},        {-1, 44100, -44},
        {0, 44100, 0},        {1, 8000, 8},        {48695773, 44100, 2147483589}, {INT_MAX, 1, 2147483}};
    for (const auto& [ms, rate, frames] : cases)
        EXPECT_EQ(LSoundTime(ms).GetSamples(rate), frames) << ms << " ms at " << rate;
    constexpr int back[][3] = {// a rate of 0 keeps the time
                               {66150, 44100, 1500},
                               {5, 0, 7},
                               {5, 1, 5000},
                               {1, 44100, 0},
                               {-66150, 44100, -1500}};
    for (const auto& [frames, rate, ms] : back) {
        LSoundTime time(7);
        time.SetSamples(frames, rate);
        EXPECT_EQ(time.GetMilliseconds(), ms) << frames << " frames at " << rate;
    }
}

template <class Format>
int Out(int sample) {
    typename Format::Stored stored;
    ConvertSamplesOut<Format>(&stored, &sample, 1);
    return stored;
}

template <class Format>
int In(typename Format::Stored stored) {
    int sample;
    ConvertSamplesIn<Format>(&sample, &stored, 1);
    return sample;
}

TEST(SampleFormat, RoundsTiesUpwardAndKeepsTheLowBits) {
    constexpr int cases[][3] = {{0, 0, 128},          {-8, 0, 128},         {-9, -1, 128},
                                {2047, 128, 128},     {2048, 128, 129},     {-2048, -128, 128},
                                {-2049, -128, 127},   {524279, 32767, 0},   {524280, -32768, 0},
                                {524272, 32767, 0},   {522239, 32640, 255}, {-524272, -32767, 0},
                                {-524288, -32768, 0}, {INT_MAX, 0, 128},    {INT_MIN, 0, 128}};
    for (const auto& [sample, bits16, bits8] : cases) {
        EXPECT_EQ(Out<LSF16>(sample), bits16) << sample;
        EXPECT_EQ(Out<LSFLE16>(sample), bits16) << sample;
        EXPECT_EQ(Out<LSFU8>(sample), bits8) << sample;
    }
    EXPECT_EQ(In<LSFU8>(0), -524288);
    EXPECT_EQ(In<LSFU8>(255), 520192);
    EXPECT_EQ(In<LSFLE16>(-32768), -524288);
    EXPECT_EQ(In<LSFLE16>(32767), 524272);
}

} // namespace

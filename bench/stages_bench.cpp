// The stages of a chain: items are samples that come out.

#include "loop_source.h"
#include "sound/level.h"
#include "sound/sample_format.h"
#include "sound/stages/convert_channels.h"
#include "sound/stages/convert_rate.h"
#include "sound/stages/peak_limit.h"

#include <benchmark/benchmark.h>

namespace {

void Pull(benchmark::State& state, const LSoundSource& source) {
    std::vector<int> block(std::size_t{source->channels} * MaxBlockFrames);
    for (auto _ : state)
        source->Read(block.data(), MaxBlockFrames);
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(block.size()));
}

LSoundSource Loop(int rate, std::uint8_t channels, int amplitude) {
    return LSoundSource::Make<LoopSource>(rate, channels, amplitude, SynthesisPeakMax);
}

void BM_ConvertRate(benchmark::State& state, int from, int to, std::uint8_t channels) {
    Pull(state, LSPConvertRate(to).OpenSource(Loop(from, channels, FullScale16)));
}
BENCHMARK_CAPTURE(BM_ConvertRate, Stereo48000To44100, 48000, 44100, std::uint8_t{2});
BENCHMARK_CAPTURE(BM_ConvertRate, Mono8000To44100, 8000, 44100, std::uint8_t{1});
BENCHMARK_CAPTURE(BM_ConvertRate, Stereo192000To22050, 192000, 22050, std::uint8_t{2});

void BM_PeakLimit(benchmark::State& state, int amplitude) {
    Pull(state, LSPPeakLimit(FullScale16).OpenSource(Loop(44100, 2, amplitude)));
}
BENCHMARK_CAPTURE(BM_PeakLimit, NothingToLimit, 100'000);
BENCHMARK_CAPTURE(BM_PeakLimit, Limiting, 1'000'000);

void BM_ConvertChannels(benchmark::State& state, std::uint8_t from, std::uint8_t to) {
    Pull(state, LSPConvChannels(to).OpenSource(Loop(44100, from, FullScale16)));
}
BENCHMARK_CAPTURE(BM_ConvertChannels, MonoToStereo, std::uint8_t{1}, std::uint8_t{2});
BENCHMARK_CAPTURE(BM_ConvertChannels, StereoToMono, std::uint8_t{2}, std::uint8_t{1});

template <class Format>
void BM_ConvertOut(benchmark::State& state) {
    const std::vector<int> samples(MaxBlockFrames, 12345);
    std::vector<typename Format::Stored> stored(MaxBlockFrames);
    for (auto _ : state) {
        ConvertSamplesOut<Format>(stored.data(), samples.data(), MaxBlockFrames);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * MaxBlockFrames);
}
BENCHMARK_TEMPLATE(BM_ConvertOut, LSFU8);
BENCHMARK_TEMPLATE(BM_ConvertOut, LSFLE16);

template <class Format>
void BM_ConvertIn(benchmark::State& state) {
    const std::vector<typename Format::Stored> stored(MaxBlockFrames, 77);
    std::vector<int> samples(MaxBlockFrames);
    for (auto _ : state) {
        ConvertSamplesIn<Format>(samples.data(), stored.data(), MaxBlockFrames);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * MaxBlockFrames);
}
BENCHMARK_TEMPLATE(BM_ConvertIn, LSFU8);
BENCHMARK_TEMPLATE(BM_ConvertIn, LSFLE16);

void BM_BufferPeak(benchmark::State& state) {
    const std::vector<int> samples(MaxBlockFrames, -5);
    for (auto _ : state)
        benchmark::DoNotOptimize(GetBufferPeak(samples.data(), MaxBlockFrames, 1));
    state.SetItemsProcessed(state.iterations() * MaxBlockFrames);
}
BENCHMARK(BM_BufferPeak);

} // namespace

// High resolution: items are frames of one component, or of noise, at 96 kHz.

#include "hires/quantizer.h"
#include "hires/tone_source.h"
#include "sound/sound_source.h"

#include <benchmark/benchmark.h>

#include <vector>

namespace {

constexpr HiresSettings Settings{.rate = 96000, .fit = true};

SonvireData MakeTone(int waveform, int tones, int flags) {
    SonvireData tone;
    tone.waveform = static_cast<std::uint8_t>(waveform);
    tone.numTones = static_cast<std::uint8_t>(tones);
    tone.SetDuration(10'000);
    tone.repeat = 1;
    tone.flags |= static_cast<std::uint16_t>(flags);
    for (int i = 0; i < tones; ++i) {
        tone.startLeftHz[i] = 997 - 60 * i;
        tone.endLeftHz[i] = 20 + 60 * i;
    }
    return tone;
}

void BM_HiresTone(benchmark::State& state, int waveform, int tones, int flags) {
    const HiresTone tone = OpenHiresTone(MakeTone(waveform, tones, flags), Settings);
    std::vector<std::int32_t> block(MaxBlockFrames);
    for (auto _ : state)
        tone.source->Read(block.data(), MaxBlockFrames);
    state.SetItemsProcessed(state.iterations() * MaxBlockFrames * tones);
}
BENCHMARK_CAPTURE(BM_HiresTone, Sine, ToneSine, 1, 0);
BENCHMARK_CAPTURE(BM_HiresTone, SixteenSines, ToneSine, 16, 0);
BENCHMARK_CAPTURE(BM_HiresTone, Square, ToneSquare, 1, 0);
BENCHMARK_CAPTURE(BM_HiresTone, SixteenSquares, ToneSquare, 16, 0);
BENCHMARK_CAPTURE(BM_HiresTone, Impulses, ToneImpulse, 1, 0);
BENCHMARK_CAPTURE(BM_HiresTone, SineSweep, ToneSine, 1, ToneFlagSweep);
BENCHMARK_CAPTURE(BM_HiresTone, LogSineSweep, ToneSine, 1, ToneFlagSweep | ToneFlagLogSweep);
BENCHMARK_CAPTURE(BM_HiresTone, LogSquareSweep, ToneSquare, 1, ToneFlagSweep | ToneFlagLogSweep);
BENCHMARK_CAPTURE(BM_HiresTone, SixteenLogSquareSweeps, ToneSquare, 16, ToneFlagSweep | ToneFlagLogSweep);
BENCHMARK_CAPTURE(BM_HiresTone, WhiteNoise, ToneWhiteNoise, 1, 0);
BENCHMARK_CAPTURE(BM_HiresTone, PinkNoise, TonePinkNoise, 1, 0);

void BM_OpenHiresTone(benchmark::State& state, int waveform, int flags) {
    const SonvireData tone = MakeTone(waveform, 16, flags);
    for (auto _ : state)
        benchmark::DoNotOptimize(OpenHiresTone(tone, Settings));
}
BENCHMARK_CAPTURE(BM_OpenHiresTone, SixteenSines, ToneSine, 0);
BENCHMARK_CAPTURE(BM_OpenHiresTone, SixteenSquares, ToneSquare, 0);
BENCHMARK_CAPTURE(BM_OpenHiresTone, SixteenSquareSweeps, ToneSquare, ToneFlagSweep | ToneFlagLogSweep);

void BM_Quantize(benchmark::State& state, int bits, bool dithers) {
    HiresQuantizer quantizer(bits, dithers, 1);
    std::vector<std::int32_t> block(MaxBlockFrames, 12345678);
    for (auto _ : state)
        quantizer.Quantize(block.data(), block.data(), MaxBlockFrames);
    state.SetItemsProcessed(state.iterations() * MaxBlockFrames);
}
BENCHMARK_CAPTURE(BM_Quantize, To24Bits, 24, false);
BENCHMARK_CAPTURE(BM_Quantize, To16BitsWithDither, 16, true);

} // namespace

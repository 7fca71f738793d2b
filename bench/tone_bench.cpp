// Synthesis: items are oscillator samples, so that items per second / 44100 is how many oscillators play at
// once.

#include "sound/sound_source.h"
#include "sound/stages/concatenation.h"
#include "sound/stages/repeat.h"
#include "tone/tone_engine.h"

#include <benchmark/benchmark.h>

#include <vector>

namespace {

void BM_Oscillators(benchmark::State& state, int waveform, int tones, int flags, std::int8_t db) {
    SonvireData tone;
    tone.waveform = static_cast<std::uint8_t>(waveform);
    tone.numTones = static_cast<std::uint8_t>(tones);
    tone.SetDuration(60'000);
    tone.flags |= static_cast<std::uint16_t>(flags);
    for (int i = 0; i < tones; ++i) {
        tone.startLeftHz[i] = 100.0 * (i + 1);
        tone.endLeftHz[i] = 1000.0 * (i + 1);
        tone.amplitudeDb[i] = db;
    }
    const LSoundSource source = OpenToneEngine(tone);
    std::vector<int> block(MaxBlockFrames);
    for (auto _ : state)
        source->Read(block.data(), MaxBlockFrames);
    state.SetItemsProcessed(state.iterations() * MaxBlockFrames * tones);
}

BENCHMARK_CAPTURE(BM_Oscillators, OneSine, ToneSine, 1, 0, std::int8_t{0});
BENCHMARK_CAPTURE(BM_Oscillators, SixteenSines, ToneSine, 16, 0, std::int8_t{0});
BENCHMARK_CAPTURE(BM_Oscillators, SixteenAtALevel, ToneSine, 16, ToneFlagVariableAmplitude, std::int8_t{-6});
BENCHMARK_CAPTURE(BM_Oscillators, SixteenSweeping, ToneSine, 16, ToneFlagSweep, std::int8_t{0});
BENCHMARK_CAPTURE(BM_Oscillators, SixteenSweepingLog, ToneSine, 16, ToneFlagSweep | ToneFlagLogSweep,
                  std::int8_t{0});
BENCHMARK_CAPTURE(BM_Oscillators, Impulses, ToneImpulse, 16, 0, std::int8_t{0});

void BM_Noise(benchmark::State& state, int waveform) {
    SonvireData tone;
    tone.waveform = static_cast<std::uint8_t>(waveform);
    const LSoundSource source = OpenToneEngine(tone);
    std::vector<int> block(MaxBlockFrames);
    for (auto _ : state)
        source->Read(block.data(), MaxBlockFrames);
    state.SetItemsProcessed(state.iterations() * MaxBlockFrames);
}
BENCHMARK_CAPTURE(BM_Noise, White, ToneWhiteNoise);
BENCHMARK_CAPTURE(BM_Noise, Pink, TonePinkNoise);

/// What the stages that loop and join cost: to be held against OneSine.
void BM_Wrapped(benchmark::State& state, bool looped, bool joined) {
    SonvireData tone;
    tone.SetDuration(1'000'000);
    LSoundSource source = OpenToneEngine(tone);
    if (looped)
        source = LSPRepeat(LSoundTime(0), LSoundTime(1'000'000)).OpenSource(source);
    if (joined) {
        LSoundSourceCat list;
        list.AddSource(source);
        source = list.OpenSource();
    }
    std::vector<int> block(MaxBlockFrames);
    for (auto _ : state) {
        if (source->GetPositionSample() > 40'000'000)
            source->Seek(0);
        source->Read(block.data(), MaxBlockFrames);
    }
    state.SetItemsProcessed(state.iterations() * MaxBlockFrames);
}
BENCHMARK_CAPTURE(BM_Wrapped, Bare, false, false);
BENCHMARK_CAPTURE(BM_Wrapped, Repeat, true, false);
BENCHMARK_CAPTURE(BM_Wrapped, Concatenation, false, true);

} // namespace

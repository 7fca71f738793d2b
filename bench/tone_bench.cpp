// Synthesis: items are oscillator samples, so that items per second / 44100 is how many oscillators play at
// once.

#include "sound/sound_source.h"
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

} // namespace

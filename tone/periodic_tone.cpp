#include "tone/periodic_tone.h"

#include "tone/waveforms.h"

#include <algorithm>

namespace {

constexpr int SweepFrames = 32;
/// What one oscillator produces before it is the next one's turn; short enough to stay in the fastest cache.
constexpr int RunFrames = 1024;

/// Silence for an impulse, which is no table, and for an unknown waveform.
const ToneWaveTable& FindTable(const SonvireData& tone) {
    const ToneWaveformRow* waveform = FindWaveform(tone.waveform);
    return waveform && waveform->getTable ? waveform->getTable() : GetSilentTable();
}

} // namespace

SSTone::SSTone(const SonvireData& tone)
    : LSoundSourceBase(ToneSampleRate, tone.HasFlag(ToneFlagStereo) ? 2 : 1, SynthesisPeakMax),
      table(FindTable(tone)),
      endSample(tone.GetDurationFrames()),
      logSweep(tone.HasFlag(ToneFlagLogSweep)),
      toneCount(tone.GetToneCount()),
      stereo(tone.HasFlag(ToneFlagStereo)) {
    if (tone.HasFlag(ToneFlagSweep) && endSample > 0)
        sweepCountdown = SweepFrames;
    InitOscillators(tone);
}

void SSTone::InitOscillators(const SonvireData& tone) {
    const bool impulse = tone.waveform == ToneImpulse;
    for (std::size_t i = 0; i < toneCount; ++i) {
        const std::int8_t db = tone.HasFlag(ToneFlagVariableAmplitude) ? tone.amplitudeDb[i] : std::int8_t{0};
        left[i].Init(tone.startLeftHz[i], tone.endLeftHz[i], db, impulse, logSweep);
        right[i].Init(tone.startRightHz[i], tone.endRightHz[i], db, impulse, logSweep);
    }
}

template <class Do>
void SSTone::ForEachOscillator(Do doThis) {
    for (std::size_t i = 0; i < toneCount; ++i) {
        doThis(left[i], 0, i == 0);
        if (stereo)
            doThis(right[i], 1, i == 0);
    }
}

void SSTone::Read(int* out, int frames) {
    if (toneCount == 0)
        ClearAudioBuffer(out, frames, channels);
    for (int done = 0; done < frames;) {
        const int run = std::min(frames - done, sweepCountdown > 0 ? sweepCountdown : RunFrames);
        SumOscillators(out + std::ptrdiff_t{done} * channels, run);
        done += run;
        CountDownSweep(run, done - 1);
    }
    if (endSample > 0)
        position = WrapAdd(position, frames);
}

void SSTone::SumOscillators(int* out, int frames) {
    ForEachOscillator([&](SSTonePole& oscillator, int channel, bool first) {
        oscillator.Produce(out + channel, channels, frames, table, !first);
    });
}

void SSTone::CountDownSweep(int frames, int lastFrame) {
    if (sweepCountdown < 0)
        return;
    sweepCountdown -= frames;
    if (sweepCountdown > 0)
        return;
    const double fraction = static_cast<double>(WrapAdd(position, lastFrame)) / endSample;
    ForEachOscillator([&](SSTonePole& oscillator, int, bool) { oscillator.Sweep(fraction, logSweep); });
    sweepCountdown = SweepFrames;
}

int SSTone::GetEndSample() const {
    return endSample > 0 ? endSample : EndlessToneFrames;
}

void SSTone::Seek(int sample) {
    position = sample;
    for (std::size_t i = 0; i < toneCount; ++i)
        left[i].Restart();
}

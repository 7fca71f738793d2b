#include "tone/periodic_tone.h"

#include "tone/waveforms.h"

#include <algorithm>

namespace {

constexpr int SweepFrames = 32;

/// Null for impulses, silence for an unknown waveform.
const ToneWaveTable* FindTable(const SonvireData& tone) {
    const ToneWaveformRow* waveform = FindWaveform(tone.waveform);
    if (!waveform)
        return &GetSilentTable();
    return waveform->getTable ? &waveform->getTable() : nullptr;
}

} // namespace

SSTone::SSTone(const SonvireData& tone)
    : LSoundSourceBase(ToneSampleRate, tone.HasFlag(ToneFlagStereo) ? 2 : 1, SynthesisPeakMax),
      table(FindTable(tone)),
      endSample(tone.GetDurationFrames()),
      left(tone.GetToneCount()),
      right(channels == 2 ? left.size() : 0),
      logSweep(tone.HasFlag(ToneFlagLogSweep)) {
    if (tone.HasFlag(ToneFlagSweep) && endSample > 0)
        sweepCountdown = SweepFrames;
    InitOscillators(tone);
}

void SSTone::InitOscillators(const SonvireData& tone) {
    const auto getLevel = [&](std::size_t i) {
        return tone.HasFlag(ToneFlagVariableAmplitude) ? tone.amplitudeDb[i] : std::int8_t{0};
    };
    for (std::size_t i = 0; i < left.size(); ++i)
        left[i].Init(tone.startLeftHz[i], tone.endLeftHz[i], getLevel(i), logSweep);
    for (std::size_t i = 0; i < right.size(); ++i)
        right[i].Init(tone.startRightHz[i], tone.endRightHz[i], getLevel(i), logSweep);
    for (std::vector<SSTonePole>* each : {&left, &right})
        std::partition(each->begin(), each->end(),
                       [](const SSTonePole& oscillator) { return oscillator.IsAtUnity(); });
}

void SSTone::Read(int* out, int frames) {
    for (int done = 0; done < frames;) {
        const int run = sweepCountdown > 0 ? std::min(frames - done, sweepCountdown) : frames - done;
        for (int c = 0; c < channels; ++c)
            SumOscillators(GetOscillators(c), table, out + c, channels, run);
        out += std::ptrdiff_t{run} * channels;
        done += run;
        CountDownSweep(run, done - 1);
    }
    if (endSample > 0)
        position = WrapAdd(position, frames);
}

void SSTone::CountDownSweep(int frames, int lastFrame) {
    if (sweepCountdown < 0)
        return;
    sweepCountdown -= frames;
    if (sweepCountdown > 0)
        return;
    const double fraction = static_cast<double>(WrapAdd(position, lastFrame)) / endSample;
    for (int c = 0; c < channels; ++c)
        SweepOscillators(GetOscillators(c), fraction, logSweep);
    sweepCountdown = SweepFrames;
}

int SSTone::GetEndSample() const {
    return endSample > 0 ? endSample : EndlessToneFrames;
}

void SSTone::Seek(int sample) {
    position = sample;
    for (SSTonePole& oscillator : GetOscillators(0))
        oscillator.Restart();
}

#pragma once

#include "sound/sound_source.h"
#include "tone/tone_data.h"
#include "tone/tone_oscillator.h"

#include <vector>

/// Synthesises the periodic waveforms: up to 16 components, mono or stereo, constant or sweeping, at 44100
/// Hz. The components are summed without saturation, so `peakMax` exceeds full scale. An unknown waveform is
/// silent.
class SSTone : public LSoundSourceBase {
public:
    explicit SSTone(const SonvireData& tone);

    /// Does not stop at the end. A sweep moves its frequencies on every 32nd frame.
    void Read(int* out, int frames) override;
    /// Stays 0 for an endless tone.
    int GetPositionSample() const override { return position; }
    /// One minute for an endless tone, and for one with a duration of 0 ms.
    int GetEndSample() const override;
    /// Restarts the left oscillators only.
    /// Kept quirk: the right ones go on as they are, and so does the count to the next step of a sweep.
    void Seek(int sample) override;

private:
    void InitOscillators(const SonvireData& tone);
    void CountDownSweep(int frames, int lastFrame);
    /// Those that play on a channel.
    std::vector<SSTonePole>& GetOscillators(int channel) { return channel == 0 ? left : right; }

    const ToneWaveTable* table; ///< null for impulses
    int position = 0;
    int endSample;                       ///< 0 = endless
    std::vector<SSTonePole> left, right; ///< up to 16; the right ones where it is stereo
    int sweepCountdown = -1;             ///< samples until the next sweep update, 1..32; -1 = no sweep
    bool logSweep;
};

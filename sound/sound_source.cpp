#include "sound/sound_source.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <thread>

LSoundSourceBase::LSoundSourceBase(int rate, std::uint8_t channelCount, int peak)
    : sampleRate(rate),
      peakMax(peak),
      channels(channelCount) {
    if (sampleRate < 1) {
        sampleRate = 44100;
        status = SoundInvalidFormat;
    }
    if (channels == 0) {
        channels = 1;
        status = SoundInvalidFormat;
    }
}

void LSoundSourceBase::Seek(int /*frame*/) {}

bool LSoundSourceBase::IsStreaming() const {
    return false;
}

void LSoundSourceBase::WaitForStreamingData(int milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

void LSoundSourceBase::Unload() {}

LSoundSourceError::LSoundSourceError(std::uint8_t code) : LSoundSourceBase(11025, 1, SynthesisPeakMax) {
    status = code;
}

void LSoundSourceError::Read(int* buffer, int frames) {
    ClearAudioBuffer(buffer, frames, channels);
}

LSoundTime LSoundSource::GetEnd() const {
    LSoundTime end;
    end.SetSamples((*this)->GetEndSample(), (*this)->sampleRate);
    return end;
}

void ClearAudioBuffer(int* buffer, int frames, std::uint8_t channels) {
    std::fill_n(buffer, std::ptrdiff_t{frames} * channels, 0);
}

#include "sound/sound_sink.h"

LSoundSinkBase::LSoundSinkBase(int rate, std::uint8_t channelCount)
    : sampleRate(rate),
      channels(channelCount) {
    if (channels == 0) {
        channels = 1;
        status = SinkUnusable;
    }
}

void LSoundSinkBase::Seek(int /*frame*/) {}

LSoundSinkError::LSoundSinkError() : LSoundSinkBase(44100, 1) {
    status |= SinkUnusable;
}

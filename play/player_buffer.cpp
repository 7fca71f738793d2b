#include "play/player_buffer.h"

void LSoundPlayerBuffer::Measure(const int* internal, int frameCount, std::uint8_t channels) {
    levels = LDBMC(channels);
    heard.channels = levels.GetChannels();
    for (std::uint8_t c = 0; c < heard.channels; ++c) {
        levels[c] = GetBufferRMSDBChan(c, internal, frameCount, channels);
        heard.peaks[c] = GetBufferPeakChan(c, internal, frameCount, channels);
    }
}

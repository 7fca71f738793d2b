#include "play/player_buffer.h"

#include "play/sound_channel.h"

void LSoundPlayerBuffer::Write(LSoundChannel& channel, int frameCount, int sourceEnd) {
    frames = frameCount;
    endPosition = sourceEnd;
    free = false;
    channel.Queue(*this);
}

#include "sound/sound_process.h"

LSoundProcessBase::LSoundProcessBase(const LSoundSource& wrapped)
    : LSoundSourceBase(wrapped->sampleRate, wrapped->channels, wrapped->peakMax),
      input(wrapped) {
    if (input->status != SoundUsable)
        status = SoundInputUnusable;
}

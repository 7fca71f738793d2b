#include "tone/tone_engine.h"

#include "tone/periodic_tone.h"

LSoundSource OpenToneEngine(const SonvireData& tone) {
    return LSoundSource::Make<SSTone>(tone);
}

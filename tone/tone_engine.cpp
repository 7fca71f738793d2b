#include "tone/tone_engine.h"

#include "sound/repeat.h"
#include "tone/periodic_tone.h"
#include "tone/pink_noise.h"
#include "tone/tone_list_source.h"
#include "tone/white_noise.h"

namespace {

LSoundSource OpenOnce(const SonvireData& tone, std::uint32_t durationMs) {
    switch (tone.waveform) {
    case ToneWhiteNoise:
        return LSoundSource::Make<SSWhiteNoise>(durationMs);
    case TonePinkNoise:
        return LSoundSource::Make<SSPinkNoise>(durationMs);
    case ToneFromList:
        return OpenToneList(tone.GetListPath());
    default:
        return LSoundSource::Make<SSTone>(tone);
    }
}

} // namespace

LSoundSource OpenToneEngine(const SonvireData& tone) {
    const std::uint32_t durationMs = tone.HasFlag(ToneFlagDuration) ? tone.durationMs : 0;
    const LSoundSource once = OpenOnce(tone, durationMs);
    if (tone.repeat == 0)
        return once;
    return LSPRepeat(LSoundTime(0), LSoundTime(static_cast<int>(durationMs))).OpenSource(once);
}

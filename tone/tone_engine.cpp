#include "tone/tone_engine.h"

#include "sound/stages/repeat.h"
#include "tone/periodic_tone.h"
#include "tone/pink_noise.h"
#include "tone/tone_list_source.h"
#include "tone/white_noise.h"

namespace {

std::uint32_t GetDurationMs(const SonvireData& tone) {
    return tone.HasFlag(ToneFlagDuration) ? tone.durationMs : 0;
}

LSoundSource OpenOnce(const SonvireData& tone, ToneListReport* report) {
    switch (tone.waveform) {
    case ToneWhiteNoise:
        return LSoundSource::Make<SSWhiteNoise>(GetDurationMs(tone));
    case TonePinkNoise:
        return LSoundSource::Make<SSPinkNoise>(GetDurationMs(tone));
    case ToneFromList:
        return OpenToneList(tone.GetListPath(), report);
    default:
        return LSoundSource::Make<SSTone>(tone);
    }
}

} // namespace

LSoundSource OpenToneEngine(const SonvireData& tone, ToneListReport* report) {
    return LoopTone(tone, OpenOnce(tone, report));
}

LSoundSource LoopTone(const SonvireData& tone, const LSoundSource& once) {
    if (tone.repeat == 0)
        return once;
    const LSoundTime end(static_cast<int>(GetDurationMs(tone)));
    return LSPRepeat(LSoundTime(0), end).OpenSource(once);
}

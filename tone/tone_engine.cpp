#include "tone/tone_engine.h"

#include "sound/stages/repeat.h"
#include "tone/periodic_tone.h"
#include "tone/waveforms.h"

namespace {

LSoundSource OpenOnce(const SonvireData& tone, ToneListReport* report) {
    const ToneWaveformRow* waveform = FindWaveform(tone.waveform);
    return waveform && waveform->open ? waveform->open(tone, report) : LSoundSource::Make<SSTone>(tone);
}

} // namespace

LSoundSource OpenToneEngine(const SonvireData& tone, ToneListReport* report) {
    return LoopTone(tone, OpenOnce(tone, report));
}

LSoundSource LoopTone(const SonvireData& tone, const LSoundSource& once) {
    if (tone.repeat == 0)
        return once;
    const LSoundTime end(static_cast<int>(tone.HasFlag(ToneFlagDuration) ? tone.durationMs : 0));
    return LSPRepeat(LSoundTime(0), end).OpenSource(once);
}

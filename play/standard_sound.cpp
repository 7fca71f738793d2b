#include "play/standard_sound.h"

#include "play/sound_channel.h"
#include "sound/fixed_point.h"
#include "sound/sample_format.h"
#include "sound/stages/convert_rate.h"

#include <algorithm>

LStandardSound::LStandardSound(const LSoundSource& toPlay, int lowestRate)
    : original(toPlay),
      source(LSPPeakLimit(FullScale16, limiter)
                 .OpenSource(
                     LSPConvertRate(std::clamp(toPlay->sampleRate, lowestRate, LSoundChannel::HighestRate))
                         .OpenSource(toPlay))) {}

std::optional<LPlayFormat> LStandardSound::Open(const std::function<int()>& /*findRate*/) {
    const LPlayFormat format{.rate = source->sampleRate, .channels = source->channels};
    work.resize(static_cast<std::size_t>(format.GetBlockFrames()) * format.channels);
    return format;
}

int LStandardSound::GetAhead(int most) const {
    return std::clamp(WrapSubtract(source->GetEndSample(), source->GetPositionSample()), 0, most);
}

void LStandardSound::Read(LSoundPlayerBuffer& buffer, int frames) {
    const int start = source->GetPositionSample();
    source->Read(work.data(), frames);
    ConvertSamplesOut<LSF16>(buffer.GetSamples<std::int16_t>(), work.data(), frames * source->channels);
    buffer.Measure(work.data(), frames, source->channels);
    buffer.heard.limiterGain = limiter->TakeLeastGain();
    buffer.endTime.SetSamples(ToOriginal(WrapAdd(start, frames)), original->sampleRate);
}

/// By the ends, since a conversion of rates comes close to its ratio only.
int LStandardSound::ToOriginal(int position) const {
    if (source->sampleRate == original->sampleRate)
        return position;
    const std::int64_t end = std::max(1, source->GetEndSample());
    return static_cast<int>(position * std::int64_t{original->GetEndSample()} / end);
}

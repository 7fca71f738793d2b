#include "jobs/rendered_format.h"

#include "sound/files/wave_file.h"
#include "sound/render_job.h"
#include "sound/sample_format.h"
#include "sound/stages/convert_rate.h"

RenderedFormat::RenderedFormat(const RenderedFormatRequest& request, const LSoundSource& source)
    : rate(request.rate.value_or(source->sampleRate)),
      channels(request.channels.value_or(source->channels)),
      bits(request.bits) {}

int RenderedFormat::GetPeakLimit() const {
    return bits == 8 ? LSFU8::peak : LSF16::peak;
}

LFailure RenderedFormat::Check(const SoundInput& input) const {
    if (input.failure)
        return input.failure;
    const LSoundSource& source = input.source;
    if (source->status != SoundUsable)
        return "gives no sound";
    const bool changed = rate != source->sampleRate || channels != source->channels;
    if (changed && source->channels > 2)
        return "has " + std::to_string(source->channels) + " channels; only mono and stereo can be converted";
    return LWaveFile::CheckLength(input.frames * rate / source->sampleRate, channels, bits);
}

LSoundSource RenderedFormat::Open(const LSoundSource& source,
                                  const std::shared_ptr<LLimiterNews>& told) const {
    if (source->channels != 2 || channels != 1)
        return OpenSourceForSink(source, rate, channels, GetPeakLimit(), told);
    LSoundSource mixed = source;
    LSPConvertSourceRateChannels(rate, channels, mixed);
    // A sum of two channels may be too loud, so it is always limited.
    return LSoundSource::Make<LSRCPeakLimit>(mixed, GetPeakLimit(), told);
}

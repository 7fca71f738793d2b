#include "jobs/render_file.h"

#include "jobs/output_file.h"
#include "sound/files/wave_file.h"
#include "sound/sample_format.h"
#include "sys/path.h"

#include <algorithm>

namespace {

/// What a WAVE file is written as.
struct OutputFormat {
    int rate; ///< frames per second
    std::uint8_t channels;
    int bits; ///< 8 or 16
};

int GetPeakLimit(const OutputFormat& format) {
    return format.bits == 8 ? LSFU8::peak : LSF16::peak;
}

OutputFormat ChooseFormat(const RenderTarget& target, const LSoundSource& source) {
    return {.rate = target.rate.value_or(source->sampleRate),
            .channels = target.channels.value_or(source->channels),
            .bits = target.bits};
}

/// Whether the input can become a file of this format.
LFailure CheckInput(const SoundInput& input, const OutputFormat& format) {
    if (input.failure)
        return input.failure;
    const LSoundSource& source = input.source;
    if (source->status != SoundUsable)
        return "gives no sound";
    const bool changed = format.rate != source->sampleRate || format.channels != source->channels;
    if (changed && source->channels > 2)
        return "has " + std::to_string(source->channels) + " channels; only mono and stereo can be converted";
    return LWaveFile::CheckLength(input.frames * format.rate / source->sampleRate, format.channels,
                                  format.bits);
}

/// Whether the output may be written for this input.
LFailure CheckOutput(const std::string& output, const SoundInput& input) {
    if (LFailure read = OutputFile::CheckUnread(output, input.files))
        return read;
    const bool fits = HasExtension(output, ".wav") || OutputFile::IsNoFile(output);
    return fits ? LFailure() : "is no name for a WAVE file, which ends in .wav";
}

/// A sum of two channels may be too loud, so it is always limited.
LSoundSource MixDown(const LSoundSource& source, const OutputFormat& format) {
    LSoundSource mixed = source;
    LSPConvertSourceRateChannels(format.rate, format.channels, mixed);
    return LSoundSource::Make<LSRCPeakLimit>(mixed, GetPeakLimit(format));
}

/// The source as the job takes it: only what is mixed down is not left to the job.
LSoundSource Prepare(const LSoundSource& source, const OutputFormat& format) {
    return source->channels == 2 && format.channels == 1 ? MixDown(source, format) : source;
}

int CountFrames(const LSoundSource& source, const OutputFormat& format) {
    const LSoundSource converted =
        OpenSourceForSink(source, format.rate, format.channels, GetPeakLimit(format));
    return std::max(0, WrapSubtract(converted->GetEndSample(), converted->GetPositionSample()));
}

/// Why nothing is left of what is converted: a count that has wrapped around, or a rate that is too low.
const char* ExplainNoFrames(const SoundInput& input, const OutputFormat& format) {
    const double expected = input.frames * format.rate / input.source->sampleRate;
    return expected > 1000 ? "is too long to be converted" : "is too short for a frame at that rate";
}

RenderOutcome Render(const LSoundSource& source, LSourceNews& news, const std::string& path,
                     const OutputFormat& format, int frames, const RenderUser& user) {
    OutputFile output(path);
    const LSoundSink sink = LWaveFile::OpenSinkStream(output.Open(), format.rate, format.channels,
                                                      static_cast<std::uint16_t>(format.bits), frames);
    if (output.GetFailure())
        return {.failure = output.GetFailure(), .ofTheOutput = true};
    LPRSourceToSink job("Saving Wave File", source, sink);
    const LProcessResult result = user.run(job);
    sink->Finish();
    const bool fellShort = (sink->status & SinkFellShort) != 0;
    return FinishRendering(output, result, fellShort ? sink->failure : LFailure(), news);
}

} // namespace

RenderOutcome RenderToFile(const SoundInput& input, const RenderTarget& target, const RenderUser& user) {
    const OutputFormat format = ChooseFormat(target, input.source);
    if (LFailure refused = CheckInput(input, format))
        return {.failure = std::move(refused)};
    if (LFailure refused = CheckOutput(target.path, input))
        return {.failure = std::move(refused), .ofTheOutput = true};
    if (!input.warnings.empty() && !user.confirm(input.warnings))
        return {};
    const LSoundSource source = Prepare(input.source, format);
    const int frames = CountFrames(source, format);
    if (frames == 0 && input.source->GetEndSample() > input.source->GetPositionSample())
        return {.failure = ExplainNoFrames(input, format)};
    return Render(source, *input.news, target.path, format, frames, user);
}

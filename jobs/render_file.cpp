#include "jobs/render_file.h"

#include "jobs/output_file.h"
#include "sound/files/wave_file.h"
#include "sound/peak_sink.h"
#include "sound/sample_format.h"
#include "sys/path.h"

#include <algorithm>

namespace {

/// Whether the output may be written for this input.
LFailure CheckOutput(const std::string& output, const SoundInput& input) {
    if (LFailure read = OutputFile::CheckUnread(output, input.files))
        return read;
    const bool fits = HasExtension(output, ".wav") || OutputFile::IsNoFile(output);
    return fits ? LFailure() : "is no name for a WAVE file, which ends in .wav";
}

int CountFrames(const LSoundSource& source) {
    return std::max(0, WrapSubtract(source->GetEndSample(), source->GetPositionSample()));
}

/// Why nothing is left of what is converted: a count that has wrapped around, or a rate that is too low.
const char* ExplainNoFrames(const SoundInput& input, const RenderedFormat& format) {
    const double expected = input.frames * format.rate / input.source->sampleRate;
    return expected > 1000 ? "is too long to be converted" : "is too short for a frame at that rate";
}

/// What is stored for a magnitude, full scale being 1.
double StorePeak(int peak, const RenderedFormat& format) {
    const int held = std::min(peak, format.GetPeakLimit());
    return format.bits == 8 ? (LSFU8::Out(held) - 128) * 0x1p-7 : LSF16::Out(held) * 0x1p-15;
}

RenderOutcome Render(const LSoundSource& source, LSourceNews& news, const std::string& path,
                     const RenderedFormat& format, const RenderUser& user) {
    OutputFile output(path);
    const LSoundSink sink =
        LWaveFile::OpenSinkStream(output.Open(), format.rate, format.channels,
                                  static_cast<std::uint16_t>(format.bits), CountFrames(source));
    if (output.GetFailure())
        return {.failure = output.GetFailure(), .ofTheOutput = true};
    SinkMeasure measure{.enough = static_cast<int>(RenderedLevel::Quiet * FullScale16) + 1};
    LPRSourceToSink job("Saving Wave File", source, LSoundSink::Make<LPeakSink>(sink, measure));
    const LProcessResult result = user.run(job);
    sink->Finish();
    const bool fellShort = (sink->status & SinkFellShort) != 0;
    RenderOutcome outcome = FinishRendering(output, result, fellShort ? sink->failure : LFailure(), news);
    outcome.level.peak = StorePeak(measure.peak, format);
    return outcome;
}

} // namespace

RenderOutcome RenderToFile(const SoundInput& input, const RenderTarget& target, const RenderUser& user) {
    const RenderedFormat format(target.format, input.source);
    if (LFailure refused = format.Check(input))
        return {.failure = std::move(refused)};
    if (LFailure refused = CheckOutput(target.path, input))
        return {.failure = std::move(refused), .ofTheOutput = true};
    if (!input.warnings.empty() && !user.confirm(input.warnings))
        return {};
    const auto limiter = std::make_shared<LLimiterNews>();
    const LSoundSource source = format.Open(input.source, limiter);
    if (CountFrames(source) == 0 && CountFrames(input.source) > 0)
        return {.failure = ExplainNoFrames(input, format)};
    RenderOutcome outcome = Render(source, *input.news, target.path, format, user);
    outcome.level.limitedDb = LLimiterNews::ToDecibels(limiter->TakeLeastGain());
    return outcome;
}

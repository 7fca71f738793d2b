#include "jobs/render_hires.h"

#include "hires/peak_sink.h"
#include "hires/sample_bits.h"
#include "jobs/hires_files.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace {

constexpr double FullScale = 0x1p31;

const HiresFileKind* ChooseKind(const HiresTarget& target) {
    return target.isRaw ? HiresFileKind::Find(".raw") : FindOutputKind(target.path);
}

HiresFileFormat ChooseFormat(const HiresSource& source, const HiresTarget& target) {
    return {.rate = source.rate,
            .channels = source.channels,
            .samples = target.samples,
            .frames = source.GetLength(),
            .dither = target.dither,
            .seed = target.seed};
}

LFailure CheckOutput(const HiresTarget& target, const HiresInput& input) {
    if (LFailure read = OutputFile::CheckUnread(target.path, input.files))
        return read;
    const HiresFileKind* kind = ChooseKind(target);
    if (!kind)
        return "is no name for a sound file, which ends in " + HiresFileKind::ListExtensions();
    return kind->Check(ChooseFormat(*input.source, target));
}

/// "Sine 1 Frequency 997.00Hz; Sine Duration 1000ms; 96000 Hz, peak up to -0.1 dBFS"
std::string DescribeSound(const HiresInput& input) {
    char facts[64];
    std::snprintf(facts, sizeof facts, "; %d Hz, peak up to %.4g dBFS", input.source->rate, input.peak);
    return input.description + (input.isFile ? "" : facts);
}

/// Of a file that the user was warned of at the start.
bool IsTold(const LFileWarning& warning, const HiresInput& input) {
    return std::any_of(input.warnings.begin(), input.warnings.end(),
                       [&](const LFileWarning& each) { return each.file == warning.file; });
}

/// As it is stored, but for the dither.
double RoundPeak(double peak, const HiresTarget& target) {
    if (target.samples == HiresSamples::Float || (target.dither && target.samples == HiresSamples::Int16))
        return peak;
    const double scale = std::ldexp(1, GetBits(target.samples) - 1);
    return std::round(peak * scale) / scale;
}

RenderOutcome Render(HiresInput& input, const HiresTarget& target, const HiresRenderUser& user) {
    OutputFile output(target.path);
    LReadWriteFile opened = output.Open();
    if (output.GetFailure())
        return {.failure = output.GetFailure(), .ofTheOutput = true};
    const SoundFileOutput file =
        OpenSoundFileToWrite(std::move(opened), *ChooseKind(target), ChooseFormat(*input.source, target),
                             {target.program, DescribeSound(input)});
    if (!file.sink)
        return {.failure = file.failure, .ofTheOutput = true};
    constexpr auto Quiet = static_cast<std::int64_t>(RenderedLevel::Quiet * FullScale);
    HiresPeakSink sink(*file.sink, input.source->channels, Quiet);
    HiresRenderJob job{.source = *input.source, .sink = sink};
    const LProcessResult result = user.run(job);
    LFailure unfinished = sink.Finish();
    RenderOutcome outcome =
        FinishRendering(output, result, job.failure ? job.failure : unfinished, *input.news);
    outcome.level.isDithered = target.dither && target.samples == HiresSamples::Int16;
    outcome.level.peak = RoundPeak(static_cast<double>(sink.GetPeak()) / FullScale, target);
    return outcome;
}

} // namespace

const HiresFileKind* FindOutputKind(const std::string& path) {
    const HiresFileKind* kind = HiresFileKind::Find(path);
    return kind || !OutputFile::IsNoFile(path) ? kind : HiresFileKind::Find(".wav");
}

RenderOutcome RenderHiresToFile(HiresInput& input, const HiresTarget& target, const HiresRenderUser& user) {
    if (input.failure)
        return {.failure = input.failure};
    if (input.source->GetLength() == HiresSource::Endless)
        return {.failure = "has no end"};
    if (LFailure refused = CheckOutput(target, input))
        return {.failure = std::move(refused), .ofTheOutput = true};
    if (!input.warnings.empty() && !user.confirm(input.warnings))
        return {};
    RenderOutcome outcome = Render(input, target, user);
    std::erase_if(outcome.warnings, [&](const LFileWarning& each) { return IsTold(each, input); });
    return outcome;
}

#include "cli/render_jobs.h"

#include "cli/interrupt.h"
#include "cli/progress_line.h"
#include "cli/refusal.h"
#include "jobs/render_file.h"
#include "jobs/render_hires.h"

namespace {

std::string GetInputName(const RenderOptions& options) {
    return options.input.empty() ? "the tone" : options.input;
}

HiresSamples GetSamples(const std::string& bits) {
    return bits == "16"      ? HiresSamples::Int16
           : bits == "32"    ? HiresSamples::Int32
           : bits == "float" ? HiresSamples::Float
                             : HiresSamples::Int24;
}

/// Runs the job with its progress on the terminal.
template <class Job>
LProcessResult RunJob(Job& job, double seconds, bool quiet) {
    ProgressLine progress(quiet, seconds);
    const LProcessResult result = Process(progress, job);
    progress.Finish(result == LProcessResult::Completed);
    return result;
}

/// False where what is told is reason enough to fail.
bool Confirm(const std::vector<LFileWarning>& warnings, bool strict) {
    for (const LFileWarning& warning : warnings) {
        if (strict) {
            Refuse(warning.file, warning.reason);
            return false;
        }
        Warn(warning.file, warning.reason);
    }
    return true;
}

/// What may help where the input can't be used.
std::string Hint(const RenderOptions& options, const InputFacts& input) {
    if (input.endless && !input.isList)
        return " (--duration gives it one)";
    return input.failure && !options.high.IsHigh() ? HintAtHighQuality(options.input) : "";
}

void TellLevel(const RenderOptions& options, const RenderOutcome& outcome) {
    const std::string told = outcome.level.Describe();
    if (outcome.result == LProcessResult::Completed && !told.empty())
        Warn(GetInputName(options), told);
}

int TellOutcome(const RenderOptions& options, const RenderOutcome& outcome, const InputFacts& input) {
    if (!outcome.failure) {
        HintAtShortDuration(options.tone);
        for (const LFileWarning& warning : outcome.warnings)
            Warn(warning.file, warning.reason);
        TellLevel(options, outcome);
        return static_cast<int>(outcome.result);
    }
    const std::string& output = options.output.path;
    if (outcome.ofTheOutput)
        return Refuse(OutputFile::IsStandardOutput(output) ? "standard output" : output,
                      outcome.failure.GetReason());
    return Refuse(GetInputName(options), outcome.failure.GetReason() + Hint(options, input));
}

/// Opens what the options name or describe by one of both functions, and renders it.
template <class OpenFile, class OpenTone, class Render>
int OpenAndRender(const RenderOptions& options, OpenFile openFile, OpenTone openTone, Render render) {
    DescribedTone described;
    if (options.input.empty())
        described = MakeTone(options.tone);
    if (!described.problem.empty())
        return Misuse(described.problem);
    auto input = options.input.empty() ? openTone(described.tone) : openFile(options.input);
    CatchInterrupts(); // before there is a file that could be left
    const auto confirm = [&](const auto& warnings) { return Confirm(warnings, options.strict); };
    return TellOutcome(options, render(input, confirm), input);
}

} // namespace

int RenderStandard(const RenderOptions& options) {
    RenderTarget target{.path = options.output.path,
                        .format = {.rate = options.rate, .bits = options.bits == "8" ? 8 : 16}};
    if (options.channels)
        target.format.channels = static_cast<std::uint8_t>(*options.channels);
    const auto run = [&](LPRSourceToSink& job) {
        return RunJob(job, job.source.GetEnd().GetMilliseconds() / 1000.0, options.quiet);
    };
    return OpenAndRender(
        options,
        [&](const std::string& path) {
            return OpenSoundInput(path, options.tone.durationMs, SoundLength::Finite);
        },
        [&](const SonvireData& tone) { return OpenToneInput(tone, SoundLength::Finite); },
        [&](const SoundInput& input, const auto& confirm) {
            return RenderToFile(input, target, {.confirm = confirm, .run = run});
        });
}

int RenderHigh(const RenderOptions& options) {
    HiresRequest request{.settings = options.high.MakeSettings(0, options.seed),
                         .rate = options.rate,
                         .channels = options.channels,
                         .durationMs = options.tone.durationMs};
    const HiresTarget target{.path = options.output.path,
                             .samples = GetSamples(options.bits),
                             .dither = options.dither != "none",
                             .isRaw = options.isRaw,
                             .seed = request.settings.seed,
                             .program = "Sonvire " SONVIRE_VERSION};
    const auto run = [&](HiresRenderJob& job) {
        const double frames = static_cast<double>(job.source.GetLength());
        return RunJob(job, frames / job.source.rate, options.quiet);
    };
    return OpenAndRender(
        options, [&](const std::string& path) { return options.high.Open(path, request); },
        [&](const SonvireData& tone) { return OpenHiresToneInput(tone, request); },
        [&](HiresInput& input, const auto& confirm) {
            const bool isSilent = WarnOfSilence(GetInputName(options), input);
            RenderOutcome outcome = RenderHiresToFile(input, target, {.confirm = confirm, .run = run});
            if (isSilent) // that is told
                outcome.level = {};
            return outcome;
        });
}

#include "cli/render_jobs.h"

#include "cli/certificate.h"
#include "cli/interrupt.h"
#include "cli/progress_line.h"
#include "cli/refusal.h"
#include "jobs/render_file.h"
#include "jobs/render_hires.h"

namespace {

void TellLevel(const RenderOptions& options, const RenderOutcome& outcome) {
    const std::string told = outcome.level.Describe();
    if (outcome.result == LProcessResult::Completed && !told.empty())
        Warn(options.GetInputName(), told);
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
    return Refuse(options.GetInputName(), outcome.failure.GetReason() + options.Hint(input));
}

/// Renders an input that was opened.
template <class Input, class Render>
int RenderInput(const RenderOptions& options, Input input, Render render) {
    CatchInterrupts(); // before there is a file that could be left
    const auto confirm = [&](const auto& warnings) { return options.Confirm(warnings); };
    if (const LFailure refused = CheckCertificate(options, input.files))
        return Refuse(*options.certificate, refused.GetReason());
    const RenderOutcome outcome = render(input, confirm);
    const int status = TellOutcome(options, outcome, input);
    return status == ExitCompleted && options.certificate ? Certify(options, outcome.level) : status;
}

} // namespace

int RenderStandard(const RenderOptions& options) {
    const RenderTarget target{.path = options.output.path, .format = options.GetFormat()};
    const auto run = [&](LPRSourceToSink& job) {
        return RunJob(job, job.source.GetEnd().GetMilliseconds() / 1000.0, options.quiet);
    };
    return RenderInput(options, options.OpenStandard(), [&](const SoundInput& input, const auto& confirm) {
        return RenderToFile(input, target, {.confirm = confirm, .run = run});
    });
}

int RenderHigh(const RenderOptions& options) {
    const HiresRounding rounding = options.GetRounding();
    const HiresTarget target{.path = options.output.path,
                             .samples = rounding.samples,
                             .dither = rounding.dither,
                             .isRaw = options.isRaw,
                             .seed = rounding.seed,
                             .program = ProgramName};
    const auto run = [&](HiresRenderJob& job) {
        const double frames = static_cast<double>(job.source.GetLength());
        return RunJob(job, frames / job.source.rate, options.quiet);
    };
    return RenderInput(options, options.OpenHigh(), [&](HiresInput& input, const auto& confirm) {
        const bool isSilent = WarnOfSilence(options.GetInputName(), input);
        RenderOutcome outcome = RenderHiresToFile(input, target, {.confirm = confirm, .run = run});
        if (isSilent) // that is told
            outcome.level = {};
        return outcome;
    });
}

#include "cli/commands.h"

#include "cli/interrupt.h"
#include "cli/output_option.h"
#include "cli/progress_line.h"
#include "cli/refusal.h"
#include "cli/text.h"
#include "cli/tone_options.h"
#include "jobs/render_file.h"
#include "sound/files/wave_file.h"
#include "sys/path.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <memory>
#include <optional>
#include <utility>

namespace {

struct RenderOptions {
    std::string input; ///< empty where the tone options stand for it
    OutputOption output;
    ToneOptions tone;
    std::optional<int> rate;
    std::optional<int> channels;
    int bits = 16;
    bool quiet = false;
    bool strict = false;
};

/// Runs the job with its progress on the terminal.
LProcessResult RunJob(LPRSourceToSink& job, bool quiet) {
    ProgressLine progress(quiet, job.source.GetEnd().GetMilliseconds() / 1000.0);
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

int RenderInput(const RenderOptions& options, const std::string& inputName, const SoundInput& input) {
    CatchInterrupts(); // before there is a file that could be left
    RenderTarget target{.path = options.output.path, .rate = options.rate, .bits = options.bits};
    if (options.channels)
        target.channels = static_cast<std::uint8_t>(*options.channels);
    const RenderOutcome outcome =
        RenderToFile(input, target,
                     {.confirm = [&](const auto& warnings) { return Confirm(warnings, options.strict); },
                      .run = [&](LPRSourceToSink& job) { return RunJob(job, options.quiet); }});
    if (!outcome.failure) {
        HintAtShortDuration(options.tone);
        return static_cast<int>(outcome.result);
    }
    const bool standardOutput = OutputFile::IsStandardOutput(target.path);
    if (outcome.ofTheOutput)
        return Refuse(standardOutput ? "standard output" : target.path, outcome.failure.GetReason());
    return Refuse(inputName,
                  outcome.failure.GetReason() + (input.endless ? " (--duration gives it one)" : ""));
}

int RenderFile(const RenderOptions& options) {
    return RenderInput(options, options.input,
                       OpenSoundInput(options.input, options.tone.durationMs, SoundLength::Finite));
}

int RenderTone(const RenderOptions& options) {
    const DescribedTone described = MakeTone(options.tone);
    if (!described.problem.empty())
        return Misuse(described.problem);
    return RenderInput(options, "the tone", OpenToneInput(described.tone, SoundLength::Finite));
}

int Render(const RenderOptions& options) {
    if (options.output.path.empty())
        return Misuse("OUTPUT, the WAVE file to write, is required");
    if (const LFailure taken = options.output.CheckFree())
        return Refuse(options.output.path, taken.GetReason());
    if (options.input.empty())
        return RenderTone(options);
    return options.tone.DescribeTone()
               ? Misuse("the tone options stand in place of INPUT: OUTPUT alone is required")
               : RenderFile(options);
}

/// A single name that is no tone's or list's is the output: the tone options stand for the input.
RenderOptions TellApart(RenderOptions options) {
    const bool isInput = HasExtension(options.input, ".tdf") || HasExtension(options.input, ".tdl");
    if (options.output.path.empty() && !isInput)
        std::swap(options.input, options.output.path);
    return options;
}

} // namespace

void AddRenderCommand(CLI::App& program, int& status) {
    const auto options = std::make_shared<RenderOptions>();
    CLI::App* command =
        program.add_subcommand("render", "Write a tone, a tone list or a WAVE file into a WAVE file");
    command->add_option("INPUT", options->input,
                        "A tone (.tdf), a tone list (.tdl) or a WAVE file (.wav); left out where the tone "
                        "options stand for it");
    AddOutputOption(*command, options->output, "The WAVE file to write, or - for standard output");
    command->add_option("--rate", options->rate, "Sample rate, 1 to 196000; without it, the input's own")
        ->transform(WholeIn(Rates, 1, LWaveFile::MaxRate))
        ->type_name("HZ");
    command
        ->add_option("--channels", options->channels, "1 (mono) or 2 (stereo); without it, the input's own")
        ->check(CLI::IsMember({1, 2}))
        ->type_name("N");
    command->add_option("--bits", options->bits, "Bits per sample: 8 or 16")
        ->check(CLI::IsMember({8, 16}))
        ->type_name("N")
        ->capture_default_str();
    command->add_flag("--strict", options->strict, "Fail where an entry of a list can't be used");
    command->add_flag("--quiet", options->quiet, "Show no progress");
    AddSeedOption(*command);
    AddToneOptions(*command, options->tone);
    command->callback([options, &status] { status = Render(TellApart(*options)); });
}

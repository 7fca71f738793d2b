#include "cli/commands.h"

#include "cli/refusal.h"
#include "cli/render_jobs.h"
#include "cli/text.h"
#include "hires/file_kind.h"
#include "sound/files/wave_file.h"
#include "sys/path.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <memory>
#include <utility>

namespace {

/// Takes high quality where something needs it.
void ImplyQuality(RenderOptions& options) {
    if (options.rate.value_or(0) > LWaveFile::MaxRate)
        options.high.Imply("--rate " + std::to_string(*options.rate));
    if (!options.bits.empty() && options.bits != "8" && options.bits != "16")
        options.high.Imply("--bits " + options.bits);
    options.high.ImplyFor(options.input);
    options.high.ImplyFor(options.output.path);
}

/// Why high quality can't do what is asked for; empty where it can.
std::string CheckHigh(const RenderOptions& options) {
    if (options.bits == "8")
        return "--bits 8 goes with the standard quality";
    if (options.rate && *options.rate < HiresSettings::LowestRate)
        return "--rate " + std::to_string(*options.rate) + ": high quality has rates from 8000 Hz on";
    if (!options.dither.empty() && options.bits != "16")
        return "--dither goes with --bits 16";
    return {};
}

int RenderQuality(RenderOptions options) {
    ImplyQuality(options);
    if (!options.high.IsHigh())
        return RenderStandard(options);
    std::string problem = CheckHigh(options);
    if (problem.empty())
        problem = options.high.Settle();
    return problem.empty() ? RenderHigh(options) : Misuse(problem);
}

int Render(const RenderOptions& options) {
    if (options.output.path.empty())
        return Misuse("OUTPUT, the sound file to write, is required");
    if (const LFailure taken = options.output.CheckFree())
        return Refuse(options.output.path, taken.GetReason());
    return !options.input.empty() && options.tone.DescribeTone()
               ? Misuse("the tone options stand in place of INPUT: OUTPUT alone is required")
               : RenderQuality(options);
}

/// A single name that is no tone's or list's is the output: the tone options stand for the input.
RenderOptions TellApart(RenderOptions options) {
    const bool isInput = HasExtension(options.input, ".tdf") || HasExtension(options.input, ".tdl");
    if (options.output.path.empty() && !isInput)
        std::swap(options.input, options.output.path);
    return options;
}

void AddFormatOptions(CLI::App& command, RenderOptions& options) {
    command
        .add_option(
            "--rate", options.rate,
            "Sample rate, 1 to 196000, or 8000 to 768000 in high quality; without it, the input's own, "
            "and 44100 of tones")
        ->transform(WholeIn(Rates, 1, HiresSettings::HighestRate))
        ->type_name("HZ");
    command.add_option("--channels", options.channels, "1 (mono) or 2 (stereo); without it, the input's own")
        ->check(CLI::IsMember({1, 2}))
        ->type_name("N");
    command
        .add_option("--bits", options.bits,
                    "Bits per sample: 8 or 16 (without this option); in high quality 16, 24 (without this "
                    "option), 32 or float")
        ->check(CLI::IsMember({"8", "16", "24", "32", "float"}))
        ->type_name("N");
    command
        .add_option_function<std::string>(
            "--dither",
            [&options](const std::string& kind) {
                options.dither = kind;
                options.high.Imply("--dither");
            },
            "Of 16 bits: triangular (tpdf, without this option) or none")
        ->check(CLI::IsMember({"tpdf", "none"}))
        ->type_name("KIND")
        ->group(HiresOptions::Group);
    command
        .add_flag_callback(
            "--raw",
            [&options] {
                options.isRaw = true;
                options.high.Imply("--raw");
            },
            "Write the samples alone, little-endian, without a header")
        ->group(HiresOptions::Group);
}

} // namespace

void AddRenderCommand(CLI::App& program, int& status) {
    const auto options = std::make_shared<RenderOptions>();
    CLI::App* command =
        program.add_subcommand("render", "Write a tone, a tone list or a sound file into a sound file");
    command->add_option("INPUT", options->input,
                        "A tone (.tdf), a tone list (.tdl) or a sound file (.wav); left out where the tone "
                        "options stand for it");
    AddOutputOption(*command, options->output,
                    ("The file to write, or - for standard output: .wav, or in high quality " +
                     HiresFileKind::ListExtensions())
                        .c_str());
    AddFormatOptions(*command, *options);
    command->add_flag("--strict", options->strict, "Fail where an entry of a list can't be used");
    command->add_flag("--quiet", options->quiet, "Show no progress");
    AddSeedOption(*command, options->seed);
    AddHiresOptions(*command, options->high);
    AddToneOptions(*command, options->tone);
    command->callback([options, &status] { status = Render(TellApart(*options)); });
}

#include "cli/commands.h"

#include "cli/certificate.h"
#include "cli/refusal.h"
#include "cli/render_jobs.h"
#include "hires/file_kind.h"
#include "sys/path.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <memory>
#include <utility>

namespace {

int RenderQuality(RenderOptions options) {
    const std::string problem = options.Settle(options.output.path);
    if (!problem.empty())
        return Misuse(problem);
    return options.high.IsHigh() ? RenderHigh(options) : RenderStandard(options);
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

void AddRawOption(CLI::App& command, RenderOptions& options) {
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
    AddSoundOptions(*command, *options);
    AddCertificateOption(*command, *options);
    AddRawOption(*command, *options);
    command->callback([options, &status] { status = Render(TellApart(*options)); });
}

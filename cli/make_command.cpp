#include "cli/commands.h"

#include "cli/output_option.h"
#include "cli/refusal.h"
#include "cli/text.h"
#include "cli/tone_options.h"
#include "sys/file.h"
#include "sys/path.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <memory>

namespace {

struct MakeOptions {
    ToneOptions tone;
    OutputOption output;
};

int Make(const MakeOptions& options) {
    const DescribedTone described = MakeTone(options.tone);
    if (!described.problem.empty())
        return Misuse(described.problem);
    const std::string& output = options.output.path;
    if (!HasExtension(output, ".tdf"))
        return Refuse(output, "is no name for a tone file, which ends in .tdf");
    if (const LFailure taken = options.output.CheckFree())
        return Refuse(output, taken.GetReason());
    if (const LFailure failure = described.tone.WriteToFile(output.c_str()))
        return Refuse(output, "can't be written: " + failure.GetReason());
    HintAtShortDuration(options.tone);
    return ExitCompleted;
}

} // namespace

void AddMakeCommand(CLI::App& program, int& status) {
    const auto options = std::make_shared<MakeOptions>();
    CLI::App* command = program.add_subcommand("make", "Write a tone described by options into a tone file");
    AddToneOptions(*command, options->tone);
    AddOutputOption(*command, options->output, "The tone file (.tdf) to write")->required();
    command->callback([options, &status] { status = Make(*options); });
}

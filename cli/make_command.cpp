#include "cli/commands.h"

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
    std::string output;
};

int Make(const MakeOptions& options) {
    const DescribedTone described = MakeTone(options.tone);
    if (!described.problem.empty())
        return Misuse(described.problem);
    if (!HasExtension(options.output, ".tdf"))
        return Refuse(options.output, "is no name for a tone file, which ends in .tdf");
    if (const LFailure failure = described.tone.WriteToFile(options.output.c_str()))
        return Refuse(options.output, "can't be written: " + failure.GetReason());
    HintAtShortDuration(options.tone);
    return ExitCompleted;
}

} // namespace

void AddMakeCommand(CLI::App& program, int& status) {
    const auto options = std::make_shared<MakeOptions>();
    CLI::App* command = program.add_subcommand("make", "Write a tone described by options into a tone file");
    AddToneOptions(*command, options->tone);
    command->add_option("OUTPUT", options->output, "The tone file (.tdf) to write")->required();
    command->callback([options, &status] { status = Make(*options); });
}

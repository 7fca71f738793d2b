#include "make_command.h"

#include "refusal.h"
#include "sys/file.h"
#include "sys/replaced_file.h"
#include "text.h"
#include "tone_options.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <cerrno>
#include <cstring>
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
    if (ToLower(GetPathExtension(options.output)) != ".tdf")
        return Refuse(options.output, "is no name for a tone file, which ends in .tdf");
    LReplacedFile file(options.output);
    if (!file.GetError().empty())
        return Refuse(options.output, "can't be created: " + file.GetError());
    if (!described.tone.WriteToFile(file.GetPathToWrite().c_str()))
        return Refuse(options.output, std::string("could not be written: ") + std::strerror(errno));
    if (!file.Commit())
        return Refuse(options.output, "can't be put in place: " + file.GetError());
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
